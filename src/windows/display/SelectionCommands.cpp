// What the Drawing menu does with what is selected.

#include "CommandFrame.h"
#include "DisplayState.h"
#include "Platform.h"
#include "frmGraph.h"
#include "frmValues.h"
#include "modCopies.h"
#include "modModelStore.h"
#include "modNumberText.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace strutwright {

namespace {

constexpr float MaxCopies = 1000;

CopiedParts PartsOf(const Selection& selection) {
  return {{selection.nodes.begin(), selection.nodes.end()}, {selection.members.begin(), selection.members.end()}};
}

/// The left, right, lower and upper side of what is selected, m.
ModelExtents ExtentsOf(const Selection& selection) {
  ModelExtents extents{HUGE_VALF, -HUGE_VALF, HUGE_VALF, -HUGE_VALF};
  for (const int n : NodesOf(selection)) {
    extents.minX = std::min(extents.minX, NodeTable(n, NodeX));
    extents.maxX = std::max(extents.maxX, NodeTable(n, NodeX));
    extents.minY = std::min(extents.minY, NodeTable(n, NodeY));
    extents.maxY = std::max(extents.maxY, NodeTable(n, NodeY));
  }
  return extents;
}

double NumberOfText(const std::string& text) { return NumericValue(text).value_or(0.0F); }

} // namespace

bool frmGraph::HasSelection() {
  DropMissing(TheDisplay.Selected);
  if (!NodesOf(TheDisplay.Selected).empty()) return true;
  ShowHint("Nothing is selected: choose Drawing > Select and Move and select nodes or members first");
  return false;
}

void frmGraph::CopySelection(double dx, double dy, int count) {
  Frame.Edit(count == 1 ? "Copy" : "Repeat", [&] {
    const std::vector<int> copies = RepeatParts(PartsOf(TheDisplay.Selected), dx, dy, count);
    TheDisplay.Selected = {{copies.begin(), copies.end()}, {}};
  });
  Frame.RedrawWhatCanBeDrawn(false);
}

/// The step that is proposed puts the first copy right beside what is copied.
void frmGraph::AskForCopies() {
  if (!HasSelection()) return;
  const ModelExtents extents = ExtentsOf(TheDisplay.Selected);
  frmValues values(&Frame, "Copy and Repeat",
                   {{"countTxt", "&Number of copies", "1"},
                    {"stepXTxt", "Step in &x (m)", NumberText(extents.maxX - extents.minX)},
                    {"stepYTxt", "Step in &y (m)", "0"}});
  if (values.exec() != QDialog::Accepted) return;
  const std::vector<std::string> texts = values.Texts();
  const auto count = static_cast<int>(std::clamp(NumericValue(texts[0]).value_or(0.0F), 0.0F, MaxCopies));
  const double dx = NumberOfText(texts[1]);
  const double dy = NumberOfText(texts[2]);
  if (count == 0 || (dx == 0 && dy == 0)) {
    return ShowHint("Nothing was copied: a copy needs a number of at least 1 and a step");
  }
  CopySelection(dx, dy, count);
}

/// level: about a level line, otherwise about an upright one.
void frmGraph::AskForMirror(bool level) {
  if (!HasSelection()) return;
  const ModelExtents extents = ExtentsOf(TheDisplay.Selected);
  frmValues values(&Frame, "Mirror",
                   {{"mirrorTxt", level ? "About the line &y = (m)" : "About the line &x = (m)",
                     NumberText(level ? extents.maxY : extents.maxX)}});
  if (values.exec() != QDialog::Accepted) return;
  const double at = NumberOfText(values.Texts().front());
  Frame.Edit("Mirror", [&] {
    const std::vector<int> images = MirrorParts(PartsOf(TheDisplay.Selected), at, level);
    TheDisplay.Selected = {{images.begin(), images.end()}, {}};
  });
  Frame.RedrawWhatCanBeDrawn(false);
}

} // namespace strutwright
