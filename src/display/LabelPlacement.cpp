#include "LabelPlacement.h"

#include "LabelPlaces.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <map>
#include <optional>
#include <span>
#include <utility>

namespace strutwright {

namespace {

constexpr double Clearance = 1;       // pixels between a label and anything else
constexpr double MinNearerBy = 0.25;  // pixels by which a label must be nearer to its own at least,
constexpr double PlainlyNearerBy = 4; // and where there is a choice
constexpr int MaxToMoveFor = 24;      // forces without a place: where more are missing, moving is of little help
constexpr std::size_t MaxBarsForMoving = 300;
constexpr std::size_t MaxBarsForPatience = 60;
constexpr double ShortestBar = 8;    // pixels; a shorter member has no room beside it that is its own
constexpr double ShortestPart = 0.9; // of a force's width: beside a member that is shorter it seldom fits

/// Looks whether one label may stand in a box.
class LabelFit {
 public:
  /// nearerBy: pixels by which the label must be nearer to its own.
  LabelFit(const ClearScene& scene, const ClearLabel& label, const TurnedBox& box, double nearerBy)
      : Scene(scene), Label(label), Box(box), Area(BoundsOf(box)), Grown(box.GrownBy(Clearance)), NearerBy(nearerBy),
        OwnDistance(DistanceToOwn()) {
    if (label.kind != LabelKind::Force) return;
    const ClearBar& bar = BarOf(label.owner);
    IsAlong = std::fabs(Dot(box.along, bar.along)) > 0.999;
    HalfDiagonal = LengthOf({box.halfLength, box.halfHeight});
  }

  static constexpr std::size_t Nothing = std::numeric_limits<std::size_t>::max();

  bool IsFree() const { return FirstInTheWay() == Nothing; }

  /// The index of something that is in the way; Nothing where there is none.
  std::size_t FirstInTheWay() const {
    std::size_t first = Nothing;
    AnyInTheWay([&](const OccupiedBox& item) {
      first = static_cast<std::size_t>(&item - &Scene.plane[0]);
      return true;
    });
    return first;
  }

  /// The one label that alone is in the way; -1 where there is none or anything else.
  int OnlyLabelInTheWay() const {
    int only = -1;
    const bool isBlocked = AnyInTheWay([&](const OccupiedBox& item) {
      if (item.kind != Occupant::Label || (only >= 0 && only != item.owner)) return true;
      only = item.owner;
      return false;
    });
    return isBlocked ? -1 : only;
  }

  bool IsInTheWay(const OccupiedBox& item) const {
    if (item.kind == Occupant::Bar) return IsForeignBar(item);
    const bool isOwnNode =
        item.kind == Occupant::Node && Label.kind == LabelKind::NodeNumber && item.owner == Label.owner;
    if (isOwnNode) return false; // its places keep off a round dot, not off the square around it
    if (item.kind == Occupant::Node) {
      return IsOnDot(item.box) || (Label.kind == LabelKind::NodeNumber && IsNearerNode(item.owner));
    }
    if (Overlap(Grown, item.box)) return true;
    return item.kind == Occupant::Arrow && Label.kind == LabelKind::Arrow && IsNearerArrow(item.box);
  }

 private:
  /// Whether anything that is in the way meets a condition.
  template <typename Condition>
  bool AnyInTheWay(Condition condition) const {
    const double reach = std::max(Clearance, OwnDistance + NearerBy);
    return Scene.plane.Any(Area.GrownBy(reach),
                           [&](const OccupiedBox& item) { return IsInTheWay(item) && condition(item); });
  }

  /// Between a force and the line of its member.
  double OwnGap() const {
    if (Gap < 0) Gap = DistanceToBox(Box, BarOf(Label.owner).from, BarOf(Label.owner).to);
    return Gap;
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
    const double distance = DistanceToLine(Box.centre, bar.from, bar.to);
    if (distance < Box.halfHeight || (IsAlong && distance <= OwnDistance + NearerBy)) return true;
    if (distance > HalfDiagonal + std::max(OwnDistance + NearerBy, 2 * Clearance + bar.width)) return false;
    return Overlap(Grown, strip) || DistanceToBox(Box, bar.from, bar.to) <= OwnGap() + NearerBy;
  }

