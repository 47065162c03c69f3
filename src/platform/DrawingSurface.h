#pragma once

#include "PixelSurface.h"

#include <string>

namespace strutwright {

enum class LineStyle { Solid, Dashed };
enum class FillStyle { Solid, Transparent };

/// Copy draws in the pen's colour; Invert so that drawing the same twice restores the picture.
enum class PenMode { Copy, Invert };

/// The part of the world that a surface shows, in m.  The vertical axis points down: a world point (x, y) is drawn at
/// (x, -y).  Width and height are positive; left and top are the least coordinates.
struct ViewWindow {
  float left = 0;
  float top = 0;
  float width = 1;
  float height = 1;

  bool operator==(const ViewWindow&) const = default;
};

/// Where the truss is drawn.  Positions and radii are surface coordinates in m, pen widths are pixels; what is drawn in
/// pixels throughout stands in PixelSurface.
/// The surface keeps its picture until it is cleared.  Any operation may throw std::runtime_error.
class DrawingSurface : public PixelSurface {
 public:
  virtual ViewWindow Window() const = 0;
  virtual void SetWindow(const ViewWindow& window) = 0;

  virtual void Clear() = 0;

  virtual void SetPenWidth(int pixels) = 0;
  virtual void SetPenColour(Colour colour) = 0;
  virtual void SetPenMode(PenMode mode) = 0;
  virtual void SetLineStyle(LineStyle style) = 0;
  virtual void SetFillColour(Colour colour) = 0;
  virtual void SetFillStyle(FillStyle style) = 0;
  virtual void SetTextColour(Colour colour) = 0;

  /// On: what lies under a text shows between its letters.  Off: the text stands on its own background.
  virtual void SetTextAttribute(bool on) = 0;

  /// The point where the next text starts; lines leave it at their end, circles at their centre.
  virtual void MoveTo(double x, double y) = 0;
  virtual double CurrentX() const = 0;
  virtual double CurrentY() const = 0;

  virtual void DrawLine(double x1, double y1, double x2, double y2) = 0;
  virtual void DrawBox(double x1, double y1, double x2, double y2) = 0;
  virtual void DrawCircle(double x, double y, double radius) = 0;

  /// Prints from the current point to the right, in a size that does not depend on the window.
  virtual void DrawText(const std::string& text) = 0;

  /// Saves the picture: PNG for ".png", SVG for ".svg", a bitmap for every other name.  Throws FileError.
  virtual void SavePicture(const std::string& path) = 0;
};

} // namespace strutwright
