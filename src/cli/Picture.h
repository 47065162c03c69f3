#pragma once

#include "TrussView.h"
#include "modInfluenceDrawing.h"

#include <optional>
#include <string>

namespace strutwright {

/// The picture that a command makes of each model.
struct PictureRequest {
  std::string file; ///< where to, .tex for TikZ; no picture is made where it is empty
  int width = 1024; ///< pixels
  int height = 768; ///< pixels
  ModelLayers layers;
  bool reactions = true;
  bool memberForces = true;
  bool deflectedShape = true;
  float deflectionScale = 100; ///< mm drawn per mm
  DrawingStyle style = DrawingStyle::Clear;
};

/// The names of the layers, in the order of the drawing's switches.
inline constexpr const char* PictureLayers = "supports,loads,grid,members,nodes,reactions,forces,deflected";

/// Switches exactly the layers on that the comma-separated list names.
/// Returns the first name that is no layer, and then changes nothing.
std::optional<std::string> ChooseLayers(PictureRequest& request, const std::string& names);

/// Takes "WIDTHxHEIGHT", both 16..8192.  Returns whether the text is that; otherwise nothing changes.
bool ChooseSize(PictureRequest& request, const std::string& text);

/// Has Qt ready to draw texts; needs no display server.
void EnsureApplication();

/// Has it ready to fill pages too, until the model's session ends.
void PreparePages();

/// Draws the model that is open, with its results where there are any, framed as after opening it, and writes the
/// picture.  Needs no display server.  Throws FileError.
void MakePicture(const PictureRequest& request, const std::string& file, bool analysed);

/// The same picture as TikZ.
std::string TikzPicture(const PictureRequest& request, bool analysed);

/// Draws the model that is open with an influence line below, without loads and results, and writes the picture
/// likewise.
void MakeInfluencePicture(const PictureRequest& request, const InfluenceShape& shape);

} // namespace strutwright
