#pragma once

#include "DrawingSurface.h"
#include "StrokeCanvas.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include <QColor>
#include <QImage>
#include <QPointF>
#include <QSize>

namespace strutwright {

/// Draws antialiased on an image that it keeps, always on white.
/// A text starts at the current point with its upper left corner; printing it needs a QGuiApplication.
/// What no number can place is not drawn, and what lies outside is cut off before Qt sees it: its cost would grow
/// with the zoom, without end for a dashed line.
class QtDrawingSurface : public DrawingSurface {
 public:
  /// width, height: in logical pixels; ratio: device pixels a logical one.
  QtDrawingSurface(int width, int height, double ratio = 1);

  /// Empties the picture and keeps centre and scale of the window.
  void Resize(int width, int height, double ratio = 1);

  /// The picture, in device pixels.
  const QImage& Image() const;

  /// What was drawn since the picture was empty, without what was inverted.
  const std::vector<Stroke>& Drawn() const { return Strokes; }

  /// Between logical pixels, from the upper left corner, and surface coordinates.
  QPointF ToPixel(double x, double y) const;
  QPointF ToSurface(const QPointF& pixel) const;

  ViewWindow Window() const override { return View; }
  void SetWindow(const ViewWindow& window) override;
  float PixelWidth() const override { return static_cast<float>(Size.width()); }
  float PixelHeight() const override { return static_cast<float>(Size.height()); }
  void Clear() override;
  void SetPenWidth(int pixels) override { Pen.width = pixels; }
  void SetPenColour(Colour colour) override;
  void SetPenMode(PenMode mode) override { Mode = mode; }
  void SetLineStyle(LineStyle style) override { Pen.dashed = style == LineStyle::Dashed; }
  void SetFillColour(Colour colour) override;
  void SetFillStyle(FillStyle style) override { Fill = style; }
  void SetTextColour(Colour colour) override;
  void SetTextAttribute(bool on) override { TextAttribute = on; }
  void MoveTo(double x, double y) override;
  double CurrentX() const override { return X; }
  double CurrentY() const override { return Y; }
  void DrawLine(double x1, double y1, double x2, double y2) override;
  void DrawBox(double x1, double y1, double x2, double y2) override;
  void DrawCircle(double x, double y, double radius) override;
  void DrawText(const std::string& text) override;
  void SavePicture(const std::string& path) override;
  double TextWidth(const std::string& text, int size) const override;
  void PixelLine(PixelPoint from, PixelPoint to, const LineLook& look) override;
  void PixelPolygon(std::span<const PixelPoint> corners, Colour fill) override;
  void PixelDot(PixelPoint centre, double radius, const LineLook& edge, Colour fill) override;
  void PixelText(const PixelLabel& label) override;

 private:
  template <typename Kind>
  void Paint(Kind&& stroke);
  void CatchUp() const;
  void DrawPixelLine(QPointF from, QPointF to) { DrawPixelLine(from, to, Pen); }
  void DrawPixelLine(QPointF from, QPointF to, const PenLook& pen);
  void DrawLargeCircle(const QPointF& centre, double radiusX, double radiusY);
  double Sharp(double pixel, double width) const;

  mutable StrokeCanvas Canvas;     ///< catches up with the strokes when somebody looks at it
  mutable std::size_t Painted = 0; ///< strokes that are on the canvas
  std::vector<Stroke> Strokes;     ///< Drawn
  QSize Size;
  double Ratio = 1;
  ViewWindow View;
  double ScaleX = 1; ///< pixels a metre
  double ScaleY = 1;
  PenLook Pen{.colour = qRgb(0, 0, 0)};
  QRgb FillColour = qRgb(0, 0, 0);
  QRgb TextColour = qRgb(0, 0, 0);
  PenMode Mode = PenMode::Copy;
  FillStyle Fill = FillStyle::Transparent;
  bool TextAttribute = true;
  double X = 0;
  double Y = 0;
};

} // namespace strutwright
