#include "modOverprint.h"

#include "PlaneGeometry.h"
#include "modRedraw.h"

#include <algorithm>
#include <span>
#include <string>
#include <vector>

namespace strutwright {

namespace {

constexpr int PrintedSize = 13;      // pixels, of the described drawing's texts
constexpr double AboveLetters = 2;   // pixels of that in which no digit stands
constexpr std::size_t Enough = 4000; // numbers on one surface that could not all be read: more are not looked at

/// Looks where texts come and draws nothing.
class PrintWatch : public DrawingSurface {
 public:
  explicit PrintWatch(const DrawingSurface& shown) : Shown(shown), View(shown.Window()) {}

  bool HasOverprint() const { return Overprint; }

  float PixelWidth() const override { return Shown.PixelWidth(); }
  float PixelHeight() const override { return Shown.PixelHeight(); }
  double TextWidth(const std::string& text, int size) const override { return Shown.TextWidth(text, size); }
  ViewWindow Window() const override { return View; }
  void SetWindow(const ViewWindow& window) override { View = window; }
  void MoveTo(double x, double y) override {
    X = x;
    Y = y;
  }
  double CurrentX() const override { return X; }
  double CurrentY() const override { return Y; }
  void DrawLine(double /*x1*/, double /*y1*/, double x2, double y2) override { MoveTo(x2, y2); }
  void DrawCircle(double x, double y, double /*radius*/) override { MoveTo(x, y); }

  void DrawText(const std::string& text) override {
    if (Overprint || Printed.size() >= Enough) return;
    const double left = (X - View.left) / View.width * PixelWidth();
    const double top = (Y - View.top) / View.height * PixelHeight();
    const Bounds box{left, top + AboveLetters, left + TextWidth(text, PrintedSize), top + PrintedSize};
    if (!box.Touches({0, 0, PixelWidth(), PixelHeight()})) return;
    Overprint = std::any_of(Printed.begin(), Printed.end(), [&box](const Bounds& each) { return each.Touches(box); });
    Printed.push_back(box);
  }

  void Clear() override {}
  void SetPenWidth(int /*pixels*/) override {}
  void SetPenColour(Colour /*colour*/) override {}
  void SetPenMode(PenMode /*mode*/) override {}
  void SetLineStyle(LineStyle /*style*/) override {}
  void SetFillColour(Colour /*colour*/) override {}
  void SetFillStyle(FillStyle /*style*/) override {}
  void SetTextColour(Colour /*colour*/) override {}
  void SetTextAttribute(bool /*on*/) override {}
  void DrawBox(double /*x1*/, double /*y1*/, double /*x2*/, double /*y2*/) override {}
  void SavePicture(const std::string& /*path*/) override {}
  void PixelLine(PixelPoint /*from*/, PixelPoint /*to*/, const LineLook& /*look*/) override {}
  void PixelPolygon(std::span<const PixelPoint> /*corners*/, Colour /*fill*/) override {}
  void PixelDot(PixelPoint /*centre*/, double /*radius*/, const LineLook& /*edge*/, Colour /*fill*/) override {}
  void PixelText(const PixelLabel& /*label*/) override {}

 private:
  const DrawingSurface& Shown;
  ViewWindow View;
  double X = 0;
  double Y = 0;
  std::vector<Bounds> Printed; ///< in pixels
  bool Overprint = false;
};

} // namespace

bool PrintsOverItself(const DrawingSurface& surface, const TrussView& view) {
  PrintWatch watch(surface);
  TrussView described = view;
  described.style = DrawingStyle::Described;
  described.frameExtents = false;
  described.failures = [](const std::string& /*failure*/) {};
  Draw(watch, described);
  return watch.HasOverprint();
}

} // namespace strutwright
