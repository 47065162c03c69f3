#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace strutwright {

/// A place in a drawing, in the drawing's unit.
struct DrawnPlace {
  double x = 0;
  double y = 0;

  bool operator==(const DrawnPlace&) const = default;
};

/// What this program wrote beside a member, and reads again.
struct MemberNote {
  float i = 0;
  float j = 0;
  float E = 0;
  float A = 0;
  float PS = 0;
};

/// What it wrote beside a node.
struct NodeNote {
  int number = 0;
  float forceX = 0;
  float forceY = 0;
};

/// A straight line, also one side of a polyline.
struct DrawnLine {
  DrawnPlace from;
  DrawnPlace to;
  std::size_t layer = 0; ///< in DxfDrawing::layers
  std::optional<MemberNote> note{};
};

/// A point, or the place of a block.
struct DrawnPoint {
  DrawnPlace at;
  std::size_t layer = 0;
  std::optional<NodeNote> note{};
  bool isBlock = false;
};

/// What a truss can be made of in a DXF file.
struct DxfDrawing {
  std::vector<std::string> layers;
  std::vector<DrawnLine> lines;
  std::vector<DrawnPoint> points;
  std::map<std::string, int> leftOut; ///< how many entities of which kind are not read
  int linesOutOfPlane = 0;            ///< lines whose ends have a height z, which is not read
  int unit = 0;                       ///< $INSUNITS: 0 none, 1 inch, 2 foot, 4 mm, 5 cm, 6 m
};

/// What the layers are called that this program writes.
inline constexpr const char* MembersLayer = "members";
inline constexpr const char* NodesLayer = "nodes";
inline constexpr const char* DeflectedLayer = "deflected";
inline constexpr const char* NodeNumbersLayer = "node_numbers";
inline constexpr const char* MemberNumbersLayer = "member_numbers";
inline constexpr const char* SupportLayerPrefix = "support_";

/// The name under which it keeps its notes (extended data).
inline constexpr const char* NoteName = "STRUTWRIGHT";

/// How the binary kind of DXF begins, which is not read.
inline constexpr const char* BinaryDxf = "AutoCAD Binary DXF";

/// Reads the lines, polylines, points and places of blocks in the model space of a DXF text; the rest is counted.
/// Lines on DeflectedLayer are left out, and counted unless this program wrote them.  Throws ImportError where the text
/// is no DXF file or ends early.
DxfDrawing ReadDxf(const std::string& text);

} // namespace strutwright
