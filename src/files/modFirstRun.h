#pragma once

namespace strutwright {

/// Registers the type of model files with the desktop, unless an installer or a package has done so, and greets the
/// user, who has not opened a file yet.
void firstRun();

} // namespace strutwright
