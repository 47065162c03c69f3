#include "modClearDrawing.h"

#include "AnalysisState.h"
#include "modModelStore.h"

#include <cmath>

namespace strutwright {

namespace {

constexpr double SmallZoom = 0.02; // change of scale that leaves labels where they are

bool IsNear(double a, double b) { return std::fabs(a / b - 1) <= SmallZoom; }

} // namespace

bool ClearMemory::IsSameModel() const {
  return Nodes == NodeTable && Members == MemberTable && KeptReactions == Reactions;
}

const ClearScene& ClearMemory::SceneFor(const SceneRequest& request, const PixelSurface& surface) {
  const bool sameModel = IsKept && IsSameModel();
  if (sameModel && Request == request) return Scene;
  const bool isNear = sameModel && IsNear(request.scaleX, Request.scaleX) && IsNear(request.scaleY, Request.scaleY);
  Scene = MakeScene(request, surface, isNear ? &Scene : nullptr);
  ++Made;
  Request = request;
  Nodes = NodeTable;
  Members = MemberTable;
  KeptReactions = Reactions;
  IsKept = true;
  return Scene;
}

} // namespace strutwright
