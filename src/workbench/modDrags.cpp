#include "modDrags.h"

#include "DisplayState.h"
#include "modModelStore.h"
#include "modNumberText.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <optional>
#include <utility>

namespace strutwright {

namespace {

constexpr double PixelsAStep = 5;
constexpr double LargestCoordinate = std::numeric_limits<float>::max();
constexpr double TooNear = 0.1; // of the pick radius: of two nodes that close one could not be picked

struct NodePlace {
  int node = 0;
  double x = 0;
  double y = 0;
};

std::vector<NodePlace> PlacesOf(const std::vector<int>& nodes) {
  std::vector<NodePlace> places;
  for (const int n : nodes) {
    if (n >= 1 && n <= NodeCount) places.push_back({n, NodeTable(n, NodeX), NodeTable(n, NodeY)});
  }
  return places;
}

/// What stands in the way of nodes that are moved: (moved node, other node); zeros where nothing does.
std::pair<int, int> Collision(const std::vector<NodePlace>& moved) {
  std::vector<bool> moves(static_cast<std::size_t>(NodeCount) + 1, false);
  for (const NodePlace& each : moved) moves[static_cast<std::size_t>(each.node)] = true;
  std::vector<NodePlace> all = moved;
  std::sort(all.begin(), all.end(), [](const NodePlace& a, const NodePlace& b) { return a.x < b.x; });
  const double reach = TooNear * static_cast<double>(PickRadius);
  for (int n = 1; n <= NodeCount; ++n) {
    if (moves[static_cast<std::size_t>(n)]) continue;
    const double x = NodeTable(n, NodeX);
    const double y = NodeTable(n, NodeY);
    auto near = std::lower_bound(all.begin(), all.end(), x - reach,
                                 [](const NodePlace& place, double least) { return place.x < least; });
    for (; near != all.end() && near->x <= x + reach; ++near) {
      if (std::hypot(near->x - x, near->y - y) <= reach) return {near->node, n};
    }
  }
  return {0, 0};
}

std::string RefusalOf(const std::vector<NodePlace>& moved) {
  const auto [node, other] = Collision(moved);
  if (node == 0) return "";
  return "Node " + std::to_string(node) + " would lie on node " + std::to_string(other) + ": drop it elsewhere";
}

void Write(const std::vector<NodePlace>& places, CellEdits& edits) {
  for (const NodePlace& each : places) {
    edits.Put(GrJoints, each.node, NodeX, NumberText(static_cast<float>(each.x)));
    edits.Put(GrJoints, each.node, NodeY, NumberText(static_cast<float>(each.y)));
  }
}

bool IsFinite(const std::vector<NodePlace>& places) {
  return std::all_of(places.begin(), places.end(), [](const NodePlace& each) {
    return std::abs(each.x) <= LargestCoordinate && std::abs(each.y) <= LargestCoordinate;
  });
}

std::vector<NodePlace> MovedBy(std::vector<NodePlace> places, double dx, double dy) {
  for (NodePlace& each : places) {
    each.x += dx;
    each.y += dy;
  }
  return places;
}

class NodeDrag : public Drag {
 public:
  NodeDrag(int held, const std::vector<int>& nodes, WorldPoint press) : Held(held), Start(PlacesOf(nodes)), Now(Start) {
    HeldX = NodeTable(held, NodeX);
    HeldY = NodeTable(held, NodeY);
    GripX = HeldX - press.x;
    GripY = HeldY - press.y;
  }

  void MoveTo(WorldPoint point, bool free) override {
    const WorldPoint wish{static_cast<float>(point.x + GripX), static_cast<float>(point.y + GripY)};
    Wish = free ? wish : NearestGridPoint(wish.x, wish.y);
    Place();
  }

  /// A comma or a semicolon parts x and y; the number before it may be missing.
  bool Type(char32_t key) override {
    constexpr char32_t backspace = 8;
    if (key == backspace) {
      if (!Typed.empty()) Typed.pop_back();
    } else if ((key >= U'0' && key <= U'9') || key == U'.' || key == U'-' || key == U',' || key == U';') {
      Typed += key == U';' ? ',' : static_cast<char>(key);
    } else {
      return false;
    }
    Place();
    return true;
  }

  std::string Text() const override {
    const NodePlace& held = HeldPlace();
    const std::string place = "Node " + std::to_string(Held) + ": x = " + NumberText(static_cast<float>(held.x)) +
                              " m, y = " + NumberText(static_cast<float>(held.y)) + " m";
    return Typed.empty() ? place : place + "   [" + Typed + "]";
  }

  WorldPoint Way() const override {
    const NodePlace& held = HeldPlace();
    return {static_cast<float>(held.x - HeldX), static_cast<float>(held.y - HeldY)};
  }

  std::string Refusal() const override { return RefusalOf(Now); }

  std::string Name() const override { return Start.size() == 1 ? "Move Node" : "Move Nodes"; }

 private:
  const NodePlace& HeldPlace() const {
    return *std::find_if(Now.begin(), Now.end(), [this](const NodePlace& each) { return each.node == Held; });
  }

  static std::optional<float> PartOf(const std::string& typed, std::size_t part) {
    const std::size_t comma = typed.find(',');
    if (part == 0) return NumericValue(typed.substr(0, comma));
    return comma == std::string::npos ? std::nullopt : NumericValue(typed.substr(comma + 1));
  }

  void Place() {
    const double x = PartOf(Typed, 0).value_or(Wish ? Wish->x : static_cast<float>(HeldX));
    const double y = PartOf(Typed, 1).value_or(Wish ? Wish->y : static_cast<float>(HeldY));
    const std::vector<NodePlace> moved = MovedBy(Start, x - HeldX, y - HeldY);
    if (!IsFinite(moved)) return;
    Now = moved;
    Write(Now, Edits);
  }

