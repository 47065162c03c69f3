#include "LabelPlacement.h"

#include "LabelPlaces.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <utility>

namespace strutwright {

namespace {

constexpr double Clearance = 1;  // pixels between a label and anything else
constexpr double NearerBy = 0.5; // pixels by which a label must be nearer to its own
constexpr int MaxToMoveFor = 12; // forces without a place: where more are missing, moving is of little help
constexpr int MaxLooks = 1500;   // for all labels together: what does not fit soon does not fit
constexpr std::size_t MaxBarsForMoving = 300;
constexpr double ShortestBar = 8; // pixels; a shorter member has no room beside it that is its own

bool BelongsToBar(const ClearLabel& label) {
  return label.kind == LabelKind::Force || label.kind == LabelKind::MemberNumber;
}

/// Looks whether one label may stand in a box.
class LabelFit {
 public:
  LabelFit(const ClearScene& scene, const ClearLabel& label, const TurnedBox& box)
      : Scene(scene), Label(label), Box(box), Grown(box.GrownBy(Clearance)), OwnDistance(DistanceToOwn()) {
    if (label.kind != LabelKind::Force) return;
    const ClearBar& bar = BarOf(label.owner);
    IsAlong = std::fabs(Dot(box.along, bar.along)) > 0.999;
    OwnGap = DistanceToBox(box, bar.from, bar.to);
  }

  bool IsFree() const {
    return !AnyInTheWay([](const OccupiedBox&) { return true; });
  }

  /// The one label of a force that alone is in the way; -1 where there is none or anything else.
  int OnlyForceInTheWay() const {
    int only = -1;
    const bool isBlocked = AnyInTheWay([&](const OccupiedBox& item) {
      if (item.kind != Occupant::Label || (only >= 0 && only != item.owner)) return true;
      only = item.owner;
      return Scene.labels[static_cast<std::size_t>(only)].kind != LabelKind::Force;
    });
    return isBlocked ? -1 : only;
  }

 private:
  /// Whether anything that is in the way meets a condition.
  template <typename Condition>
  bool AnyInTheWay(Condition condition) const {
    const double reach = std::max(Clearance, OwnDistance + NearerBy);
    return Scene.plane.Any(BoundsOf(Box).GrownBy(reach),
                           [&](const OccupiedBox& item) { return IsInTheWay(item) && condition(item); });
  }

  const ClearBar& BarOf(int index) const { return Scene.truss.bars[static_cast<std::size_t>(index)]; }
  PixelPoint NodeOf(int n) const { return Scene.truss.joints[static_cast<std::size_t>(n)].at; }

  double DistanceToOwn() const {
    if (Label.kind == LabelKind::NodeNumber) return LengthOf(Box.centre - NodeOf(Label.owner));
    if (Label.kind == LabelKind::MemberNumber) return 0;
    if (Label.kind == LabelKind::Force) {
      return DistanceToLine(Box.centre, BarOf(Label.owner).from, BarOf(Label.owner).to);
    }
    const ClearArrow& arrow = Scene.arrows[static_cast<std::size_t>(Label.owner)];
    return DistanceToLine(Box.centre, arrow.tail, arrow.tip);
  }

  bool IsInTheWay(const OccupiedBox& item) const {
    if (item.kind == Occupant::Bar) return IsForeignBar(item);
    const bool isOwnNode =
        item.kind == Occupant::Node && Label.kind == LabelKind::NodeNumber && item.owner == Label.owner;
    if (isOwnNode) return false; // its places keep off a round dot, not off the square around it
    if (Overlap(Grown, item.box)) return true;
    if (item.kind == Occupant::Node) return Label.kind == LabelKind::NodeNumber && IsNearerNode(item.owner);
    return item.kind == Occupant::Arrow && Label.kind == LabelKind::Arrow && IsNearerArrow(item.box);
  }

  /// Of members that lie on each other none can be nearer.
  bool IsForeignBar(const OccupiedBox& item) const {
    if (!BelongsToBar(Label)) return Overlap(Grown, item.box);
    if (item.owner == Label.owner) return false;
    const ClearBar& bar = BarOf(item.owner);
    return IsTooNear(bar, item.box) && !LieOnEachOther(BarOf(Label.owner), bar);
  }

  /// A force must be nearer to its own member, with its box and, where it stands along it, with its middle.
  bool IsTooNear(const ClearBar& bar, const TurnedBox& strip) const {
    if (Label.kind == LabelKind::MemberNumber) return Overlap(Grown, strip);
    if (Overlap(Grown, strip) || DistanceToBox(Box, bar.from, bar.to) <= OwnGap + NearerBy) return true;
    return IsAlong && DistanceToLine(Box.centre, bar.from, bar.to) <= OwnDistance + NearerBy;
  }

  bool IsNearerNode(int n) const {
    return n != Label.owner && LengthOf(Box.centre - NodeOf(n)) <= OwnDistance + NearerBy;
  }

