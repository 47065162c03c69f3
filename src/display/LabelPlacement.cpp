#include "LabelPlacement.h"

#include "LabelCandidates.h"
#include "LabelFit.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <optional>
#include <span>
#include <vector>

namespace strutwright {

namespace {

constexpr double MinNearerBy = 0.25;  // pixels by which a label must be nearer to its own at least,
constexpr double PlainlyNearerBy = 4; // and where there is a choice
constexpr int MaxToMoveFor = 24;      // forces without a place: where more are missing, moving is of little help
constexpr std::size_t MaxBarsForMoving = 300;
constexpr std::size_t MaxBarsForManyTrials = 60;
constexpr double ShortestBar = 8;    // pixels; a shorter member has no room beside it that is its own
constexpr double ShortestPart = 0.9; // of a force's width: beside a member that is shorter it seldom fits

/// Where labels stood in another scene of the same model.
class FormerPlaces {
 public:
  explicit FormerPlaces(const std::vector<ClearLabel>* labels) {
    if (labels == nullptr) return;
    for (const ClearLabel& label : *labels) {
      auto& kind = Labels.at(static_cast<std::size_t>(label.kind));
      const auto owner = static_cast<std::size_t>(label.owner);
      if (owner >= kind.size()) kind.resize(std::max(owner + 1, 2 * kind.size()), nullptr);
      kind[owner] = &label;
    }
  }

  const ClearLabel* Of(const ClearLabel& label) const {
    const auto& kind = Labels.at(static_cast<std::size_t>(label.kind));
    const auto owner = static_cast<std::size_t>(label.owner);
    return owner < kind.size() ? kind[owner] : nullptr;
  }

 private:
  std::array<std::vector<const ClearLabel*>, LabelKinds> Labels; ///< by kind and owner
};

/// How many places may be tried to move labels, all together: what does not fit soon does not fit.
struct TrialLimits {
  int forForces = 0;
  int forNumbers = 0;
};

TrialLimits TrialLimitsFor(std::size_t bars) {
  if (bars > MaxBarsForMoving) return {};
  return bars > MaxBarsForManyTrials ? TrialLimits{1200, 600} : TrialLimits{20000, 8000};
}

class LabelPlacer {
 public:
  explicit LabelPlacer(ClearScene& scene)
      : Scene(scene), IsSmall(scene.truss.bars.size() <= MaxBarsForMoving),
        Places(scene, scene.truss.bars.size() <= MaxBarsForManyTrials || (IsSmall && scene.text.mayShorten)) {}

  void Place(ClearLabel& label, const ClearLabel* former) {
    if (IsHopeless(label)) return;
    if (former != nullptr && former->IsPlaced() && TakeFormer(label, *former)) return;
    PlaceAnywhere(label);
  }

  /// Finds a place for a label by moving another one that is in its way, which in turn may move a third one.
  void PlaceByMoving(ClearLabel& label) {
    Moving = label.kind;
    if (TrialsLeft > 0 && !label.IsPlaced() && !IsHopeless(label)) MoveFor(label, 2);
    Moving = LabelKind::Force;
  }

  void PlaceShortened(ClearLabel& label) {
    const int most = IsHopeless(label) ? 0 : static_cast<int>(label.shorter.size());
    while (!label.IsPlaced() && label.shortened < most) {
      label.Shorten(label.shortened + 1);
      PlaceAnywhere(label);
    }
  }

  /// trials: how many places may be tried from here on.
  void LimitTrials(int trials) { TrialsLeft = trials; }

 private:
  bool IsHopeless(const ClearLabel& label) const { return HasNoRoom(Scene, label); }

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
      if (TrialsLeft < 0 || (!isPlain && isForNumber && place >= LabelCandidates::AlongPlaces)) break;
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
      if (TrialsLeft < 0) return false;
      --TrialsLeft;
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
    --TrialsLeft;
    const LabelFit fit(Scene, label, box, MinNearerBy);
    if (Blocker < Scene.plane.Count() && fit.IsInTheWay(Scene.plane[Blocker])) return false;
    Blocker = fit.FirstInTheWay();
    return Blocker == LabelFit::Nothing;
  }

