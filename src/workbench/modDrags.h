#pragma once

#include "CellEdits.h"
#include "MouseState.h"
#include "modPicking.h"

#include <memory>
#include <string>
#include <vector>

namespace strutwright {

/// Something that is dragged in the drawing.  Each step writes its texts into the grids; what comes of it, and taking
/// it back, is for whoever drags.
class Drag {
 public:
  virtual ~Drag() = default;

  /// The pointer is at a world point.  free: it snaps to nothing.
  virtual void MoveTo(WorldPoint point, bool free) = 0;

  /// Takes a key that was typed meanwhile; returns whether it means something.
  virtual bool Type(char32_t /*key*/) { return false; }

  /// Where it is, for the user.
  virtual std::string Text() const = 0;

  /// How far it has been dragged, in m; zeros for what is not moved as a whole.
  virtual WorldPoint Way() const { return {}; }

  /// Why it can't be dropped where it is, in one sentence without a full stop; empty where it can.
  virtual std::string Refusal() const { return ""; }

  /// What the step is called that can be undone.
  virtual std::string Name() const = 0;

  CellEdits Edits;
};

/// Drags nodes; the members follow.  The one held snaps to the nearest grid point.  Typed numbers, x or "x,y", put it
/// exactly there, whatever the mouse does then.
/// held: one of the nodes.  press: where it was taken.
std::unique_ptr<Drag> DragNodes(int held, const std::vector<int>& nodes, WorldPoint press);

/// An arrow of a load, by the end away from its node.
struct LoadEnd {
  int node = 0; ///< 0 where there is none
  bool alongY = false;
  double sideX = 0; ///< the way from the node to this end, of length 1
  double sideY = 0;
};

/// The end of a load's arrow nearest to a world point within so many metres, as the display draws it.
LoadEnd LoadEndAt(double x, double y, double reach);

/// Drags the end of a load's arrow: its value follows in steps of a round number and never changes its sign.
/// metresAPixel: of the display; a step is some pixels long.
std::unique_ptr<Drag> DragLoad(const LoadEnd& end, WorldPoint press, double metresAPixel);

/// Gives a node the load of a symbol: 10 kN in its direction, the other direction as it is; None: no load at all.
void EnterSymbolLoad(int n, LoadSymbol symbol);

/// Whether moving these nodes by (dx, dy), in m, keeps them off the others; if so writes them.
/// Returns the refusal as a Drag does, and changes nothing then.
std::string MoveNodesBy(const std::vector<int>& nodes, double dx, double dy, CellEdits& edits);

} // namespace strutwright
