#pragma once

#include "DrawingSurface.h"

#include <optional>
#include <string>
#include <vector>

namespace strutwright {

/// Writes one line a call, with numbers of six significant digits.
class RecordingSurface : public DrawingSurface {
 public:
  /// Every call but those that only ask, in order: "PenWidth 2", "Line 0 0 4 -3", "Text 1.5".
  std::vector<std::string> calls;

  /// What can be seen, with the pen that drew it: "line 0 0 4 -3 black 2", "line ... grey 1 dashed",
  /// "circle 0 0 0.1 green 2", "text 1 0 '1.5' red".
  /// A filled circle ends in "filled", an inverting pen in "inverted", a text on its background in "opaque".
  std::vector<std::string> ink;

  /// What was drawn in pixels, in the order of each kind.  Colours are not named here: they are given as they are.
  struct PixelLineInk {
    PixelPoint from;
    PixelPoint to;
    LineLook look;
  };
  struct PixelPolygonInk {
    std::vector<PixelPoint> corners;
    Colour fill;
  };
  struct PixelDotInk {
    PixelPoint centre;
    double radius;
    LineLook edge;
    Colour fill;
  };
  std::vector<PixelLineInk> pixelLines;
  std::vector<PixelPolygonInk> pixelPolygons;
  std::vector<PixelDotInk> pixelDots;
  std::vector<PixelLabel> pixelTexts;

  /// The number of the call, from 1, that throws; none where it is 0.
  int failAt = 0;

  ViewWindow window{0, -3, 4, 3};
  float width = 800;
  float height = 600;

  /// The ink lines of one kind and colour, such as "text" and "red".
  std::vector<std::string> Ink(const std::string& kind, const std::string& colour) const;

  /// Forgets what was drawn so far.
  void Forget();

  ViewWindow Window() const override { return window; }
  void SetWindow(const ViewWindow& view) override;
  float PixelWidth() const override { return width; }
  float PixelHeight() const override { return height; }
  void Clear() override { Record("Clear"); }
  void SetPenWidth(int pixels) override;
  void SetPenColour(Colour colour) override;
  void SetPenMode(PenMode mode) override;
  void SetLineStyle(LineStyle style) override;
  void SetFillColour(Colour colour) override;
  void SetFillStyle(FillStyle style) override;
  void SetTextColour(Colour colour) override;
  void SetTextAttribute(bool on) override;
  void MoveTo(double x, double y) override;
  double CurrentX() const override { return Pen.x; }
  double CurrentY() const override { return Pen.y; }
  void DrawLine(double x1, double y1, double x2, double y2) override;
  void DrawBox(double x1, double y1, double x2, double y2) override;
  void DrawCircle(double x, double y, double radius) override;
  void DrawText(const std::string& text) override;
  void SavePicture(const std::string& path) override { Record("SavePicture " + path); }

  /// Every letter is 0.6 of its font's height wide, so that no test depends on the fonts of a machine.
  double TextWidth(const std::string& text, int size) const override;
  void PixelLine(PixelPoint from, PixelPoint to, const LineLook& look) override;
  void PixelPolygon(std::span<const PixelPoint> corners, Colour fill) override;
  void PixelDot(PixelPoint centre, double radius, const LineLook& edge, Colour fill) override;
  void PixelText(const PixelLabel& label) override;

 private:
  void Record(const std::string& call);
  std::string PenText() const;

  struct {
    int width = 1;
    Colour colour;
    PenMode mode = PenMode::Copy;
    LineStyle style = LineStyle::Solid;
    FillStyle fill = FillStyle::Transparent;
    Colour textColour;
    bool textAttribute = false;
    double x = 0;
    double y = 0;
  } Pen;
};

} // namespace strutwright
