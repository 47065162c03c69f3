#pragma once

namespace strutwright {

/// The whole command "Run Analysis": rebuilds the model from the grids, analyses it and lists the results.
/// A failure has been reported when this returns and leaves "No Analysis".
/// Returns whether there are results.
bool runAnalysis();

} // namespace strutwright
