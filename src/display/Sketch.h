#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace strutwright {

/// How a part of a sketch looks.
enum class SketchTone : std::uint8_t {
  Ink,
  Faint, ///< stands back
  Tension,
  Compression,
  NoForce,
  Reaction,
  Unknown, ///< a force that is not known yet
  Marked
};

/// A place of a sketch, in its own units, y upwards.
struct SketchPoint {
  double x = 0;
  double y = 0;
  std::string name{}; ///< stands beside it
  bool isDot = true;  ///< drawn as a node
  SketchTone tone{};  ///< of its dot: Ink or Marked
  float support = 0;  ///< code of the support that stands under it
};

/// A line between two points, by their indices.
struct SketchLine {
  int from = 0;
  int to = 0;
  SketchTone tone{};
  std::string label{};  ///< along it
  std::string number{}; ///< in a box on it
  int key = 0;          ///< what it stands for; 0 for nothing
  bool hasHead = false; ///< an arrow's at its end
};

/// An arrow at a point.  It keeps its length in pixels at every scale.
struct SketchArrow {
  int point = 0;
  double c = 1; ///< which way it acts, of length 1
  double s = 0;
  double share = 1;     ///< of the longest arrow
  bool pulls = false;   ///< it stands on the side to which it acts, its tail at the point
  bool hasHead = true;  ///< without one it is a bar that bears nothing
  bool mayMove = false; ///< it may stand on either side of the point, where there is room
  SketchTone tone{};
  std::string label{};
  int key = 0;
};

/// A text at a place, or as far from it in a direction as there is room.
struct SketchText {
  double x = 0;
  double y = 0;
  double outX = 0; ///< of length 1; none where both are 0
  double outY = 0;
  std::string text;
  SketchTone tone{};
};

/// A stroke across a sketch.
struct SketchStroke {
  double x0 = 0;
  double y0 = 0;
  double x1 = 0;
  double y1 = 0;
};

/// A figure: points, lines between them, arrows and texts.
struct Sketch {
  std::string title;
  std::string unit; ///< of lengths, where a scale belongs under it: "kN"
  std::vector<SketchPoint> points;
  std::vector<SketchLine> lines;
  std::vector<SketchArrow> arrows;
  std::vector<SketchText> texts;
  std::optional<SketchStroke> stroke;
};

/// A sketch and where on the sheet it stands, in parts of the sheet.
struct SketchPart {
  Sketch sketch;
  double left = 0;
  double top = 0;
  double width = 1;
  double height = 1;
};

/// Sketches beside and below each other.
using SketchSheet = std::vector<SketchPart>;

} // namespace strutwright
