#include "Directions.h"

#include "CheckedTruss.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>
#include <numeric>

namespace strutwright {

namespace {

/// Coordinates that were computed, or scaled, have been rounded more than once.
constexpr double CoordinateRoundings = 4;
/// Farther out, rounding would make one line of what is clearly two.
constexpr double MaxDoubt = 1e-3;
/// Directions are computed in double.
constexpr double MinDoubt = 1e-14;

/// A direction as a line, whichever end it begins at: its angle from 0 up to pi.
struct DirectedLine {
  double angle = 0;
  Direction direction;
  std::size_t member = 0; ///< index in the truss; none for an axis
};

double AngleOf(const Direction& direction) {
  const double angle = std::atan2(direction.s, direction.c);
  if (angle < 0) return angle + std::numbers::pi;
  return angle >= std::numbers::pi ? angle - std::numbers::pi : angle;
}

std::vector<DirectedLine> LinesOf(const CheckedTruss& truss) {
  std::vector<DirectedLine> lines{{0, {1, 0, 0}, NoMember}, {std::numbers::pi / 2, {0, 1, 0}, NoMember}};
  for (std::size_t m = 0; m < truss.members.size(); ++m) {
    const Direction direction = truss.members[m].Towards();
    lines.push_back({AngleOf(direction), direction, m});
  }
  std::stable_sort(lines.begin(), lines.end(),
                   [](const DirectedLine& a, const DirectedLine& b) { return a.angle < b.angle; });
  return lines;
}

/// Turns the circle so that it begins behind its widest gap, and no line is near both of its ends.
void BeginBehindGap(std::vector<DirectedLine>& lines) {
  std::size_t widest = 0;
  double gap = lines.front().angle + std::numbers::pi - lines.back().angle;
  for (std::size_t k = 1; k < lines.size(); ++k) {
    if (lines[k].angle - lines[k - 1].angle <= gap) continue;
    gap = lines[k].angle - lines[k - 1].angle;
    widest = k;
  }
  std::rotate(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(widest), lines.end());
}

using LineIterator = std::vector<DirectedLine>::const_iterator;

/// The end of the lines that are one with the first of them.
LineIterator EndOfBundle(LineIterator first, LineIterator end) {
  return std::find_if(first, end,
                      [first](const DirectedLine& each) { return !AreInLine(first->direction, each.direction); });
}

/// Gives the lines of a bundle the direction that is least in doubt.
void Align(LineIterator first, LineIterator end, std::vector<Direction>& directions) {
  const auto doubt = [](const DirectedLine& a, const DirectedLine& b) { return a.direction.doubt < b.direction.doubt; };
  const Direction& best = std::min_element(first, end, doubt)->direction;
  for (; first != end; ++first) {
    if (first->member == NoMember) continue;
    Direction& direction = directions[first->member];
    const double sign = best.c * direction.c + best.s * direction.s < 0 ? -1 : 1;
    direction.c = sign * best.c;
    direction.s = sign * best.s;
  }
}

} // namespace

double RoundingOf(double coordinate) {
  const auto size = static_cast<float>(std::abs(coordinate));
  return (static_cast<double>(std::nextafter(size, std::numeric_limits<float>::infinity())) - size) / 2;
}

double RoundingOfDecimal(double coordinate) {
  std::array<char, 64> text{};
  const char* end = std::to_chars(text.data(), text.data() + text.size(), static_cast<float>(coordinate)).ptr;
  double meant = coordinate;
  std::from_chars(text.data(), end, meant);
  return std::abs(meant - coordinate);
}

bool AreInLine(const Direction& one, const Direction& other) {
  const double doubt = std::clamp(CoordinateRoundings * (one.doubt + other.doubt), MinDoubt, MaxDoubt);
  return std::abs(one.Sine(other)) <= doubt;
}

std::vector<Direction> AlignedDirections(const CheckedTruss& truss) {
  std::vector<Direction> directions;
  for (const CheckedMember& member : truss.members) directions.push_back(member.Towards());
  std::vector<DirectedLine> lines = LinesOf(truss);
  BeginBehindGap(lines);
  for (auto first = lines.cbegin(); first != lines.cend();) {
    const auto end = EndOfBundle(first, lines.cend());
    Align(first, end, directions);
    first = end;
  }
  return directions;
}

} // namespace strutwright
