#pragma once

#include "DrawingSurface.h"
#include "modPointing.h"

#include <set>
#include <vector>

namespace strutwright {

/// What is selected in the drawing, by numbers.
struct Selection {
  std::set<int> nodes;
  std::set<int> members;

  bool IsEmpty() const { return nodes.empty() && members.empty(); }
  void Clear();
  bool operator==(const Selection&) const = default;
};

/// Takes numbers out that the model does not have.
void DropMissing(Selection& selection);

/// Selects an element.  add: what was selected stays, and the element changes whether it is selected; otherwise it
/// becomes the whole selection, and nothing does where there is none.
void Select(Selection& selection, Element element, bool add);

/// Selects the nodes inside a rectangle of the world and the members with both ends inside, in addition or instead.
void SelectInside(Selection& selection, double x1, double y1, double x2, double y2, bool add);

void SelectEverything(Selection& selection);

/// Selects the node after or before the one that is selected, the first or last where there is none or no next one.
/// add: in addition to what is selected.  step: 1 or -1.
void SelectNextNode(Selection& selection, int step, bool add);

/// The selected nodes and the ends of the selected members, ascending: what moves when the selection moves.
std::vector<int> NodesOf(const Selection& selection);

/// Draws what is selected over the truss.
void DrawSelection(DrawingSurface& surface, const Selection& selection);

} // namespace strutwright
