#include "LargestValues.h"

#include "AnalysisState.h"
#include "modMember.h"
#include "modModelStore.h"

#include <algorithm>
#include <cmath>

namespace strutwright {

double LargestForce() {
  double largest = 0;
  for (int m = 1; m <= MemberCount; ++m) largest = std::max<double>(largest, std::fabs(MemberForce(m)));
  return largest;
}

double LargestDisplacement() {
  double largest = 0;
  for (const float each : Displacements) largest = std::max<double>(largest, std::fabs(each));
  return largest;
}

} // namespace strutwright
