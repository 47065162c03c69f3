#include "modTrussShapes.h"

#include <cstddef>
#include <functional>
#include <utility>

namespace strutwright {

namespace {

constexpr int RollerOnGround = 1; // support codes of the model
constexpr int RollerAtWall = 2;
constexpr int Pin = 3;

/// Nodes of the two chords, from the left or from the ground on.
struct Chords {
  std::vector<int> lower;
  std::vector<int> upper;

  int Lower(int i) const { return lower.at(static_cast<std::size_t>(i)); }
  int Upper(int i) const { return upper.at(static_cast<std::size_t>(i)); }
};

double Along(const TrussSize& size, double bay) { return size.span * bay / size.bays; }

void Hold(TrussShape& shape, int first, int second, SupportKind kind, int rollerCode) {
  const auto hold = [&](int index, bool rolls) {
    shape.nodes.at(static_cast<std::size_t>(index)).support = rolls ? rollerCode : Pin;
  };
  hold(first, kind == SupportKind::RollerPin);
  hold(second, kind == SupportKind::PinRoller);
}

std::vector<int> AddLowerNodes(TrussShape& shape, const TrussSize& size) {
  std::vector<int> lower;
  for (int i = 0; i <= size.bays; ++i) lower.push_back(shape.AddNode(Along(size, i), 0));
  return lower;
}

/// Both chords of a girder, which meet in the supports, with the loads below.
Chords AddGirderChords(TrussShape& shape, const TrussSize& size, const std::function<double(int)>& heightAt) {
  Chords chords;
  chords.lower = AddLowerNodes(shape, size);
  chords.upper.push_back(chords.lower.front());
  for (int i = 1; i < size.bays; ++i) chords.upper.push_back(shape.AddNode(Along(size, i), heightAt(i)));
  chords.upper.push_back(chords.lower.back());
  shape.AddChord(chords.lower);
  shape.AddChord(chords.upper);
  shape.MarkLoaded(chords.lower);
  Hold(shape, chords.lower.front(), chords.lower.back(), size.support, RollerOnGround);
  return chords;
}

/// The diagonal of bay i, between the panel points i and i + 1.
void AddDiagonal(TrussShape& shape, const Chords& chords, int i, bool falls) {
  shape.AddMember(falls ? chords.Upper(i) : chords.Lower(i), falls ? chords.Lower(i + 1) : chords.Upper(i + 1),
                  MemberKind::Diagonal);
}

/// A girder with a vertical at each inner panel point; the bays beside the supports are triangles.
TrussShape GirderWithVerticals(const TrussSize& size, const std::function<double(int)>& heightAt,
                               const std::function<bool(int)>& falls) {
  TrussShape shape;
  const Chords chords = AddGirderChords(shape, size, heightAt);
  for (int i = 1; i < size.bays; ++i) shape.AddMember(chords.Lower(i), chords.Upper(i), MemberKind::Vertical);
  for (int i = 1; i < size.bays - 1; ++i) AddDiagonal(shape, chords, i, falls(i));
  return shape;
}

bool FallsTowardsMidspan(const TrussSize& size, int bay) { return 2 * bay + 1 <= size.bays; }

/// Adds what is between the chords of a truss that sticks out of a wall or the ground, all bays alike.
void AddBracing(TrussShape& shape, const Chords& chords, const TrussSize& size, const std::function<bool(int)>& falls) {
  shape.AddChord(chords.lower);
  shape.AddChord(chords.upper);
  const int first = size.support == SupportKind::PinPin ? 1 : 0;
  for (int i = first; i <= size.bays; ++i) shape.AddMember(chords.Lower(i), chords.Upper(i), MemberKind::Vertical);
  for (int i = 0; i < size.bays; ++i) AddDiagonal(shape, chords, i, falls(i));
}

/// One half of a Fink roof.
class FinkHalf {
 public:
  /// rafter: its nodes from the support to the ridge.
  FinkHalf(TrussShape& shape, std::vector<int> rafter) : Shape(shape), Rafter(std::move(rafter)) {}

  void Build(int foot) { Split(0, static_cast<int>(Rafter.size()) - 1, foot, MemberKind::Chord, MemberKind::Diagonal); }

 private:
  int At(int i) const { return Rafter.at(static_cast<std::size_t>(i)); }

  /// Puts a strut into the triangle of a part of the rafter and a foot below it.
  /// lowTie, highTie: what the sides from the foot to the part's ends are.
  void Split(int low, int high, int foot, MemberKind lowTie, MemberKind highTie) {
    const int middle = (low + high) / 2;
    Shape.AddMember(At(middle), foot, MemberKind::Vertical);
    Tie(low, middle, foot, lowTie, true);
    Tie(middle, high, foot, highTie, false);
  }

  /// Ties the lower or the upper end of a part to a foot, over a foot of the part's own where it has several bays.
  void Tie(int low, int high, int foot, MemberKind tie, bool lowEnd) {
    const int end = lowEnd ? At(low) : At(high);
    if (high - low == 1) {
      Shape.AddMember(At(low), At(high), MemberKind::Chord);
      Shape.AddMember(end, foot, tie);
      return;
    }
    const int ownFoot = Shape.AddNodeBetween(end, foot);
    Shape.AddMember(ownFoot, foot, tie);
    Split(low, high, ownFoot, lowEnd ? tie : MemberKind::Diagonal, lowEnd ? MemberKind::Diagonal : tie);
  }

