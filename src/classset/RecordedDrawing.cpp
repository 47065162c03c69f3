#include "RecordedDrawing.h"

#include "Ensure.h"
#include "Platform.h"

#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace strutwright {

namespace {

/// Keeps the calls.
class Recorder : public DrawingSurface {
 public:
  Recorder(const DrawingSurface& measure, int width, int height, std::vector<Drawing>& calls)
      : Measure(measure), Width(static_cast<float>(width)), Height(static_cast<float>(height)), Calls(calls),
        View(measure.Window()) {}

  ViewWindow Window() const override { return View; }
  void SetWindow(const ViewWindow& window) override {
    View = window;
    Keep([window](DrawingSurface& surface) { surface.SetWindow(window); });
  }
  float PixelWidth() const override { return Width; }
  float PixelHeight() const override { return Height; }
  double TextWidth(const std::string& text, int size) const override { return Measure.TextWidth(text, size); }

  void Clear() override {
    Keep([](DrawingSurface& surface) { surface.Clear(); });
  }
  void SetPenWidth(int pixels) override {
    Keep([pixels](DrawingSurface& surface) { surface.SetPenWidth(pixels); });
  }
  void SetPenColour(Colour colour) override {
    Keep([colour](DrawingSurface& surface) { surface.SetPenColour(colour); });
  }
  void SetPenMode(PenMode mode) override {
    Keep([mode](DrawingSurface& surface) { surface.SetPenMode(mode); });
  }
  void SetLineStyle(LineStyle style) override {
    Keep([style](DrawingSurface& surface) { surface.SetLineStyle(style); });
  }
  void SetFillColour(Colour colour) override {
    Keep([colour](DrawingSurface& surface) { surface.SetFillColour(colour); });
  }
  void SetFillStyle(FillStyle style) override {
    Keep([style](DrawingSurface& surface) { surface.SetFillStyle(style); });
  }
  void SetTextColour(Colour colour) override {
    Keep([colour](DrawingSurface& surface) { surface.SetTextColour(colour); });
  }
  void SetTextAttribute(bool on) override {
    Keep([on](DrawingSurface& surface) { surface.SetTextAttribute(on); });
  }
  void MoveTo(double x, double y) override {
    X = x;
    Y = y;
    Keep([x, y](DrawingSurface& surface) { surface.MoveTo(x, y); });
  }
  double CurrentX() const override { return X; }
  double CurrentY() const override { return Y; }
  void DrawLine(double x1, double y1, double x2, double y2) override {
    X = x2;
    Y = y2;
    Keep([=](DrawingSurface& surface) { surface.DrawLine(x1, y1, x2, y2); });
  }
  void DrawBox(double x1, double y1, double x2, double y2) override {
    Keep([=](DrawingSurface& surface) { surface.DrawBox(x1, y1, x2, y2); });
  }
  void DrawCircle(double x, double y, double radius) override {
    X = x;
    Y = y;
    Keep([=](DrawingSurface& surface) { surface.DrawCircle(x, y, radius); });
  }
  void DrawText(const std::string& text) override {
    Keep([text](DrawingSurface& surface) { surface.DrawText(text); });
  }
  void SavePicture(const std::string& /*path*/) override {
    Ensure(false, "a drawing is saved by the surface on which it is drawn again");
  }

  void PixelLine(PixelPoint from, PixelPoint to, const LineLook& look) override {
    Keep([=](DrawingSurface& surface) { surface.PixelLine(from, to, look); });
  }
  void PixelPolygon(std::span<const PixelPoint> corners, Colour fill) override {
    const std::vector<PixelPoint> kept(corners.begin(), corners.end());
    Keep([kept, fill](DrawingSurface& surface) { surface.PixelPolygon(kept, fill); });
  }
  void PixelDot(PixelPoint centre, double radius, const LineLook& edge, Colour fill) override {
    Keep([=](DrawingSurface& surface) { surface.PixelDot(centre, radius, edge, fill); });
  }
  void PixelText(const PixelLabel& label) override {
    Keep([label](DrawingSurface& surface) { surface.PixelText(label); });
  }

 private:
  void Keep(Drawing call) { Calls.push_back(std::move(call)); }

  const DrawingSurface& Measure;
  float Width;
  float Height;
  std::vector<Drawing>& Calls;
  ViewWindow View;
  double X = 0;
  double Y = 0;
};

} // namespace

Drawing Recorded(int width, int height, const Drawing& draw) {
  const auto calls = std::make_shared<std::vector<Drawing>>();
  ThePaper().Picture(1, 1, [&](DrawingSurface& measure) {
    Recorder recorder(measure, width, height, *calls);
    draw(recorder);
  });
  return [calls](DrawingSurface& surface) {
    for (const Drawing& call : *calls) call(surface);
  };
}

} // namespace strutwright
