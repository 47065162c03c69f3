#pragma once

#include "Panel.h"
#include "TiledMatrix.h"

#include <vector>

namespace strutwright {

/// The displacements from equations that elimination has made triangular, from the last to the first.
/// D: (0..n), entry 0 is left alone.  Solution::NotFinite where a value is no finite number; then D is as it was.
/// Source: docs/method.md, 5.
Solution BackSubstituteTiled(const TiledMatrix& K, std::vector<float>& D);

} // namespace strutwright
