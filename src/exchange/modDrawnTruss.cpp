#include "modDrawnTruss.h"

#include "ImportError.h"
#include "PlaceFinder.h"
#include "modCrossings.h"
#include "modModelStore.h"
#include "modNumberText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <map>
#include <set>
#include <utility>

namespace strutwright {

namespace {

constexpr int LayersNamed = 5;

std::string Count(std::size_t count, const std::string& one, const std::string& many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

/// The code in a layer's name "support_3", "Support-2" or "support 1"; nothing for another layer.
std::optional<float> SupportCodeOf(const std::string& layer) {
  std::string name = InSmallLetters(layer);
  if (!name.starts_with("support")) return std::nullopt;
  name.erase(0, std::string("support").size());
  if (!name.empty() && std::string("_- ").find(name.front()) != std::string::npos) name.erase(0, 1);
  return NumericValue(name);
}

/// What two supports at one node come to.
float Together(float one, float other) {
  if (one == 0 || one == other) return other;
  return other == 0 ? one : 3.0F;
}

/// Throws ImportError where no load can be as large.
float Sum(float one, float other) {
  const auto sum = static_cast<float>(static_cast<double>(one) + static_cast<double>(other));
  if (!std::isfinite(sum)) throw ImportError(0, "the loads of two nodes in one place are too large together");
  return sum;
}

double MetresOfDrawing(int unit) {
  const std::map<int, double> metres{{1, 0.0254}, {2, 0.3048}, {4, 0.001}, {5, 0.01}, {6, 1}, {7, 1000}};
  const auto found = metres.find(unit);
  return found == metres.end() ? 1 : found->second;
}

/// Makes the rows of one drawing.
class TrussMaker {
 public:
  TrussMaker(const DxfDrawing& drawing, const DrawingOptions& options, std::vector<std::string>& remarks)
      : Drawing(drawing), Options(options), Remarks(remarks), Places(options.tolerance),
        Metres(options.metres.value_or(MetresOfDrawing(drawing.unit))) {}

  DrawnTruss Make() {
    CheckUnit();
    TakeOwnNodes();
    const bool isOwn = !OwnNodes.empty();
    if (Drawing.lines.empty() && !isOwn) ThrowNoLine();
    TakeLines();
    if (Options.split) SplitPieces();
    AddNodes();
    for (const Piece& piece : Pieces) AddMember(piece);
    AddSupports();
    Remark();
    return {std::move(Rows), std::move(Layers)};
  }

 private:
  DrawnPlace InMetres(DrawnPlace at) const { return {at.x * Metres, at.y * Metres}; }

  void CheckUnit() {
    const std::set<int> known{1, 2, 4, 5, 6, 7};
    if (Options.metres || known.contains(Drawing.unit)) return;
    Remarks.push_back("The drawing names no unit that is known here; it is read in metres");
  }

  /// The nodes that this program wrote keep their order and their places, also where two are in one.
  void TakeOwnNodes() {
    std::map<int, const DrawnPoint*> own;
    for (const DrawnPoint& point : Drawing.points) {
      if (point.note) own.try_emplace(point.note->number, &point);
    }
    for (const auto& [number, point] : own) OwnNodes.emplace(number, Places.Add(InMetres(point->at)));
    for (const auto& [number, point] : own) OwnPoints.push_back(point);
    TakeCopies();
  }

  /// What was copied within the drawing has the number of its original.  It is a node of its own, or the one that is
  /// there already.
  void TakeCopies() {
    for (const DrawnPoint& point : Drawing.points) {
      if (!point.note) continue;
      const std::size_t original = OwnNodes.at(point.note->number);
      if (OwnPoints[original] == &point) continue;
      const std::size_t place = Places.FindOrAdd(InMetres(point.at));
      if (place != original) Copies.emplace_back(place, &point); // a copy upon its original adds nothing
    }
  }

  /// Whether a line is still where this program drew it: between the nodes that it names.
  bool IsBetweenItsNodes(const DrawnLine& line) const {
    return IsAt(line.note->i, line.from) && IsAt(line.note->j, line.to);
  }

  bool IsAt(float node, DrawnPlace end) const {
    const auto own = OwnNodes.find(RoundNodeNumber(node));
    return own != OwnNodes.end() && Places.Places()[own->second] == InMetres(end);
  }

  void TakeLines() {
    std::set<std::pair<std::size_t, std::size_t>> drawn;
    for (std::size_t k = 0; k < Drawing.lines.size(); ++k) {
      const DrawnLine& line = Drawing.lines[k];
      if (line.note && IsBetweenItsNodes(line)) {
        Pieces.push_back({OwnNodes.at(RoundNodeNumber(line.note->i)), OwnNodes.at(RoundNodeNumber(line.note->j)), k});
        continue;
      }
      const std::size_t from = Places.FindOrAdd(InMetres(line.from));
      const std::size_t to = Places.FindOrAdd(InMetres(line.to));
      if (from == to) {
        ++PointLike;
      } else if (!drawn.insert(std::minmax(from, to)).second) {
        ++Twice;
      } else {
        Pieces.push_back({from, to, k});
      }
      if (Pieces.size() > static_cast<std::size_t>(MaxMembers)) CheckRoomForMember(Pieces.size() - 1, 0);
    }
  }

  /// Lines that lie on each other have parts in common.
  void SplitPieces() {
    std::set<std::pair<std::size_t, std::size_t>> drawn;
    std::vector<Piece> kept;
    for (const Piece& piece : SplitAtCrossings(Pieces, Places, Options.tolerance)) {
      const bool isNew = drawn.insert(std::minmax(piece.from, piece.to)).second;
      if (isNew) kept.push_back(piece);
      if (!isNew) ++Twice;
    }
    Pieces = std::move(kept);
  }

  void AddNodes() {
    for (const DrawnPlace& place : Places.Places()) {
      CheckRoomForNode(Rows.nodes.size(), 0);
      const auto x = static_cast<float>(place.x);
      const auto y = static_cast<float>(place.y);
      if (!std::isfinite(x) || !std::isfinite(y)) throw ImportError(0, "a coordinate of the drawing is too large");
      Rows.nodes.push_back({0, x, y});
    }
    for (std::size_t n = 0; n < OwnPoints.size(); ++n) {
      Rows.nodes[n][NodeForceX] = OwnPoints[n]->note->forceX;
      Rows.nodes[n][NodeForceY] = OwnPoints[n]->note->forceY;
      Rows.nodes[n][NodeSupport] = SupportCodeOf(Drawing.layers[OwnPoints[n]->layer]).value_or(0.0F);
    }
    for (const auto& [place, point] : Copies) AddCopy(Rows.nodes[place], *point);
  }

  /// A copy brings its load and its support along.
  void AddCopy(ModelRows::Row& node, const DrawnPoint& copy) const {
    node[NodeForceX] = Sum(node[NodeForceX], copy.note->forceX);
    node[NodeForceY] = Sum(node[NodeForceY], copy.note->forceY);
    node[NodeSupport] = Together(node[NodeSupport], SupportCodeOf(Drawing.layers[copy.layer]).value_or(0.0F));
  }

  void AddMember(const Piece& piece) {
    CheckRoomForMember(Rows.members.size(), 0);
    const DrawnLine& line = Drawing.lines[piece.line];
    const auto number = [](std::size_t place) { return static_cast<float>(place + 1); };
    ModelRows::Row row{0, number(piece.from), number(piece.to)};
    const std::string layer = InSmallLetters(Drawing.layers[line.layer]);
    const auto rigidity = Options.layers.find(layer);
    if (rigidity != Options.layers.end()) {
      row[MemberE] = rigidity->second.E;
      row[MemberA] = rigidity->second.A;
    } else if (line.note) {
      row[MemberE] = line.note->E;
      row[MemberA] = line.note->A;
    } else {
      row[MemberE] = Options.rigidity.E;
      row[MemberA] = Options.rigidity.A;
      Assumed.insert(Drawing.layers[line.layer]);
    }
    if (line.note) row[MemberPS] = line.note->PS;
    if (line.note) KeepOddNumbers(row, *line.note);
    Rows.members.push_back(row);
    CountOnLayer(line.layer, {row[MemberE], row[MemberA]});
  }

  void CountOnLayer(std::size_t layer, const LayerRigidity& rigidity) {
    const std::string& name = Drawing.layers[layer];
    const auto [at, isNew] = LayerPlaces.try_emplace(InSmallLetters(name), Layers.size());
    if (isNew) Layers.push_back({name, 0, rigidity});
    DrawnLayer& counted = Layers[at->second];
    ++counted.members;
    if (counted.rigidity != rigidity) counted.rigidity.reset();
  }

  /// A node number may be one that is rounded only by the analysis.
  static void KeepOddNumbers(ModelRows::Row& row, const MemberNote& note) {
    if (static_cast<float>(RoundNodeNumber(note.i)) == row[MemberNodeI]) row[MemberNodeI] = note.i;
    if (static_cast<float>(RoundNodeNumber(note.j)) == row[MemberNodeJ]) row[MemberNodeJ] = note.j;
  }

  void AddSupports() {
    for (const DrawnPoint& point : Drawing.points) {
      if (point.note) continue;
      const auto code = SupportCodeOf(Drawing.layers[point.layer]);
      if (!code) {
        ++(point.isBlock ? OtherBlocks : OtherPoints);
        continue;
      }
      const auto node = Places.Find(InMetres(point.at));
      if (!node) {
        ++StraySupports;
        continue;
      }
      float& support = Rows.nodes[*node][NodeSupport];
      support = Together(support, *code);
    }
  }

  /// "2 ARC, 1 TEXT": what of the drawing is no part of a truss.
  std::string LeftOutText() const {
    std::map<std::string, std::size_t> kinds;
    for (const auto& [kind, count] : Drawing.leftOut) kinds[kind] += static_cast<std::size_t>(count);
    if (OtherBlocks > 0) kinds["INSERT"] += OtherBlocks;
    if (OtherPoints > 0) kinds["POINT"] += OtherPoints;
    std::string text;
    for (const auto& [kind, count] : kinds) text += (text.empty() ? "" : ", ") + std::to_string(count) + " " + kind;
    return text;
  }

  [[noreturn]] void ThrowNoLine() {
    for (const DrawnPoint& point : Drawing.points) ++(point.isBlock ? OtherBlocks : OtherPoints);
    const std::string others = LeftOutText();
    throw ImportError(0, "the drawing has no line" + (others.empty() ? "" : " to make a member of, only " + others));
  }

  void Remark() {
    const std::string leftOut = LeftOutText();
    if (!leftOut.empty()) Remarks.push_back("Left out: " + leftOut);
    Remark(PointLike, "line shorter than the tolerance is left out", "lines shorter than the tolerance are left out");
    Remark(Twice, "line drawn on top of another is left out", "lines drawn on top of others are left out");
    Remark(StraySupports, "support stands at no end of a line and is left out",
           "supports stand at no end of a line and are left out");
    Remark(static_cast<std::size_t>(std::max(Drawing.linesOutOfPlane, 0)),
           "line or corner has a height z, which is left out", "lines or corners have a height z, which is left out");
    RemarkOnRigidity();
  }

  void Remark(std::size_t count, const std::string& one, const std::string& many) {
    if (count > 0) Remarks.push_back(Count(count, one, many));
  }

  void RemarkOnRigidity() {
    if (Assumed.empty()) return;
    std::string names;
    int named = 0;
    for (const std::string& layer : Assumed) {
      if (++named > LayersNamed) break;
      names += (names.empty() ? "" : ", ") + Quoted(layer);
    }
    if (named > LayersNamed) names += " and others";
    Remarks.push_back("Members on the layers " + names + " get E = " + ShortestText(Options.rigidity.E) +
                      " kN/mm2 and A = " + ShortestText(Options.rigidity.A) + " mm2");
  }

  const DxfDrawing& Drawing;
  const DrawingOptions& Options;
  std::vector<std::string>& Remarks;
  PlaceFinder Places;
  double Metres;
  ModelRows Rows;
  std::map<int, std::size_t> OwnNodes;                           ///< place by the number that the node had
  std::vector<const DrawnPoint*> OwnPoints;                      ///< of the first places
  std::vector<std::pair<std::size_t, const DrawnPoint*>> Copies; ///< with the place of each
  std::vector<Piece> Pieces;
  std::vector<DrawnLayer> Layers;
  std::map<std::string, std::size_t> LayerPlaces; ///< in Layers, by the name in small letters
  std::set<std::string> Assumed;                  ///< layers whose E and A are not known
  std::size_t PointLike = 0;
  std::size_t Twice = 0;
  std::size_t StraySupports = 0;
  std::size_t OtherPoints = 0;
  std::size_t OtherBlocks = 0;
};

} // namespace

std::optional<double> MetresOfUnit(const std::string& unit) {
  const std::map<std::string, double> metres{{"mm", 0.001}, {"cm", 0.01}, {"m", 1}, {"in", 0.0254}, {"ft", 0.3048}};
  const auto found = metres.find(unit);
  if (found == metres.end()) return std::nullopt;
  return found->second;
}

DrawnTruss TrussOfDrawing(const DxfDrawing& drawing, const DrawingOptions& options, std::vector<std::string>& remarks) {
  return TrussMaker(drawing, options, remarks).Make();
}

} // namespace strutwright
