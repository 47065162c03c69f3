#include "modDxfWriting.h"

#include "DxfDrawing.h"
#include "modAnalysis.h"
#include "modModelStore.h"
#include "modNumberText.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <map>
#include <utility>

namespace strutwright {

namespace {

constexpr float Millimetres = 1000;

/// A real number of DXF has a point or an exponent.
std::string RealText(float value) {
  const std::string text = ShortestText(value);
  return text.find_first_of(".eE") == std::string::npos ? text + ".0" : text;
}

/// Colours by their numbers in DXF.
enum DxfColour { Red = 1, Green = 3, Blue = 5, Black = 7, Grey = 8 };

/// Writes the groups of a DXF file.
class DxfWriter {
 public:
  void Text(int code, const std::string& value) { Written += std::to_string(code) + "\r\n" + value + "\r\n"; }
  void Whole(int code, int value) { Text(code, std::to_string(value)); }
  void Real(int code, float value) { Text(code, RealText(value)); }

  /// A place, its x under `code`, its y and its z under the codes that belong to it.
  void Place(int code, float x, float y) {
    Real(code, x);
    Real(code + 10, y);
    Real(code + 20, 0);
  }

  void Begin(const std::string& entity, const std::string& layer) {
    Text(0, entity);
    Text(8, layer);
  }

  void Notes(const std::vector<float>& values) {
    Text(1001, NoteName);
    for (const float value : values) Real(1040, value);
  }

  std::string Take() { return std::move(Written); }

