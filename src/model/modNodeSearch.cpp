#include "modNodeSearch.h"

#include "modModelStore.h"

#include <cmath>

namespace strutwright {

int FindNode(float x, float y) {
  for (int n = 1; n <= NodeCount; ++n) {
    const double dx = static_cast<double>(x) - NodeTable(n, NodeX);
    const double dy = static_cast<double>(y) - NodeTable(n, NodeY);
    if (std::sqrt(dx * dx + dy * dy) < PickRadius) return n;
  }
  return 0;
}

} // namespace strutwright
