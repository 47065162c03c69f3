#include "modViewTransform.h"

#include "DisplayState.h"
#include "modModelStore.h"

#include <cmath>

namespace strutwright {

namespace {

constexpr double FramingMargin = 1.4;
constexpr double ZoomStep = 1.25;
constexpr double KeyStep = 0.1;  // of the window
constexpr float MinSide = 1e-6F; // of a zoom rectangle, m
constexpr double MinSize = 1e-3; // of a window that was zoomed into, m
constexpr double MaxSize = 1e9;  // of a window that was zoomed out of, m
constexpr double MinPart = 1e-5; // of the coordinates in it: leaves a float about a hundred steps

bool SetWindowIfFinite(DrawingSurface& surface, double left, double top, double width, double height) {
  const ViewWindow window{static_cast<float>(left), static_cast<float>(top), static_cast<float>(width),
                          static_cast<float>(height)};
  if (!std::isfinite(window.left) || !std::isfinite(window.top)) return false;
  if (!std::isfinite(window.width) || !std::isfinite(window.height)) return false;
  surface.SetWindow(window);
  return true;
}

/// World units a pixel, in the direction that needs more of them.
double GoverningScale(const DrawingSurface& surface, double dx, double dy) {
  const auto rx = static_cast<float>(std::fabs(dx / surface.PixelWidth()));
  const auto ry = static_cast<float>(std::fabs(dy / surface.PixelHeight()));
  return ry < rx ? rx : ry;
}

/// Whether zooming may set a window of this size about (x, y).  A window beyond the limits can always go back.
bool IsWithinLimits(double x, double y, double width, double height, double factor) {
  const double reach = std::fmax(std::fabs(x), std::fabs(y));
  if (factor < 1) return std::fmin(width, height) >= std::fmax(MinSize, reach * MinPart);
  return std::fmax(width, height) <= MaxSize;
}

} // namespace

ModelExtents ExtentsOfModel(float unit) {
  ModelExtents extents;
  for (int n = 1; n <= NodeCount; ++n) {
    const float x = NodeTable(n, NodeX) * unit;
    const float y = NodeTable(n, NodeY) * unit;
    if (x > extents.maxX) extents.maxX = x;
    if (y > extents.maxY) extents.maxY = y;
    if (x < extents.minX) extents.minX = x;
    if (y < extents.minY) extents.minY = y;
  }
  return extents;
}

void ComputeModelExtents() { TheDisplay.Extents = ExtentsOfModel(1); }

void SetViewWindow(DrawingSurface& surface, float minX, float maxX, float minY, float maxY) {
  if (minX == 0 && maxX == 0 && minY == 0 && maxY == 0) return;
  const double dx = static_cast<double>(maxX) - minX;
  const double dy = static_cast<double>(maxY) - minY;
  const double s = GoverningScale(surface, dx, dy) * FramingMargin;
  const double hw = surface.PixelWidth() * s / 2;
  const double hh = surface.PixelHeight() * s / 2;
  const double cx = (static_cast<double>(minX) + maxX) / 2;
  const double cy = (static_cast<double>(minY) + maxY) / 2;
  SetWindowIfFinite(surface, cx - hw, -cy - hh, 2 * hw, 2 * hh);
}

bool ZoomToRectangle(DrawingSurface& surface, double x1, double y1, double x2, double y2) {
  const auto left = static_cast<float>(x1);
  const auto right = static_cast<float>(x2);
  const auto bottom = static_cast<float>(-y1);
  const auto top = static_cast<float>(-y2);
  if (std::fabs(right - left) < MinSide || std::fabs(top - bottom) < MinSide) return false;
  SetViewWindow(surface, left, right, bottom, top);
  return true;
}

void EnlargeWindow(DrawingSurface& surface) {
  const ViewWindow window = surface.Window();
  const double cx = window.left + static_cast<double>(window.width) / 2;
  const double cy = window.top + static_cast<double>(window.height) / 2;
  const double width = window.width * ZoomStep;
  const double height = window.height * ZoomStep;
  SetWindowIfFinite(surface, cx - width / 2, cy - height / 2, width, height);
}

void PanWindow(DrawingSurface& surface, double fromX, double fromY, double toX, double toY) {
  const ViewWindow window = surface.Window();
  SetWindowIfFinite(surface, window.left + (fromX - toX), window.top + (fromY - toY), window.width, window.height);
}

bool ZoomAbout(DrawingSurface& surface, double x, double y, double factor) {
  const ViewWindow window = surface.Window();
  const double width = window.width * factor;
  const double height = window.height * factor;
  if (!(factor > 0) || factor == 1 || !IsWithinLimits(x, y, width, height, factor)) return false;
  return SetWindowIfFinite(surface, x - (x - window.left) * factor, y - (y - window.top) * factor, width, height);
}

bool MoveView(DrawingSurface& surface, ViewMove move) {
  const ViewWindow window = surface.Window();
  const double width = window.width;
  const double height = window.height;
  const auto shift = [&](double across, double down) {
    return SetWindowIfFinite(surface, window.left + across * width, window.top + down * height, width, height);
  };
  const auto zoom = [&](double factor) {
    return ZoomAbout(surface, window.left + width / 2, window.top + height / 2, factor);
  };
  switch (move) {
  case ViewMove::Left: return shift(-KeyStep, 0);
  case ViewMove::Right: return shift(KeyStep, 0);
  case ViewMove::Up: return shift(0, -KeyStep);
  case ViewMove::Down: return shift(0, KeyStep);
  case ViewMove::In: return zoom(1 / ZoomStep);
  case ViewMove::Out: return zoom(ZoomStep);
  }
  return false;
}

} // namespace strutwright
