#include "DxfDrawing.h"

#include "DxfPairs.h"
#include "ImportError.h"
#include "modTables.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace strutwright {

namespace {

constexpr std::size_t MostGroups = 250000; ///< of one entity: more than the corners of the largest model take
constexpr std::size_t MostLines = 100000;
constexpr int NoteOwner = 1001;
constexpr const char* LineOfShape = "LINE on the layer deflected";

/// One entity as it is collected.
struct Entity {
  std::string kind;
  DxfGroups groups;
};

/// The numbers that stand under NoteName, in their order; none where there is no such note.
std::vector<double> NotesOf(const DxfGroups& groups) {
  std::vector<double> notes;
  bool ours = false;
  for (const DxfPair& pair : groups) {
    if (pair.code == NoteOwner) ours = pair.value == NoteName;
    if (ours && pair.code > NoteOwner) notes.push_back(DxfNumber(pair));
  }
  return notes;
}

float AsFloat(double value) { return static_cast<float>(value); }

/// Whether the notes can be those of a node or a member: finite as floats.
bool AreFloats(const std::vector<double>& notes) {
  return std::all_of(notes.begin(), notes.end(), [](double value) { return std::isfinite(AsFloat(value)); });
}

std::optional<MemberNote> MemberNoteOf(const DxfGroups& groups) {
  const std::vector<double> notes = NotesOf(groups);
  if (notes.size() != 5 || !AreFloats(notes)) return std::nullopt;
  return MemberNote{AsFloat(notes[0]), AsFloat(notes[1]), AsFloat(notes[2]), AsFloat(notes[3]), AsFloat(notes[4])};
}

std::optional<NodeNote> NodeNoteOf(const DxfGroups& groups) {
  const std::vector<double> notes = NotesOf(groups);
  if (notes.size() != 3 || !AreFloats(notes) || !(notes[0] >= 1 && notes[0] <= 32767)) return std::nullopt;
  return NodeNote{static_cast<int>(notes[0]), AsFloat(notes[1]), AsFloat(notes[2])};
}

/// Turns entities into what the drawing holds.
class DrawingBuilder {
 public:
  DxfDrawing drawing;

  void SetUnit(int unit) { drawing.unit = unit; }

  void Add(const Entity& entity) {
    const DxfPair* layerName = FindGroup(entity.groups, 8);
    Layer = layerName == nullptr ? "0" : std::string(layerName->value);
    const DxfPair* paper = FindGroup(entity.groups, 67);
    if (paper != nullptr && DxfWhole(*paper) == 1) return LeaveOut(entity.kind + " on paper");
    if (entity.kind == "LINE") return AddLine(entity.groups);
    if (entity.kind == "LWPOLYLINE") return AddPolyline(entity.groups);
    if (entity.kind == "POINT" || entity.kind == "INSERT") return AddPoint(entity);
    if (IsNumberOfOurs()) return;
    LeaveOut(entity.kind);
  }

  /// The corners of an old polyline come one by one.
  void BeginCorners(const Entity& polyline) {
    Layer = FindGroup(polyline.groups, 8) == nullptr ? "0" : std::string(FindGroup(polyline.groups, 8)->value);
    const DxfPair* flags = FindGroup(polyline.groups, 70);
    const DxfPair* paper = FindGroup(polyline.groups, 67);
    Flags = flags == nullptr ? 0 : DxfWhole(*flags);
    Side = SideOf(polyline.groups);
    OnPaper = paper != nullptr && DxfWhole(*paper) == 1;
    Corners.clear();
  }

  void AddCorner(const DxfGroups& groups) {
    if (Corners.size() > MostLines) throw ImportError(groups.empty() ? 0 : groups.front().line, TooManyLines());
    Corners.push_back({{Side * NumberOf(groups, 10), NumberOf(groups, 20)}, NumberOf(groups, 42)});
    if (NumberOf(groups, 30) != 0) ++drawing.linesOutOfPlane;
  }

  void EndCorners() {
    constexpr int surface = 16 | 64;
    if (OnPaper) return LeaveOut("POLYLINE on paper");
    if ((Flags & surface) != 0) return LeaveOut("POLYLINE that is a mesh");
    JoinCorners();
  }

 private:
  struct Corner {
    DrawnPlace at;
    double bulge = 0;
  };

  static std::string TooManyLines() {
    return "the drawing has more than 100000 lines; a model has at most 32767 members";
  }

  bool IsOnDeflectedLayer() const { return InSmallLetters(Layer) == DeflectedLayer; }

  /// The texts beside our own nodes and members say nothing new.
  bool IsNumberOfOurs() const { return Layer == NodeNumbersLayer || Layer == MemberNumbersLayer; }

  void LeaveOut(const std::string& kind) {
    constexpr std::size_t mostKinds = 100;
    const bool isKnown = drawing.leftOut.contains(kind) || drawing.leftOut.size() < mostKinds;
    ++drawing.leftOut[isKnown ? kind : "others"];
  }

  std::size_t LayerIndex() {
    const auto [found, isNew] = LayerIndices.try_emplace(Layer, drawing.layers.size());
    if (isNew) drawing.layers.push_back(Layer);
    return found->second;
  }

  void AddSide(DrawnPlace from, DrawnPlace to, std::optional<MemberNote> note = std::nullopt) {
    if (drawing.lines.size() == MostLines) throw ImportError(0, TooManyLines());
    drawing.lines.push_back({from, to, LayerIndex(), note});
  }