  bool IsNearerArrow(const TurnedBox& strip) const {
    const ClearArrow& own = Scene.arrows[static_cast<std::size_t>(Label.owner)];
    const PixelPoint half = strip.halfLength * strip.along;
    if (LengthOf(strip.centre - 0.5 * (own.tail + own.tip)) < 0.01) return false;
    return DistanceToLine(Box.centre, strip.centre - half, strip.centre + half) <= OwnDistance;
  }

  const ClearScene& Scene;
  const ClearLabel& Label;
  const TurnedBox& Box;
  TurnedBox Grown;
  double OwnDistance;
  double OwnGap = 0; ///< between a force and the line of its member
  bool IsAlong = false;
};

class LabelPlacer {
 public:
  explicit LabelPlacer(ClearScene& scene) : Scene(scene), Places(scene), Items(scene.labels.size()) {}

  void Place(ClearLabel& label, int first) {
    if (IsHopeless(label)) return;
    const std::optional<TurnedBox> box = first >= 0 ? Places.At(label, first) : std::nullopt;
    if (box && Take(label, first, *box)) return;
    PlaceAnywhere(label);
  }

  /// Finds a place for a force by moving another one that is in its way, which in turn may move a third one.
  void PlaceByMoving(ClearLabel& label) {
    if (!label.IsPlaced() && !IsHopeless(label)) MoveFor(label, 2);
  }

 private:
  bool IsHopeless(const ClearLabel& label) const {
    return BelongsToBar(label) && Scene.truss.bars[static_cast<std::size_t>(label.owner)].length < ShortestBar;
  }

  bool PlaceAnywhere(ClearLabel& label) {
    for (int place = 0; const std::optional<TurnedBox> box = Places.At(label, place); ++place) {
      if (Take(label, place, *box)) return true;
    }
    return false;
  }

  bool MoveFor(ClearLabel& label, int depth) {
    for (int place = 0; const std::optional<TurnedBox> box = Places.At(label, place); ++place) {
      if (box->halfLength <= 0) continue;
      if (--Looks < 0) return false;
      const int other = LabelFit(Scene, label, *box).OnlyForceInTheWay();
      if (other >= 0 && Swap(label, place, *box, Scene.labels[static_cast<std::size_t>(other)], depth)) return true;
    }
    return false;
  }

  bool Swap(ClearLabel& label, int place, const TurnedBox& box, ClearLabel& other, int depth) {
    const int before = other.place;
    const TurnedBox boxBefore = other.box;
    Leave(other);
    if (Take(label, place, box)) {
      if (PlaceAnywhere(other) || (depth > 1 && MoveFor(other, depth - 1))) return true;
      Leave(label);
    }
    Put(other, before, boxBefore);
    return false;
  }

  bool Take(ClearLabel& label, int place, const TurnedBox& box) {
    if (box.halfLength <= 0 || !LabelFit(Scene, label, box).IsFree()) return false;
    Put(label, place, box);
    return true;
  }

  void Put(ClearLabel& label, int place, const TurnedBox& box) {
    label.place = place;
    label.box = box;
    Items[IndexOf(label)] = Scene.plane.Add({box, Occupant::Label, static_cast<int>(IndexOf(label))});
  }

  void Leave(ClearLabel& label) {
    Scene.plane.Remove(Items[IndexOf(label)]);
    label.place = -1;
  }

  std::size_t IndexOf(const ClearLabel& label) const { return static_cast<std::size_t>(&label - Scene.labels.data()); }

  ClearScene& Scene;
  LabelPlaces Places;
  std::vector<std::size_t> Items; ///< of the labels that are placed
  int Looks = MaxLooks;           ///< that moving may still take
};

bool IsForce(const ClearLabel& label) { return label.kind == LabelKind::Force; }

} // namespace

void PlaceLabels(ClearScene& scene, const std::vector<ClearLabel>* before) {
  std::map<std::pair<LabelKind, int>, int> places;
  if (before != nullptr) {
    for (const ClearLabel& label : *before) places[{label.kind, label.owner}] = label.place;
  }
  LabelPlacer placer(scene);
  const auto firstNumber = std::find_if(scene.labels.begin(), scene.labels.end(), [](const ClearLabel& label) {
    return label.kind == LabelKind::NodeNumber || label.kind == LabelKind::MemberNumber;
  });
  const auto place = [&](ClearLabel& label) {
    const auto found = places.find({label.kind, label.owner});
    placer.Place(label, found == places.end() ? -1 : found->second);
  };
  std::for_each(scene.labels.begin(), firstNumber, place);
  const auto missing = std::count_if(scene.labels.begin(), firstNumber,
                                     [](const ClearLabel& label) { return IsForce(label) && !label.IsPlaced(); });
  if (missing <= MaxToMoveFor && scene.truss.bars.size() <= MaxBarsForMoving) {
    for (auto label = scene.labels.begin(); label != firstNumber; ++label) {
      if (IsForce(*label)) placer.PlaceByMoving(*label);
    }
  }
  std::for_each(firstNumber, scene.labels.end(), place);
}

bool TouchesAnything(const ClearScene& scene, const TurnedBox& box) {
  return scene.plane.Any(BoundsOf(box), [&](const OccupiedBox& item) { return Overlap(box, item.box); });
}

} // namespace strutwright