 private:
  std::string Written;
};

/// Size of the numbers: a fortieth of the truss's larger side.
float TextHeight() {
  if (NodeCount == 0) return 1;
  const auto all = NodeTable.InOrder();
  const auto count = static_cast<std::size_t>(NodeCount);
  const auto side = [&](std::size_t field) {
    const auto values = all.subspan(field * (count + 1) + 1, count);
    const auto [least, most] = std::minmax_element(values.begin(), values.end());
    return static_cast<double>(*most) - static_cast<double>(*least);
  };
  const double larger = std::max(side(NodeX), side(NodeY));
  return larger > 0 ? static_cast<float>(larger / 40) : 0.1F;
}

std::string LayerOfSupport(float code) { return SupportLayerPrefix + ShortestText(code); }

bool IsNode(float number) {
  const int node = RoundNodeNumber(number);
  return node >= 1 && node <= NodeCount;
}

bool IsDrawn(int member) {
  return IsNode(MemberTable(member, MemberNodeI)) && IsNode(MemberTable(member, MemberNodeJ));
}

std::map<std::string, DxfColour> LayersOf(bool deflected) {
  std::map<std::string, DxfColour> layers{
      {MembersLayer, Black}, {NodesLayer, Blue}, {NodeNumbersLayer, Blue}, {MemberNumbersLayer, Grey}};
  if (deflected) layers[DeflectedLayer] = Red;
  for (int n = 1; n <= NodeCount; ++n) {
    if (NodeTable(n, NodeSupport) != 0) layers[LayerOfSupport(NodeTable(n, NodeSupport))] = Green;
  }
  return layers;
}

void BeginTable(DxfWriter& dxf, const std::string& name, int count) {
  dxf.Text(0, "TABLE");
  dxf.Text(2, name);
  dxf.Whole(70, count);
}

void WriteTables(DxfWriter& dxf, const std::map<std::string, DxfColour>& layers) {
  dxf.Text(0, "SECTION");
  dxf.Text(2, "TABLES");
  BeginTable(dxf, "LTYPE", 1);
  dxf.Text(0, "LTYPE");
  dxf.Text(2, "CONTINUOUS");
  dxf.Whole(70, 0);
  dxf.Text(3, "Solid line");
  dxf.Whole(72, 65);
  dxf.Whole(73, 0);
  dxf.Real(40, 0);
  dxf.Text(0, "ENDTAB");
  BeginTable(dxf, "LAYER", static_cast<int>(layers.size()));
  for (const auto& [name, colour] : layers) {
    dxf.Text(0, "LAYER");
    dxf.Text(2, name);
    dxf.Whole(70, 0);
    dxf.Whole(62, colour);
    dxf.Text(6, "CONTINUOUS");
  }
  dxf.Text(0, "ENDTAB");
  BeginTable(dxf, "APPID", 1);
  dxf.Text(0, "APPID");
  dxf.Text(2, NoteName);
  dxf.Whole(70, 0);
  dxf.Text(0, "ENDTAB");
  dxf.Text(0, "ENDSEC");
}

void WriteHeader(DxfWriter& dxf) {
  constexpr int metres = 6;
  dxf.Text(0, "SECTION");
  dxf.Text(2, "HEADER");
  dxf.Text(9, "$ACADVER");
  dxf.Text(1, "AC1009");
  dxf.Text(9, "$INSUNITS");
  dxf.Whole(70, metres);
  dxf.Text(0, "ENDSEC");
}

void WriteNumber(DxfWriter& dxf, const std::string& layer, double x, double y, int number, float height) {
  dxf.Begin("TEXT", layer);
  dxf.Place(10, static_cast<float>(x), static_cast<float>(y));
  dxf.Real(40, height);
  dxf.Whole(1, number);
}

void WriteNode(DxfWriter& dxf, int n, float height) {
  const float support = NodeTable(n, NodeSupport);
  const float x = NodeTable(n, NodeX);
  const float y = NodeTable(n, NodeY);
  dxf.Begin("POINT", support == 0 ? NodesLayer : LayerOfSupport(support));
  dxf.Place(10, x, y);
  dxf.Notes({static_cast<float>(n), NodeTable(n, NodeForceX), NodeTable(n, NodeForceY)});
  const double aside = 0.4 * static_cast<double>(height);
  WriteNumber(dxf, NodeNumbersLayer, static_cast<double>(x) + aside, static_cast<double>(y) + aside, n, height);
}

/// Where a node is drawn: its place, moved by so many times its displacement.
std::pair<float, float> PlaceOf(float number, float deflected) {
  const int n = RoundNodeNumber(number);
  if (deflected == 0) return {NodeTable(n, NodeX), NodeTable(n, NodeY)};
  const auto moved = [&](int field, const char* direction) {
    const double way = static_cast<double>(NodeDisplacement(n, direction)) * static_cast<double>(deflected);
    return static_cast<float>(static_cast<double>(NodeTable(n, field)) + way / static_cast<double>(Millimetres));
  };
  return {moved(NodeX, "x"), moved(NodeY, "y")};
}

void WriteLine(DxfWriter& dxf, const std::string& layer, int m, float deflected) {
  const auto [x1, y1] = PlaceOf(MemberTable(m, MemberNodeI), deflected);
  const auto [x2, y2] = PlaceOf(MemberTable(m, MemberNodeJ), deflected);
  dxf.Begin("LINE", layer);
  dxf.Place(10, x1, y1);
  dxf.Place(11, x2, y2);
}

void WriteMember(DxfWriter& dxf, int m, float height) {
  WriteLine(dxf, MembersLayer, m, 0);
  std::vector<float> notes;
  for (const int field : {MemberNodeI, MemberNodeJ, MemberE, MemberA, MemberPS}) notes.push_back(MemberTable(m, field));
  dxf.Notes(notes);
  const auto [x1, y1] = PlaceOf(MemberTable(m, MemberNodeI), 0);
  const auto [x2, y2] = PlaceOf(MemberTable(m, MemberNodeJ), 0);
  const auto middle = [](float a, float b) { return (static_cast<double>(a) + static_cast<double>(b)) / 2; };
  WriteNumber(dxf, MemberNumbersLayer, middle(x1, x2), middle(y1, y2), m, height);
}

void RemarkOnUndrawn(const std::vector<int>& undrawn, std::vector<std::string>& remarks) {
  if (undrawn.empty()) return;
  const std::string first = std::to_string(undrawn.front());
  remarks.push_back(undrawn.size() == 1
                        ? "Member " + first + " is not in the drawing, because it names a node that is not there"
                        : std::to_string(undrawn.size()) + " members, the first of them " + first +
                              ", are not in the drawing, because they name nodes that are not there");
}

} // namespace

std::string ModelToDxf(float deflected, std::vector<std::string>& remarks) {
  DxfWriter dxf;
  const float height = TextHeight();
  std::vector<int> undrawn;
  WriteHeader(dxf);
  WriteTables(dxf, LayersOf(deflected != 0));
  dxf.Text(0, "SECTION");
  dxf.Text(2, "ENTITIES");
  for (int n = 1; n <= NodeCount; ++n) WriteNode(dxf, n, height);
  for (int m = 1; m <= MemberCount; ++m) {
    if (!IsDrawn(m)) {
      undrawn.push_back(m);
      continue;
    }
    WriteMember(dxf, m, height);
    if (deflected == 0) continue;
    WriteLine(dxf, DeflectedLayer, m, deflected);
    dxf.Notes({static_cast<float>(m)}); // by which it is known as ours
  }
  dxf.Text(0, "ENDSEC");
  dxf.Text(0, "EOF");
  RemarkOnUndrawn(undrawn, remarks);
  return dxf.Take();
}

} // namespace strutwright
