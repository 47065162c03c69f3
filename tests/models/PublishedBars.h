#pragma once

#include "ModelBuilder.h"

namespace strutwright {

/// Three bars that hold node 3; the matrices of this problem are published (CALFEM, exs_bar2) and can be followed by
/// hand: docs/method.md.
inline ModelData FourNodesThreeBars() {
  return {{{0, 0, 0, 0, 3}, {0, 1.2F, 0, 0, 3}, {1.6F, 0, 0, -80, 0}, {1.6F, 1.2F, 0, 0, 3}},
          {{1, 3, 200, 600}, {3, 4, 200, 300}, {2, 3, 200, 1000}}};
}

} // namespace strutwright