  void AddLine(const DxfGroups& groups) {
    if (IsOnDeflectedLayer()) {
      if (NotesOf(groups).empty()) LeaveOut(LineOfShape);
      return;
    }
    if (NumberOf(groups, 30) != NumberOf(groups, 31)) ++drawing.linesOutOfPlane;
    AddSide({NumberOf(groups, 10), NumberOf(groups, 20)}, {NumberOf(groups, 11), NumberOf(groups, 21)},
            MemberNoteOf(groups));
  }

  /// What is drawn in a plane that is seen from behind has its x the other way round.
  static double SideOf(const DxfGroups& groups) { return NumberOf(groups, 230, 1) < 0 ? -1 : 1; }

  void AddPolyline(const DxfGroups& groups) {
    const double side = SideOf(groups);
    Corners.clear();
    for (const DxfPair& pair : groups) {
      if (pair.code == 10) Corners.push_back({{side * DxfNumber(pair), 0}});
      if (Corners.empty()) continue;
      if (pair.code == 20) Corners.back().at.y = DxfNumber(pair);
      if (pair.code == 42) Corners.back().bulge = DxfNumber(pair);
    }
    const DxfPair* flags = FindGroup(groups, 70);
    Flags = flags == nullptr ? 0 : DxfWhole(*flags);
    JoinCorners();
  }

  void JoinCorners() {
    if (IsOnDeflectedLayer()) return LeaveOut(LineOfShape);
    const bool closed = (Flags & 1) != 0 && Corners.size() > 2;
    const std::size_t sides = closed ? Corners.size() : std::max<std::size_t>(Corners.size(), 1) - 1;
    for (std::size_t k = 0; k < sides; ++k) {
      if (Corners[k].bulge != 0) {
        LeaveOut("ARC in a polyline");
      } else {
        AddSide(Corners[k].at, Corners[(k + 1) % Corners.size()].at);
      }
    }
  }

  void AddPoint(const Entity& entity) {
    if (drawing.points.size() == MostLines) throw ImportError(0, "the drawing has more than 100000 points and blocks");
    // A block lies in a plane of its own, a point in space.
    const double side = entity.kind == "INSERT" ? SideOf(entity.groups) : 1;
    drawing.points.push_back({{side * NumberOf(entity.groups, 10), NumberOf(entity.groups, 20)},
                              LayerIndex(),
                              NodeNoteOf(entity.groups),
                              entity.kind == "INSERT"});
  }

  std::map<std::string, std::size_t> LayerIndices;
  std::string Layer;
  int Flags = 0;
  double Side = 1; ///< of the polyline whose corners come
  bool OnPaper = false;
  std::vector<Corner> Corners;
};

/// The codes that mean something here; an entity may have any number of others.
bool IsWanted(int code) {
  constexpr std::array<int, 14> wanted{8, 10, 20, 30, 11, 21, 31, 42, 67, 70, 230, NoteOwner, 1040, 1071};
  return std::find(wanted.begin(), wanted.end(), code) != wanted.end();
}

/// Goes through the file, section by section.
class DxfReader {
 public:
  explicit DxfReader(const std::string& text) : Pairs(text) {}

  DxfDrawing Read() {
    bool ended = false;
    while (const auto pair = Pairs.Next()) {
      ended = pair->code == 0 && pair->value == "EOF";
      if (ended) break;
      Take(*pair);
    }
    EndEntity();
    if (!ended) throw ImportError(Pairs.Line(), "the drawing ends in the middle");
    return std::move(Builder.drawing);
  }

 private:
  void Take(const DxfPair& pair) {
    if (pair.code == 0) return BeginEntity(std::string(pair.value));
    if (SectionBegins && pair.code == 2) {
      Section = pair.value;
      SectionBegins = false;
    } else if (Section == "HEADER") {
      TakeOfHeader(pair);
    } else if (Section == "ENTITIES" && IsWanted(pair.code)) {
      if (Current.groups.size() == MostGroups) throw ImportError(pair.line, "one entity is larger than any model");
      Current.groups.push_back(pair);
    }
  }

  void TakeOfHeader(const DxfPair& pair) {
    if (pair.code == 9) Variable = pair.value;
    if (Variable == "$INSUNITS" && pair.code == 70) Builder.SetUnit(DxfWhole(pair));
  }

  void BeginEntity(std::string kind) {
    EndEntity();
    SectionBegins = kind == "SECTION";
    if (kind == "ENDSEC") Section.clear();
    Current.kind = Section == "ENTITIES" ? std::move(kind) : "";
  }

  void EndEntity() {
    if (Current.kind == "POLYLINE") {
      Builder.BeginCorners(Current);
      InPolyline = true;
    } else if (Current.kind == "VERTEX" && InPolyline) {
      Builder.AddCorner(Current.groups);
    } else if (Current.kind == "SEQEND") {
      if (InPolyline) Builder.EndCorners();
      InPolyline = false;
    } else if (!Current.kind.empty() && Current.kind != "ATTRIB") {
      Builder.Add(Current);
    }
    Current.groups.clear();
    Current.kind.clear();
  }

  DxfPairs Pairs;
  DrawingBuilder Builder;
  Entity Current;
  std::string Section;
  std::string Variable;
  bool SectionBegins = false;
  bool InPolyline = false;
};

} // namespace

DxfDrawing ReadDxf(const std::string& text) {
  if (text.starts_with(BinaryDxf)) {
    throw ImportError(0, "this is a binary DXF file; save the drawing as DXF in text (ASCII)");
  }
  if (!BeginsAsDxf(text)) throw ImportError(1, "a DXF file begins with a section");
  return DxfReader(text).Read();
}

} // namespace strutwright