  TrussShape& Shape;
  std::vector<int> Rafter;
};

std::vector<int> AddRafter(TrussShape& shape, const TrussSize& size, double support, int ridge) {
  const int bays = size.bays / 2;
  std::vector<int> rafter;
  for (int i = 0; i < bays; ++i) {
    const double part = static_cast<double>(i) / bays;
    rafter.push_back(shape.AddNode(support + (size.span / 2 - support) * part, size.height * part));
  }
  rafter.push_back(ridge);
  return rafter;
}

/// Where the verticals of a K truss are in halves.
bool IsHalved(const TrussSize& size, int i) { return i < size.bays / 2 || size.bays - i < size.bays / 2; }

void AddHalvedVertical(TrussShape& shape, const Chords& chords, int i, bool left) {
  const int middle = shape.AddNodeBetween(chords.Lower(i), chords.Upper(i));
  const int inner = left ? i + 1 : i - 1;
  shape.AddMember(chords.Lower(i), middle, MemberKind::Vertical);
  shape.AddMember(middle, chords.Upper(i), MemberKind::Vertical);
  shape.AddMember(middle, chords.Lower(inner), MemberKind::Diagonal);
  shape.AddMember(middle, chords.Upper(inner), MemberKind::Diagonal);
}

} // namespace

TrussShape PrattShape(const TrussSize& size) {
  return GirderWithVerticals(
      size, [&](int) { return size.height; }, [&](int bay) { return FallsTowardsMidspan(size, bay); });
}

TrussShape HoweShape(const TrussSize& size) {
  return GirderWithVerticals(
      size, [&](int) { return size.height; }, [&](int bay) { return !FallsTowardsMidspan(size, bay); });
}

TrussShape WarrenShape(const TrussSize& size) {
  TrussShape shape;
  const std::vector<int> lower = AddLowerNodes(shape, size);
  std::vector<int> upper;
  for (int i = 0; i < size.bays; ++i) upper.push_back(shape.AddNode(Along(size, i + 0.5), size.height));
  shape.AddChord(lower);
  shape.AddChord(upper);
  for (std::size_t i = 0; i < upper.size(); ++i) {
    shape.AddMember(lower[i], upper[i], MemberKind::Diagonal);
    shape.AddMember(upper[i], lower[i + 1], MemberKind::Diagonal);
  }
  shape.MarkLoaded(lower);
  Hold(shape, lower.front(), lower.back(), size.support, RollerOnGround);
  return shape;
}

TrussShape WarrenVerticalsShape(const TrussSize& size) {
  return GirderWithVerticals(
      size, [&](int) { return size.height; }, [](int bay) { return bay % 2 == 1; });
}

TrussShape KShape(const TrussSize& size) {
  TrussShape shape;
  const Chords chords = AddGirderChords(shape, size, [&](int) { return size.height; });
  for (int i = 1; i < size.bays; ++i) {
    if (IsHalved(size, i)) {
      AddHalvedVertical(shape, chords, i, i < size.bays / 2);
    } else {
      shape.AddMember(chords.Lower(i), chords.Upper(i), MemberKind::Vertical);
    }
  }
  if (size.bays % 2 == 1) AddDiagonal(shape, chords, size.bays / 2, true);
  return shape;
}

TrussShape BowstringShape(const TrussSize& size) {
  // y = 4 h t (1 - t), t = x / span.   Checked: the height at midspan; even loads leave the diagonals without force.
  const auto heightAt = [&](int i) {
    const double t = static_cast<double>(i) / size.bays;
    return 4 * size.height * t * (1 - t);
  };
  return GirderWithVerticals(size, heightAt, [&](int bay) { return FallsTowardsMidspan(size, bay); });
}

TrussShape FinkShape(const TrussSize& size) {
  TrussShape shape;
  const int ridge = shape.AddNode(size.span / 2, size.height);
  const std::vector<int> left = AddRafter(shape, size, 0, ridge);
  const std::vector<int> right = AddRafter(shape, size, size.span, ridge);
  const int leftFoot = shape.AddNode(size.span / 3, 0);
  const int rightFoot = shape.AddNode(size.span * 2 / 3, 0);
  shape.AddMember(leftFoot, rightFoot, MemberKind::Chord);
  FinkHalf(shape, left).Build(leftFoot);
  FinkHalf(shape, right).Build(rightFoot);
  shape.MarkLoaded(left);
  shape.MarkLoaded(right);
  Hold(shape, left.front(), right.front(), size.support, RollerOnGround);
  return shape;
}

TrussShape CantileverShape(const TrussSize& size) {
  TrussShape shape;
  Chords chords{AddLowerNodes(shape, size), {}};
  for (int i = 0; i <= size.bays; ++i) chords.upper.push_back(shape.AddNode(Along(size, i), size.height));
  AddBracing(shape, chords, size, [](int) { return true; });
  shape.MarkLoaded(chords.upper);
  Hold(shape, chords.Lower(0), chords.Upper(0), size.support, RollerAtWall);
  return shape;
}

TrussShape TowerShape(const TrussSize& size) {
  TrussShape shape;
  Chords legs; // the left one and the right one
  for (int i = 0; i <= size.bays; ++i) {
    const double part = static_cast<double>(i) / size.bays;
    const double lean = size.span / 4 * part;
    legs.lower.push_back(shape.AddNode(lean, size.height * part));
    legs.upper.push_back(shape.AddNode(size.span - lean, size.height * part));
  }
  AddBracing(shape, legs, size, [](int bay) { return bay % 2 == 1; });
  shape.MarkLoaded(legs.upper);
  Hold(shape, legs.Lower(0), legs.Upper(0), size.support, RollerOnGround);
  return shape;
}

} // namespace strutwright