  int Held;
  std::vector<NodePlace> Start;
  std::vector<NodePlace> Now;
  double HeldX;
  double HeldY;
  double GripX; ///< from the pointer to the node
  double GripY;
  std::optional<WorldPoint> Wish; ///< where the mouse wants the node
  std::string Typed;
};

class LoadDrag : public Drag {
 public:
  LoadDrag(const LoadEnd& end, WorldPoint press, double metresAPixel) : End(end), Press(press) {
    Start = NodeTable(end.node, Field());
    Now = Start;
    Step = RoundStep(PixelsAStep * metresAPixel * static_cast<double>(LoadsScale));
  }

  void MoveTo(WorldPoint point, bool free) override {
    const double along = (point.x - Press.x) * End.sideX + (point.y - Press.y) * End.sideY;
    double size = std::abs(Start) + along * static_cast<double>(LoadsScale);
    if (!free) size = Step * std::nearbyint(size / Step);
    const double value = std::copysign(std::max(size, 0.0), Start);
    if (!(std::abs(value) <= LargestCoordinate)) return;
    Now = value;
    Edits.Put(GrJoints, End.node, Field(), NumberText(static_cast<float>(value)));
  }

  std::string Text() const override {
    return "Load at node " + std::to_string(End.node) + (End.alongY ? " in y: " : " in x: ") +
           NumberText(static_cast<float>(Now)) + " kN";
  }

  std::string Name() const override { return "Drag Load"; }

 private:
  NodeField Field() const { return End.alongY ? NodeForceY : NodeForceX; }

  LoadEnd End;
  WorldPoint Press;
  double Start; ///< kN
  double Now;
  double Step; ///< kN
};

struct DrawnEnd {
  LoadEnd end;
  double x = 0; ///< m
  double y = 0;
};

LoadEnd EndOnSide(int n, bool alongY, double x, double y) {
  const double dx = x - NodeTable(n, NodeX);
  const double dy = y - NodeTable(n, NodeY);
  // An arrow of the clear drawing may stand a little beside its node.
  return {n, alongY, alongY ? 0 : std::copysign(1, dx), alongY ? std::copysign(1, dy) : 0};
}

/// Arrows lie to the right of their node or above it, whatever their sign.
std::vector<DrawnEnd> DescribedEnds() {
  std::vector<DrawnEnd> ends;
  for (int n = 1; n <= NodeCount; ++n) {
    const double x = NodeTable(n, NodeX);
    const double y = NodeTable(n, NodeY);
    const double lengthX = std::abs(static_cast<double>(NodeTable(n, NodeForceX))) / LoadsScale;
    const double lengthY = std::abs(static_cast<double>(NodeTable(n, NodeForceY))) / LoadsScale;
    if (lengthX > 0) ends.push_back({{n, false, 1, 0}, x + lengthX, y});
    if (lengthY > 0) ends.push_back({{n, true, 0, 1}, x, y + lengthY});
  }
  return ends;
}

std::vector<DrawnEnd> ClearEnds() {
  std::vector<DrawnEnd> ends;
  const double metre = DisplaySurface->PixelWidth() / DisplaySurface->Window().width;
  for (const ClearArrow& arrow : TheDisplay.Memory.Last().arrows) {
    if (arrow.reaction || arrow.node < 1 || arrow.node > NodeCount) continue;
    const double x = arrow.outer.x / metre;
    const double y = -arrow.outer.y / metre;
    const bool alongY = std::abs(arrow.tip.y - arrow.tail.y) > std::abs(arrow.tip.x - arrow.tail.x);
    ends.push_back({EndOnSide(arrow.node, alongY, x, y), x, y});
  }
  return ends;
}

} // namespace

std::unique_ptr<Drag> DragNodes(int held, const std::vector<int>& nodes, WorldPoint press) {
  return std::make_unique<NodeDrag>(held, nodes, press);
}

LoadEnd LoadEndAt(double x, double y, double reach) {
  if (DisplaySurface == nullptr || !TheDisplay.Layers.loads) return {};
  LoadEnd nearest;
  for (const DrawnEnd& each : TheDisplay.Style == DrawingStyle::Clear ? ClearEnds() : DescribedEnds()) {
    const double distance = std::hypot(each.x - x, each.y - y);
    if (!(distance < reach)) continue;
    reach = distance;
    nearest = each.end;
  }
  return nearest;
}

std::unique_ptr<Drag> DragLoad(const LoadEnd& end, WorldPoint press, double metresAPixel) {
  return std::make_unique<LoadDrag>(end, press, metresAPixel);
}

void EnterSymbolLoad(int n, LoadSymbol symbol) {
  switch (symbol) {
  case LoadSymbol::Down: return EnterLoadAlong(n, true, "-10");
  case LoadSymbol::Up: return EnterLoadAlong(n, true, "10");
  case LoadSymbol::Left: return EnterLoadAlong(n, false, "-10");
  case LoadSymbol::Right: return EnterLoadAlong(n, false, "10");
  case LoadSymbol::None: return EnterLoad(n, "0", "0");
  }
}

std::string MoveNodesBy(const std::vector<int>& nodes, double dx, double dy, CellEdits& edits) {
  const std::vector<NodePlace> moved = MovedBy(PlacesOf(nodes), dx, dy);
  if (!IsFinite(moved)) return "The nodes would lie too far away: move them less";
  std::string refusal = RefusalOf(moved);
  if (refusal.empty()) Write(moved, edits);
  return refusal;
}

} // namespace strutwright
