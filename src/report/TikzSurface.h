#pragma once

#include "DrawingSurface.h"

#include <map>
#include <string>
#include <vector>

namespace strutwright {

/// Writes what is drawn as a TikZ picture: lines, areas and labels with named styles, which are defined at its top, the
/// labels as text.  Widths of texts come from another surface; that one is not drawn on.
class TikzSurface : public DrawingSurface {
 public:
  /// As large as the other surface.
  explicit TikzSurface(const DrawingSurface& measure)
      : TikzSurface(measure, measure.PixelWidth(), measure.PixelHeight()) {}
  TikzSurface(const DrawingSurface& measure, float width, float height)
      : Measure(measure), Width(width), Height(height), View(measure.Window()) {}

  /// The picture as a file that LaTeX compiles by itself and that another document can take in with \input.
  std::string Document() const;

  /// The picture alone, to stand in a document that has \usepackage{tikz}.
  std::string Picture() const;

  ViewWindow Window() const override { return View; }
  void SetWindow(const ViewWindow& window) override { View = window; }
  float PixelWidth() const override { return Width; }
  float PixelHeight() const override { return Height; }
  double TextWidth(const std::string& text, int size) const override { return Measure.TextWidth(text, size); }

  void Clear() override { Commands.clear(); }
  void SetPenWidth(int pixels) override { Pen.width = pixels; }
  void SetPenColour(Colour colour) override { Pen.colour = colour; }
  void SetPenMode(PenMode mode) override { Mode = mode; }
  void SetLineStyle(LineStyle style) override { Pen.dashed = style == LineStyle::Dashed; }
  void SetFillColour(Colour colour) override { FillColour = colour; }
  void SetFillStyle(FillStyle style) override { Fill = style; }
  void SetTextColour(Colour colour) override { TextColour = colour; }
  void SetTextAttribute(bool /*on*/) override {}
  void MoveTo(double x, double y) override;
  double CurrentX() const override { return X; }
  double CurrentY() const override { return Y; }
  void DrawLine(double x1, double y1, double x2, double y2) override;
  void DrawBox(double x1, double y1, double x2, double y2) override;
  void DrawCircle(double x, double y, double radius) override;
  void DrawText(const std::string& text) override;
  void SavePicture(const std::string& path) override;

  void PixelLine(PixelPoint from, PixelPoint to, const LineLook& look) override;
  void PixelPolygon(std::span<const PixelPoint> corners, Colour fill) override;
  void PixelDot(PixelPoint centre, double radius, const LineLook& edge, Colour fill) override;
  void PixelText(const PixelLabel& label) override;

 private:
  PixelPoint ToPixel(double x, double y) const;
  bool IsNear(PixelPoint point) const;
  std::string NameOf(Colour colour);
  std::string PenOptions(const LineLook& look);
  void Write(const std::string& command) { Commands.push_back(command); }

  const DrawingSurface& Measure;
  float Width; ///< logical pixels, as Height
  float Height;
  ViewWindow View;
  LineLook Pen;
  Colour FillColour;
  Colour TextColour;
  FillStyle Fill = FillStyle::Transparent;
  PenMode Mode = PenMode::Copy;
  double X = 0;
  double Y = 0;
  std::map<std::string, Colour> Colours; ///< that were used, by their names
  std::vector<std::string> Commands;
};

} // namespace strutwright
