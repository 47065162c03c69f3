#include "modCrossings.h"

#include "ImportError.h"
#include "ModelRows.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <optional>

namespace strutwright {

namespace {

DrawnPlace Difference(DrawnPlace a, DrawnPlace b) { return {a.x - b.x, a.y - b.y}; }
double Cross(DrawnPlace a, DrawnPlace b) { return a.x * b.y - a.y * b.x; }
double Dot(DrawnPlace a, DrawnPlace b) { return a.x * b.x + a.y * b.y; }

/// Finds where pieces part each other.
class Splitter {
 public:
  Splitter(const std::vector<Piece>& pieces, PlaceFinder& places, double tolerance)
      : Pieces(pieces), Places(places), Tolerance(tolerance), Cuts(pieces.size()) {}

  std::vector<Piece> Split() {
    FindCuts();
    std::vector<Piece> parts;
    for (std::size_t k = 0; k < Pieces.size(); ++k) AddParts(k, parts);
    return parts;
  }

 private:
  DrawnPlace From(std::size_t k) const { return Places.Places()[Pieces[k].from]; }
  DrawnPlace To(std::size_t k) const { return Places.Places()[Pieces[k].to]; }
  double Left(std::size_t k) const { return std::min(From(k).x, To(k).x) - Tolerance; }
  double Right(std::size_t k) const { return std::max(From(k).x, To(k).x) + Tolerance; }

  /// From left to right, each piece with those that begin before it ends.
  void FindCuts() {
    std::vector<std::size_t> order(Pieces.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::sort(order.begin(), order.end(), [this](std::size_t a, std::size_t b) { return Left(a) < Left(b); });
    for (std::size_t a = 0; a < order.size(); ++a) {
      const double end = Right(order[a]);
      for (std::size_t b = a + 1; b < order.size() && Left(order[b]) <= end; ++b) CutPair(order[a], order[b]);
    }
  }

  bool AreApartInHeight(std::size_t a, std::size_t b) const {
    return std::max(From(a).y, To(a).y) + Tolerance < std::min(From(b).y, To(b).y) - Tolerance ||
           std::max(From(b).y, To(b).y) + Tolerance < std::min(From(a).y, To(a).y) - Tolerance;
  }

  void CutPair(std::size_t a, std::size_t b) {
    const bool hasPoint = Pieces[a].from == Pieces[a].to || Pieces[b].from == Pieces[b].to;
    if (hasPoint || AreApartInHeight(a, b)) return;
    bool touch = false;
    for (const std::size_t end : {Pieces[b].from, Pieces[b].to}) touch = CutWhereOn(a, end) || touch;
    for (const std::size_t end : {Pieces[a].from, Pieces[a].to}) touch = CutWhereOn(b, end) || touch;
    if (touch) return;
    const auto crossing = CrossingOf(a, b);
    if (!crossing) return;
    const std::size_t place = Places.FindOrAdd(*crossing);
    Cut(a, place);
    Cut(b, place);
  }

  /// Parts a piece at a place that lies between its ends; returns whether it does, or is one of them.
  bool CutWhereOn(std::size_t piece, std::size_t place) {
    if (place == Pieces[piece].from || place == Pieces[piece].to) return true;
    const DrawnPlace along = Difference(To(piece), From(piece));
    const DrawnPlace beside = Difference(Places.Places()[place], From(piece));
    const double length = std::hypot(along.x, along.y);
    const double way = Dot(beside, along) / length;
    if (std::abs(Cross(along, beside)) / length > Tolerance || way <= 0 || way >= length) return false;
    Cut(piece, place);
    return true;
  }

  /// Where both cross between their ends.
  std::optional<DrawnPlace> CrossingOf(std::size_t a, std::size_t b) const {
    const DrawnPlace alongA = Difference(To(a), From(a));
    const DrawnPlace alongB = Difference(To(b), From(b));
    const DrawnPlace between = Difference(From(b), From(a));
    const double turn = Cross(alongA, alongB);
    if (turn == 0) return std::nullopt;
    const double onA = Cross(between, alongB) / turn;
    const double onB = Cross(between, alongA) / turn;
    if (!(onA > 0 && onA < 1 && onB > 0 && onB < 1)) return std::nullopt;
    return DrawnPlace{From(a).x + onA * alongA.x, From(a).y + onA * alongA.y};
  }

  void Cut(std::size_t piece, std::size_t place) {
    std::vector<std::size_t>& cuts = Cuts[piece];
    if (place == Pieces[piece].from || place == Pieces[piece].to) return;
    if (std::find(cuts.begin(), cuts.end(), place) != cuts.end()) return;
    if (Pieces.size() + ++CutCount > static_cast<std::size_t>(MaxMembers)) {
      throw ImportError(0, "split at its crossings, the drawing has more than 32767 members");
    }
    cuts.push_back(place);
  }

  void AddParts(std::size_t k, std::vector<Piece>& parts) {
    std::vector<std::size_t>& cuts = Cuts[k];
    const auto distance = [&](std::size_t place) {
      const DrawnPlace way = Difference(Places.Places()[place], From(k));
      return Dot(way, way);
    };
    std::sort(cuts.begin(), cuts.end(), [&](std::size_t a, std::size_t b) { return distance(a) < distance(b); });
    std::size_t from = Pieces[k].from;
    for (const std::size_t cut : cuts) {
      parts.push_back({from, cut, Pieces[k].line});
      from = cut;
    }
    parts.push_back({from, Pieces[k].to, Pieces[k].line});
  }

  const std::vector<Piece>& Pieces;
  PlaceFinder& Places;
  double Tolerance;
  std::vector<std::vector<std::size_t>> Cuts; ///< places on each piece
  std::size_t CutCount = 0;
};

} // namespace

std::vector<Piece> SplitAtCrossings(const std::vector<Piece>& pieces, PlaceFinder& places, double tolerance) {
  return Splitter(pieces, places, tolerance).Split();
}

} // namespace strutwright
