#pragma once

#include "DxfDrawing.h"
#include "ModelRows.h"
#include "modTables.h"

#include <optional>
#include <string>
#include <vector>

namespace strutwright {

/// How a drawing is read.
struct DrawingOptions {
  std::optional<double> metres{};    ///< that the drawing's unit has; without it what the drawing says, or 1
  double tolerance = 0.001;          ///< ends so near are one node, m
  bool split = false;                ///< whether lines are parted where they cross or meet
  LayerTable layers{};               ///< E and A by layer
  LayerRigidity rigidity{200, 1000}; ///< of members on a layer that the table has not
};

/// A layer whose lines are members.
struct DrawnLayer {
  std::string name;
  int members = 0;
  std::optional<LayerRigidity> rigidity{}; ///< of its members; nothing where they differ
};

/// What a drawing comes to.
struct DrawnTruss {
  ModelRows rows;
  std::vector<DrawnLayer> layers; ///< in the order in which their first members come
};

/// The metres of a unit: "mm", "cm", "m", "in", "ft".  Nothing for another text.
std::optional<double> MetresOfUnit(const std::string& unit);

/// Makes a truss of a drawing: lines are members, ends that meet are nodes, numbered as they come; a point or a block
/// on a layer "support_3", or the like, is a support with that code at its node.  What this program wrote is as it was.
/// remarks: takes a sentence for whatever was left out or assumed.
/// Throws ImportError where there is no line, or more than a model can have.
DrawnTruss TrussOfDrawing(const DxfDrawing& drawing, const DrawingOptions& options, std::vector<std::string>& remarks);

} // namespace strutwright
