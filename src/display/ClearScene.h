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

/// A text that takes less room than another one.
struct ShortText {
  std::string text;
  double halfWidth = 0;
};

/// A text that belongs to something in the drawing.
struct ClearLabel {
  LabelKind kind = LabelKind::Arrow;
  int owner = 0; ///< index of the arrow or bar, number of the node
  std::string text;
  Colour colour;
  double halfWidth = 0;
  double halfHeight = 0;
  int place = -1;                   ///< which of its places it has; none where it is negative
  TurnedBox box;                    ///< there, in the plane of the truss
  std::vector<ShortText> shorter{}; ///< what may be shown instead, the longest first
  int shortened = 0;                ///< how many of them have been taken instead
  std::size_t item = 0;             ///< in the scene's plane, where it is placed

  /// Takes one of the shorter texts, from 1; none for 0.
  void Shorten(int times) {
    if (times < 1 || times > static_cast<int>(shorter.size())) return;
    const ShortText& taken = shorter[static_cast<std::size_t>(times - 1)];
    text = taken.text;
    halfWidth = taken.halfWidth;
    shortened = times;
  }

  bool IsPlaced() const { return place >= 0; }
};

inline bool BelongsToBar(const ClearLabel& label) {
  return label.kind == LabelKind::Force || label.kind == LabelKind::MemberNumber;
}

/// How the labels of a scene are written.
struct TextLook {
  int size = ClearSize::LargestText;
  bool compact = false;    ///< forces with three digits
  bool mayShorten = false; ///< forces that find no place otherwise are written shorter

  bool operator==(const TextLook&) const = default;
};

/// All that has a place in the plane of the truss, whatever part of it is in view.
struct ClearScene {
  ClearTruss truss;
  std::vector<ClearSupport> supports;
  std::vector<ClearArrow> arrows;
  std::vector<int> arrowsLeftOut; ///< the node of each load and reaction without room for its arrow
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