  /// A dot is round: what passes the corners of the square around it does not touch it.
  bool IsOnDot(const TurnedBox& dot) const {
    return Overlap(Grown, dot) && DistanceToBox(Box, dot.centre, dot.centre) < dot.halfLength + Clearance;
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
  Bounds Area;
  TurnedBox Grown;
  double NearerBy;
  double OwnDistance;
  mutable double Gap = -1;
  double HalfDiagonal = 0;
  bool IsAlong = false;
};

/// Where labels stood in another scene of the same model.
class FormerPlaces {
 public:
  explicit FormerPlaces(const std::vector<ClearLabel>* labels) {
    if (labels == nullptr) return;
    for (const ClearLabel& label : *labels) Labels[{label.kind, label.owner}] = &label;
  }

  const ClearLabel* Of(const ClearLabel& label) const {
    const auto found = Labels.find({label.kind, label.owner});
    return found == Labels.end() ? nullptr : found->second;
  }

 private:
  std::map<std::pair<LabelKind, int>, const ClearLabel*> Labels;
};

/// How many places may be looked at to move labels, all together: what does not fit soon does not fit.
struct Patience {
  int forForces = 0;
  int forNumbers = 0;
};

Patience PatienceFor(std::size_t bars) {
  if (bars > MaxBarsForMoving) return {};
  return bars > MaxBarsForPatience ? Patience{1200, 600} : Patience{20000, 8000};
}

class LabelPlacer {
 public:
  explicit LabelPlacer(ClearScene& scene)
      : Scene(scene), IsSmall(scene.truss.bars.size() <= MaxBarsForMoving),
        Places(scene, scene.truss.bars.size() <= MaxBarsForPatience || (IsSmall && scene.text.mayShorten)),
        Items(scene.labels.size()) {}

  void Place(ClearLabel& label, const ClearLabel* former) {
    if (IsHopeless(label)) return;
    if (former != nullptr && former->IsPlaced() && TakeFormer(label, *former)) return;
    PlaceAnywhere(label);
  }

  /// Finds a place for a label by moving another one that is in its way, which in turn may move a third one.
  void PlaceByMoving(ClearLabel& label) {
    Moving = label.kind;
    if (Looks > 0 && !label.IsPlaced() && !IsHopeless(label)) MoveFor(label, 2);
    Moving = LabelKind::Force;
  }

  void PlaceShortened(ClearLabel& label) {
    const int most = IsHopeless(label) ? 0 : static_cast<int>(label.shorter.size());
    while (!label.IsPlaced() && label.shortened < most) {
      label.Shorten(label.shortened + 1);
      PlaceAnywhere(label);
    }
  }

  /// looks: how many places may be looked at from here on.
  void MoveFrom(int looks) { Looks = looks; }

 private:
  bool IsHopeless(const ClearLabel& label) const {
    if (!BelongsToBar(label)) return label.kind == LabelKind::NodeNumber && !Scene.dots;
    const double length = Scene.truss.bars[static_cast<std::size_t>(label.owner)].length;
    const bool isTooLong = !IsSmall && length < ShortestPart * 2 * label.halfWidth;
    return length < ShortestBar || (isTooLong && label.kind == LabelKind::Force);
  }

  bool TakeFormer(ClearLabel& label, const ClearLabel& former) {
    label.Shorten(former.shortened);
    const std::optional<TurnedBox> box = Places.At(label, former.place);
    return box && Take(label, former.place, *box);
  }

  /// The first place where the label is plainly nearer to its own than to anything else, otherwise the first at all.
  /// A force that gives way to a number gets none but a good one.
  bool PlaceAnywhere(ClearLabel& label) {
    const bool isPlain = label.kind != LabelKind::Force || !IsSmall;
    const bool isForNumber = Moving == LabelKind::NodeNumber || Moving == LabelKind::MemberNumber;
    Blocker = LabelFit::Nothing;
    int first = -1;
    TurnedBox firstBox;
    for (int place = 0; const std::optional<TurnedBox> box = Places.At(label, place); ++place) {
      if (Looks < 0 || (!isPlain && isForNumber && place >= LabelPlaces::AlongPlaces)) break;
      if (!IsFree(label, *box)) continue;
      if (isPlain || LabelFit(Scene, label, *box, PlainlyNearerBy).IsFree()) return Put(label, place, *box);
      if (first < 0) firstBox = *box;
      if (first < 0) first = place;
    }
    return first >= 0 && !isForNumber && Put(label, first, firstBox);
  }

  bool MoveFor(ClearLabel& label, int depth) {
    for (int place = 0; const std::optional<TurnedBox> box = Places.At(label, place); ++place) {
      if (box->halfLength <= 0) continue;
      if (Looks < 0) return false;
      --Looks;
      const int other = LabelFit(Scene, label, *box, MinNearerBy).OnlyLabelInTheWay();
      if (other >= 0 && Swap(label, place, *box, Scene.labels[static_cast<std::size_t>(other)], depth)) return true;
    }
    return false;
  }

