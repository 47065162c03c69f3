#include "modPreview.h"

#include "DisplayState.h"
#include "modModelStore.h"
#include "modTrussFamilies.h"
#include "modViewTransform.h"

#include <algorithm>
#include <cmath>

namespace strutwright {

namespace {

constexpr float ArrowPart = 0.1F; // of the model's extents

std::string Determinacy(int degree) {
  if (degree == 0) return "statically determinate";
  return "statically indeterminate to degree " + std::to_string(degree);
}

} // namespace

void ScaleLoadsToModel() {
  float largest = 0;
  for (int n = 1; n <= NodeCount; ++n) {
    largest = std::max({largest, std::fabs(NodeTable(n, NodeForceX)), std::fabs(NodeTable(n, NodeForceY))});
  }
  if (largest == 0) return;
  ComputeModelExtents();
  LoadsScale = largest / (ArrowPart * std::max(MaxX - MinX, MaxY - MinY));
}

std::string TrussSummary(const StoredModel& model) {
  return std::to_string(model.nodeCount) + " nodes, " + std::to_string(model.memberCount) + " members, " +
         Determinacy(DegreeOfIndeterminacy(model));
}

} // namespace strutwright