  bool Put(ClearLabel& label, int place, const TurnedBox& box) {
    label.place = place;
    label.box = box;
    label.item = Scene.plane.Add({box, Occupant::Label, static_cast<int>(IndexOf(label))});
    return true;
  }

  void Leave(ClearLabel& label) {
    Scene.plane.Remove(label.item);
    label.place = -1;
  }

  std::size_t IndexOf(const ClearLabel& label) const { return static_cast<std::size_t>(&label - Scene.labels.data()); }

  static constexpr int Endless = std::numeric_limits<int>::max();

  ClearScene& Scene;
  bool IsSmall; ///< there is time to look for more
  LabelCandidates Places;
  LabelKind Moving = LabelKind::Force;     ///< what others are moved for
  int TrialsLeft = Endless;                ///< places that may still be tried
  std::size_t Blocker = LabelFit::Nothing; ///< what was in the way of the last place
};

bool IsMissingForce(const ClearLabel& label) { return label.kind == LabelKind::Force && !label.IsPlaced(); }

/// Of a scene's labels those of nodes' and members' numbers, which come last.
std::span<ClearLabel> NumbersOf(std::vector<ClearLabel>& labels) {
  const auto isNumber = [](const ClearLabel& label) {
    return label.kind == LabelKind::NodeNumber || label.kind == LabelKind::MemberNumber;
  };
  return {std::find_if(labels.begin(), labels.end(), isNumber), labels.end()};
}

} // namespace

bool HasNoRoom(const ClearScene& scene, const ClearLabel& label) {
  if (!BelongsToBar(label)) return label.kind == LabelKind::NodeNumber && !scene.dots;
  const double length = scene.truss.bars[static_cast<std::size_t>(label.owner)].length;
  const bool isLarge = scene.truss.bars.size() > MaxBarsForMoving;
  const bool isTooLong = isLarge && length < ShortestPart * 2 * label.halfWidth;
  return length < ShortestBar || (isTooLong && label.kind == LabelKind::Force);
}

PlacedForces PlaceForces(ClearScene& scene, const std::vector<ClearLabel>* before, int mostMissing) {
  const std::span<ClearLabel> labels(scene.labels.data(), scene.labels.size() - NumbersOf(scene.labels).size());
  const FormerPlaces former(before);
  LabelPlacer placer(scene);
  const auto missing = [&] { return static_cast<int>(std::count_if(labels.begin(), labels.end(), IsMissingForce)); };
  int unplaced = 0;
  for (ClearLabel& label : labels) {
    placer.Place(label, former.Of(label));
    if (IsMissingForce(label) && label.shorter.empty()) ++unplaced;
    if (unplaced > std::max(MaxToMoveFor, mostMissing)) return {missing(), false};
  }
  for (ClearLabel& label : labels) placer.PlaceShortened(label);
  if (missing() > MaxToMoveFor) return {missing(), true};
  placer.LimitTrials(TrialLimitsFor(scene.truss.bars.size()).forForces);
  for (ClearLabel& label : labels) placer.PlaceByMoving(label);
  return {missing(), true};
}

void PlaceNumbers(ClearScene& scene, const std::vector<ClearLabel>* before) {
  const std::span<ClearLabel> labels = NumbersOf(scene.labels);
  const FormerPlaces former(before);
  LabelPlacer placer(scene);
  for (ClearLabel& label : labels) placer.Place(label, former.Of(label));
  placer.LimitTrials(TrialLimitsFor(scene.truss.bars.size()).forNumbers);
  for (ClearLabel& label : labels) placer.PlaceByMoving(label);
}

bool TouchesAnything(const ClearScene& scene, const TurnedBox& box) {
  return scene.plane.Any(BoundsOf(box), [&](const OccupiedBox& item) { return Overlap(box, item.box); });
}

} // namespace strutwright
