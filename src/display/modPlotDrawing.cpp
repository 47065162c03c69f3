#include "modPlotDrawing.h"

#include "AxisValues.h"
#include "ClearTexts.h"
#include "modNumberText.h"

#include <algorithm>
#include <cmath>

namespace strutwright {

namespace {

// Pixels.
constexpr double PlotLeft = 78;
constexpr double PlotRight = 22;
constexpr double PlotTop = 34;
constexpr double PlotBottom = 48;
constexpr double PlotApartX = 70; // values of an axis
constexpr double PlotApartY = 36;
constexpr double DotSize = 4;
constexpr int PlotTextSize = 12;

constexpr Colour CurveColour{0, 110, 120};
constexpr Colour PlotGridColour{224, 224, 224};

struct PlotSpan {
  double least = 0;
  double most = 1;

  double Length() const { return most - least; }
};

/// A value that never changes has a range about it.
PlotSpan Widened(PlotSpan span) {
  const double size = std::max(std::abs(span.least), std::abs(span.most));
  constexpr double rounding = 1e-5; // of results, which have single precision
  if (span.Length() > rounding * size) return span;
  const double room = size > 0 ? 0.1 * size : 1;
  return {span.least - room, span.most + room};
}

PlotSpan SpanOfX(const Plot& plot) {
  if (plot.points.empty()) return {};
  return Widened({plot.points.front().x, plot.points.back().x});
}

PlotSpan SpanOfY(const Plot& plot) {
  constexpr double near = 0.5; // of the range: from so near zero is shown
  PlotSpan span{HUGE_VAL, -HUGE_VAL};
  const auto take = [&span](const CurvePoint& point) {
    if (!point.y) return;
    span = {std::min(span.least, *point.y), std::max(span.most, *point.y)};
  };
  std::for_each(plot.points.begin(), plot.points.end(), take);
  if (plot.mark) take(*plot.mark);
  if (span.least > span.most) return {};
  if (span.least > 0 && span.least < near * span.Length()) span.least = 0;
  if (span.most < 0 && -span.most < near * span.Length()) span.most = 0;
  return Widened(span);
}

/// Multiples of a round step so wide that their texts have room.
std::vector<double> RoundValues(const PlotSpan& span, double pixels, double apart) {
  const double step = RoundStepAbove(span.Length() * apart / std::max(pixels, apart));
  std::vector<double> values;
  const double first = std::ceil(span.least / step);
  constexpr int most = 100;
  for (int k = 0; k < most && (first + k) * step <= span.most; ++k) values.push_back((first + k) * step);
  return values;
}

std::string PlotValueText(double value) { return NumberText(static_cast<float>(value)); }

class PlotPicture {
 public:
  PlotPicture(PixelSurface& surface, const Plot& plot)
      : Surface(surface), Shown(plot), X(SpanOfX(plot)), Y(SpanOfY(plot)),
        Width(std::max(surface.PixelWidth() - PlotLeft - PlotRight, 1.0)),
        Height(std::max(surface.PixelHeight() - PlotTop - PlotBottom, 1.0)) {}

  void Draw() {
    DrawAxes();
    DrawCurve();
    DrawMark();
  }

 private:
  PixelPoint At(double x, double y) const {
    return {PlotLeft + Width * (x - X.least) / X.Length(), PlotTop + Height * (Y.most - y) / Y.Length()};
  }

  void Text(PixelPoint centre, const std::string& text, Colour colour = Black) {
    Surface.PixelText({.centre = centre, .text = text, .colour = colour, .size = PlotTextSize});
  }

  void DrawAxes() {
    for (const double x : RoundValues(X, Width, PlotApartX)) {
      Surface.PixelLine(At(x, Y.least), At(x, Y.most), {PlotGridColour, 1});
      Text(At(x, Y.least) + PixelPoint{0, 12}, PlotValueText(x));
    }
    for (const double y : RoundValues(Y, Height, PlotApartY)) {
      Surface.PixelLine(At(X.least, y), At(X.most, y), {y == 0 ? Black : PlotGridColour, 1});
      const std::string text = PlotValueText(y);
      Text(At(X.least, y) - PixelPoint{6 + Surface.TextWidth(text, PlotTextSize) / 2, 0}, text);
    }
    Surface.PixelLine(At(X.least, Y.least), At(X.most, Y.least), {Black, 1});
    Surface.PixelLine(At(X.least, Y.least), At(X.least, Y.most), {Black, 1});
    Text({PlotLeft + Width / 2, PlotTop + Height + 34}, Shown.nameX);
    Text({std::max(PlotLeft, 8 + Surface.TextWidth(Shown.nameY, PlotTextSize) / 2), 14}, Shown.nameY);
  }

  void DrawCurve() {
    for (std::size_t k = 1; k < Shown.points.size(); ++k) {
      const CurvePoint& from = Shown.points[k - 1];
      const CurvePoint& to = Shown.points[k];
      if (from.y && to.y) Surface.PixelLine(At(from.x, *from.y), At(to.x, *to.y), {CurveColour, 2});
    }
  }

  void DrawMark() {
    if (!Shown.mark || Shown.mark->x < X.least || Shown.mark->x > X.most) return;
    const double x = Shown.mark->x;
    Surface.PixelLine(At(x, Y.least), At(x, Y.most), {Red, 1, true});
    if (!Shown.mark->y) return;
    const PixelPoint at = At(x, *Shown.mark->y);
    Surface.PixelDot(at, DotSize, {Red, 1}, Red);
    const std::string text = PlotReading(*Shown.mark->y);
    const double half = Surface.TextWidth(text, PlotTextSize) / 2;
    const bool room = at.x + 2 * half + 16 < PlotLeft + Width;
    Text(at + PixelPoint{(room ? 1 : -1) * (half + 10), -12}, text, Red);
  }

  PixelSurface& Surface;
  const Plot& Shown;
  PlotSpan X;
  PlotSpan Y;
  double Width;
  double Height;
};

} // namespace

void DrawPlot(PixelSurface& surface, const Plot& plot) { PlotPicture(surface, plot).Draw(); }

std::string PlotReading(double value) { return ReadingText(value, 5); }

} // namespace strutwright
