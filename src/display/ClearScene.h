#pragma once

#include "ClearSymbols.h"
#include "ClearTruss.h"
#include "OccupiedPlane.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace strutwright {

/// The kinds of labels, in the order in which they get their places.
enum class LabelKind : std::uint8_t { Arrow, Force, NodeNumber, MemberNumber };

inline constexpr std::size_t LabelKinds = 4;

/// A text that belongs to something in the drawing.
struct ClearLabel {
  LabelKind kind = LabelKind::Arrow;
  int owner = 0; ///< index of the arrow or bar, number of the node
  std::string text;
  Colour colour;
  double halfWidth = 0;
  double halfHeight = 0;
  int place = -1; ///< which of its places it has; none where it is negative
  TurnedBox box;  ///< there, in the plane of the truss

  bool IsPlaced() const { return place >= 0; }
};

/// How the labels of a scene are written.
struct TextLook {
  int size = ClearSize::LargestText;
  bool compact = false; ///< forces with three digits

  bool operator==(const TextLook&) const = default;
};

/// All that has a place in the plane of the truss, whatever part of it is in view.
struct ClearScene {
  ClearTruss truss;
  std::vector<ClearSupport> supports;
  std::vector<ClearArrow> arrows;
  std::vector<ClearLabel> labels;
  TextLook text;
  bool dots = true; ///< nodes are drawn: there is room for them
  OccupiedPlane plane{{}, 0};
};

/// What a scene is made of, besides the model and its results.
struct SceneRequest {
  ClearSettings settings;
  double scaleX = 1; ///< pixels a metre
  double scaleY = 1;
  double longestArrow = ClearSize::MinArrow;

  bool operator==(const SceneRequest&) const = default;
};

/// Makes the scene of the model in the tables and gives every label its place: loads and reactions, then forces from
/// the largest to the smallest, node numbers, member numbers.  A label tries its first place, then the others in their
/// order; what finds none is left out.  Where smaller or shorter texts make room for more forces, all are written so.
/// surface: for the widths of texts.  before: another scene of the same model, whose places are tried first so that
/// labels stay where they are; nullptr where there is none.
ClearScene MakeScene(const SceneRequest& request, const PixelSurface& surface, const ClearScene* before);

} // namespace strutwright