  bool Swap(ClearLabel& label, int place, const TurnedBox& box, ClearLabel& other, int depth) {
    const int before = other.place;
    const TurnedBox boxBefore = other.box;
    Leave(other);
    if (Take(label, place, box)) {
      if (PlaceAnywhere(other) || (depth > 1 && Moving == LabelKind::Force && MoveFor(other, depth - 1))) return true;
      Leave(label);
    }
    Put(other, before, boxBefore);
    return false;
  }

  bool Take(ClearLabel& label, int place, const TurnedBox& box) { return IsFree(label, box) && Put(label, place, box); }

  bool IsFree(const ClearLabel& label, const TurnedBox& box) {
    if (box.halfLength <= 0) return false;
    --Looks;
    const LabelFit fit(Scene, label, box, MinNearerBy);
    if (Blocker < Scene.plane.Count() && fit.IsInTheWay(Scene.plane[Blocker])) return false;
    Blocker = fit.FirstInTheWay();
    return Blocker == LabelFit::Nothing;
  }

  bool Put(ClearLabel& label, int place, const TurnedBox& box) {
    label.place = place;
    label.box = box;
    Items[IndexOf(label)] = Scene.plane.Add({box, Occupant::Label, static_cast<int>(IndexOf(label))});
    return true;
  }

  void Leave(ClearLabel& label) {
    Scene.plane.Remove(Items[IndexOf(label)]);
    label.place = -1;
  }

  std::size_t IndexOf(const ClearLabel& label) const { return static_cast<std::size_t>(&label - Scene.labels.data()); }

  static constexpr int Endless = std::numeric_limits<int>::max();

  ClearScene& Scene;
  bool IsSmall; ///< there is time to look for more
  LabelPlaces Places;
  std::vector<std::size_t> Items;          ///< of the labels that are placed
  LabelKind Moving = LabelKind::Force;     ///< what others are moved for
  int Looks = Endless;                     ///< at places that may still be taken
  std::size_t Blocker = LabelFit::Nothing; ///< what was in the way of the last place
};

bool IsMissingForce(const ClearLabel& label) { return label.kind == LabelKind::Force && !label.IsPlaced(); }

/// Gives the number of forces that have found no place.  Gives up where that is not to be mended any more, and counts
/// those not tried yet among them; unless any number may be missing.
/// patience: how many places may be looked at to move others.
int PlaceForces(std::span<ClearLabel> labels, LabelPlacer& placer, const FormerPlaces& former, int patience,
                int mostMissing) {
  const auto missing = [&] { return static_cast<int>(std::count_if(labels.begin(), labels.end(), IsMissingForce)); };
  int unplaced = 0;
  for (ClearLabel& label : labels) {
    placer.Place(label, former.Of(label));
    if (IsMissingForce(label) && label.shorter.empty()) ++unplaced;
    if (unplaced > std::max(MaxToMoveFor, mostMissing)) return missing();
  }
  for (ClearLabel& label : labels) placer.PlaceShortened(label);
  if (missing() > MaxToMoveFor) return missing();
  placer.MoveFrom(patience);
  for (ClearLabel& label : labels) placer.PlaceByMoving(label);
  return missing();
}

void PlaceNumbers(std::span<ClearLabel> labels, LabelPlacer& placer, const FormerPlaces& former, int patience) {
  placer.MoveFrom(std::numeric_limits<int>::max());
  for (ClearLabel& label : labels) placer.Place(label, former.Of(label));
  placer.MoveFrom(patience);
  for (ClearLabel& label : labels) placer.PlaceByMoving(label);
}

} // namespace

int PlaceLabels(ClearScene& scene, const std::vector<ClearLabel>* before, int mostMissing) {
  const FormerPlaces former(before);
  const Patience patience = PatienceFor(scene.truss.bars.size());
  LabelPlacer placer(scene);
  const auto isNumber = [](const ClearLabel& label) {
    return label.kind == LabelKind::NodeNumber || label.kind == LabelKind::MemberNumber;
  };
  const auto firstNumber = std::find_if(scene.labels.begin(), scene.labels.end(), isNumber);
  const int missing = PlaceForces({scene.labels.begin(), firstNumber}, placer, former, patience.forForces, mostMissing);
  if (missing <= mostMissing) PlaceNumbers({firstNumber, scene.labels.end()}, placer, former, patience.forNumbers);
  return missing;
}

bool TouchesAnything(const ClearScene& scene, const TurnedBox& box) {
  return scene.plane.Any(BoundsOf(box), [&](const OccupiedBox& item) { return Overlap(box, item.box); });
}

} // namespace strutwright
