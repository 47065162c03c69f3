#include "LegibilityCount.h"

#include "AnalysisState.h"
#include "ClearFraming.h"
#include "RecordingSurface.h"
#include "modRedraw.h"
#include "modViewTransform.h"

#include <algorithm>
#include <cmath>

namespace strutwright {

namespace {

/// Records, with the letters of a machine or those of the tests.
class MeasuringSurface : public RecordingSurface {
 public:
  MeasuringSurface(double w, double h, const TextMetrics& metrics) : Metrics(metrics) {
    width = static_cast<float>(w);
    height = static_cast<float>(h);
    window = {-1, -3, 11, static_cast<float>(11 * h / w)};
  }

  /// Texts that were printed in metres, in pixels.
  std::vector<Bounds> printed;

  double TextWidth(const std::string& text, int size) const override { return Metrics(text, size); }

  void DrawText(const std::string& text) override {
    constexpr int Size = 13;
    const double x = (CurrentX() - window.left) / window.width * width;
    const double y = (CurrentY() - window.top) / window.height * height;
    if (x >= 0 && x <= width && y >= 0 && y <= height) printed.push_back({x, y, x + Metrics(text, Size), y + Size});
  }

 private:
  const TextMetrics& Metrics;
};

template <typename Box, typename Touch>
int PairsOf(const std::vector<Box>& boxes, Touch touch) {
  int pairs = 0;
  for (std::size_t a = 0; a < boxes.size(); ++a) {
    for (std::size_t b = a + 1; b < boxes.size(); ++b) pairs += touch(boxes[a], boxes[b]) ? 1 : 0;
  }
  return pairs;
}

bool IsOwn(const ClearLabel& label, std::size_t bar, const ClearScene& scene) {
  if (label.kind != LabelKind::Force && label.kind != LabelKind::MemberNumber) return false;
  const auto own = static_cast<std::size_t>(label.owner);
  return own == bar || LieOnEachOther(scene.truss.bars[own], scene.truss.bars[bar]);
}

bool IsOnSymbol(const ClearScene& scene, const TurnedBox& box) {
  const auto touches = [&](const TurnedBox& other) { return Overlap(box, other); };
  const auto onSupport = [&](const ClearSupport& each) { return touches(BoxOfSupport(each)); };
  const auto onArrow = [&](const ClearArrow& each) { return touches(BoxOfArrow(each)); };
  if (std::any_of(scene.supports.begin(), scene.supports.end(), onSupport)) return true;
  if (std::any_of(scene.arrows.begin(), scene.arrows.end(), onArrow)) return true;
  for (std::size_t n = 1; scene.dots && n < scene.truss.joints.size(); ++n) {
    const PixelPoint at = scene.truss.joints[n].at;
    if (DistanceToBox(box, at, at) < ClearSize::NodeRadius + ClearSize::NodeEdge / 2) return true;
  }
  return false;
}

bool IsOnForeignBar(const ClearScene& scene, const ClearLabel& label) {
  for (std::size_t b = 0; b < scene.truss.bars.size(); ++b) {
    const ClearBar& bar = scene.truss.bars[b];
    if (!IsOwn(label, b, scene) && DistanceToBox(label.box, bar.from, bar.to) < bar.width / 2) return true;
  }
  return false;
}

bool IsNearerToOther(const ClearScene& scene, const ClearLabel& label) {
  const ClearBar& own = scene.truss.bars[static_cast<std::size_t>(label.owner)];
  const double distance = DistanceToBox(label.box, own.from, own.to);
  for (std::size_t b = 0; b < scene.truss.bars.size(); ++b) {
    const ClearBar& bar = scene.truss.bars[b];
    if (!IsOwn(label, b, scene) && DistanceToBox(label.box, bar.from, bar.to) <= distance) return true;
  }
  return false;
}

TurnedBox BoxOfText(const PixelLabel& label, const TextMetrics& metrics) {
  return {label.centre, label.along, std::max(label.box.x, metrics(label.text, label.size) / 2),
          std::max<double>(label.box.y, label.size / 2.0)};
}

} // namespace

ClearSettings EverythingShown() {
  ClearSettings settings;
  settings.reactions = settings.memberForces = settings.deflectedShape = true;
  return settings;
}

LegibilityCount CountClear(double width, double height, const TextMetrics& metrics) {
  MeasuringSurface surface(width, height, metrics);
  const ClearSettings settings = EverythingShown();
  surface.window = ClearFrame(surface, settings).value_or(surface.window);
  ClearMemory memory;
  const PixelView view = ViewOf(surface, surface.window);
  const ClearOutcome outcome = DrawClear(surface, view, settings, memory);

  LegibilityCount count;
  for (const ShownLabels& kind : outcome.labels) count.leftOut += kind.all - kind.shown;
  std::vector<TurnedBox> boxes;
  for (const PixelLabel& label : surface.pixelTexts) boxes.push_back(BoxOfText(label, metrics));
  count.labels = static_cast<int>(boxes.size());
  count.pairs = PairsOf(boxes, [](const TurnedBox& a, const TurnedBox& b) { return Overlap(a, b); });
  const ClearScene& scene = memory.Last();
  count.members = static_cast<int>(scene.truss.bars.size());
  for (const TurnedBox& box : boxes) count.onSymbols += IsOnSymbol(scene, box.MovedBy(-1 * view.origin)) ? 1 : 0;
  for (const ClearLabel& label : scene.labels) {
    if (!label.IsPlaced()) continue;
    count.onSymbols += IsOnForeignBar(scene, label) ? 1 : 0;
    if (label.kind != LabelKind::Force) continue;
    ++count.forces;
    count.nearerToOthers += IsNearerToOther(scene, label) ? 1 : 0;
  }
  return count;
}

LegibilityCount CountDescribed(double width, double height, const TextMetrics& metrics) {
  MeasuringSurface surface(width, height, metrics);
  Draw(surface, {.reactions = true,
                 .memberForces = true,
                 .deflectedShape = true,
                 .extents = ExtentsOfModel(1),
                 .frameExtents = true,
                 .failures = [](const std::string&) {}});
  LegibilityCount count;
  count.labels = static_cast<int>(surface.printed.size());
  count.pairs = PairsOf(surface.printed, [](const Bounds& a, const Bounds& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
  });
  return count;
}

} // namespace strutwright
