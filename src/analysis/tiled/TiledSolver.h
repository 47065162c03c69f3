#pragma once

#include "Kernel.h"
#include "LongWork.h"
#include "Panel.h"
#include "TiledMatrix.h"

#include <vector>

namespace strutwright {

/// Solves K D = P as elimination row by row does and with the same bits, the sign of zeros included, in the time and
/// memory that the entries other than zero take.  Source: docs/method.md, 5 and 9.
/// K is destroyed.  D: (0..n), in mm; entry 0 is not used, and all is untouched unless the solution is found.
/// tolerance: a pivot below this size makes the equations unstable.
/// work: learns how far it is; what it throws passes through.
Solution SolveTiled(TiledMatrix& K, std::vector<float>& D, float tolerance, const Kernel& kernel, LongWork& work);

} // namespace strutwright
