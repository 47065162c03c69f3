#include "modDrawing.h"

#include "Platform.h"
#include "modNumberText.h"

#include <cmath>

namespace strutwright {

namespace {

constexpr double NodeRadius = 0.1;
constexpr float MinLoad = 0.01F;  // kN
constexpr double LoadHead = 0.25; // of the arrow

void PrintLoad(DrawingSurface& surface, double x, double y, float F, Colour colour) {
  PrintText(surface, x, -y, FormatNumber(F, "#0.0"), colour);
}

} // namespace

void UsePen(DrawingSurface& surface, Colour colour) {
  surface.SetPenMode(PenMode::Copy);
  surface.SetLineStyle(LineStyle::Solid);
  surface.SetPenColour(colour);
  surface.SetFillColour(colour);
  surface.SetFillStyle(FillStyle::Transparent);
}

void DrawLine(DrawingSurface& surface, double x1, double y1, double x2, double y2, Colour colour) {
  UsePen(surface, colour);
  surface.SetPenWidth(2);
  surface.DrawLine(x1, -y1, x2, -y2);
}

void DrawArrow(DrawingSurface& surface, double headSize, double x1, double y1, double x2, double y2, Colour colour,
               double headRatio) {
  UsePen(surface, colour);
  surface.DrawLine(x1, y1, x2, y2);
  const double length = std::sqrt((x2 - x1) * (x2 - x1) + (y2 - y1) * (y2 - y1));
  if (!(length > 0)) return;
  // u runs back from the tip; turned by 45 degrees to either side it is (ux - uy, ux + uy) and (ux + uy, uy - ux).
  const double ux = (x1 - x2) / length * headSize * headRatio;
  const double uy = (y1 - y2) / length * headSize * headRatio;
  surface.DrawLine(x2, y2, x2 + (ux - uy), y2 + (ux + uy));
  surface.DrawLine(x2, y2, x2 + (ux + uy), y2 + (uy - ux));
}

void DrawNodeMarker(DrawingSurface& surface, double x, double y, Colour colour) {
  UsePen(surface, colour);
  surface.SetPenWidth(2);
  surface.DrawCircle(x, -y, NodeRadius);
}

void DrawHorizontalLoad(DrawingSurface& surface, float F, double x, double y, Colour colour, float scale) {
  if (!(std::fabs(F) >= MinLoad)) return;
  const double L = std::fabs(static_cast<double>(F)) / scale;
  surface.SetPenWidth(2);
  if (F > 0) {
    DrawArrow(surface, L * LoadHead, x, -y, x + L, -y, colour);
  } else {
    DrawArrow(surface, L * LoadHead, x + L, -y, x, -y, colour);
  }
  PrintLoad(surface, F > 0 ? x + 0.1 : x + L - 0.4, y + 0.2, F, colour);
}

void DrawVerticalLoad(DrawingSurface& surface, float F, double x, double y, Colour colour, float scale) {
  if (!(std::fabs(F) >= MinLoad)) return;
  const double L = std::fabs(static_cast<double>(F)) / scale;
  surface.SetPenWidth(2);
  if (F > 0) {
    DrawArrow(surface, L * LoadHead, x, -y, x, -(y + L), colour);
  } else {
    DrawArrow(surface, L * LoadHead, x, -(y + L), x, -y, colour);
  }
  PrintLoad(surface, x + 0.1, y + L, F, colour);
}

void PrintText(DrawingSurface& surface, double x, double y, const std::string& text, Colour colour) {
  surface.MoveTo(x, y);
  surface.SetTextAttribute(true);
  surface.SetTextColour(colour);
  surface.DrawText(text);
  surface.SetTextColour(Black);
}

void ShowDrawingFailure(const std::string& text) {
  if (!MessageIsOpen()) ShowMessage(MessageIcon::Information, text);
}

void ReportDrawingFailure(const std::string& text, const std::exception& failure, const FailureReport& report) {
  report(text + "\n" + failure.what());
}

bool TryDrawing(const std::function<void()>& draw, const FailureReport& report) {
  try {
    draw();
    return true;
  } catch (const std::exception& failure) {
    ReportDrawingFailure("Drawing error: check the input data", failure, report);
    return false;
  }
}

} // namespace strutwright
