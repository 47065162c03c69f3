#pragma once

namespace strutwright {

/// True when the general finite element program `ccx` can be started.
bool HaveCalculix();

/// Analyses the model in the tables with it, from writing its input to the end of its run; E and A as of member 1.
void AnalyseWithCalculix();

} // namespace strutwright
