#include "PixelLoops.h"
#include "PixelPen.h"
#include "QtFixture.h"
#include "RunSeed.h"
#include "Scribble.h"

#include <algorithm>
#include <cmath>
#include <random>

#include <QColor>
#include <QLineF>

namespace strutwright {
namespace {

class PixelLoopsTest : public QtFixture {
 protected:
  ~PixelLoopsTest() override { TheLoops = &FastestLoops(); }

  double Between(double low, double high) { return std::uniform_real_distribution<double>(low, high)(random); }

  const unsigned seed = RunSeed();
  testing::ScopedTrace trace{__FILE__, __LINE__, "seed " + std::to_string(seed)};
  std::mt19937 random{seed};
};

/// How much of a pixel a band of this width along a line covers, seen from the line's middle.
float CoverageOf(float a, float b, float c, float half, float x, float y) {
  return std::clamp(half - std::abs(a * x + (b * y - c)) + 0.5F, 0.0F, 1.0F);
}

/// The red of a white pixel under a black line two pixels wide, the literal way.
int Literal(const QLineF& line, int column, int row) {
  const double length = std::sqrt(line.dx() * line.dx() + line.dy() * line.dy());
  const QPointF along = QPointF(line.dx(), line.dy()) / length;
  const auto coverage = [&](const QPointF& normal, double half) {
    const double c = normal.x() * line.center().x() + normal.y() * line.center().y();
    return CoverageOf(static_cast<float>(normal.x()), static_cast<float>(normal.y()), static_cast<float>(c),
                      static_cast<float>(half), static_cast<float>(column) + 0.5F, static_cast<float>(row) + 0.5F);
  };
  const float part = coverage(along, length / 2 + 1) * coverage({-along.y(), along.x()}, 1);
  return 255 * (256 - static_cast<int>(part * 256 + 0.5F)) >> 8;
}

TEST_F(PixelLoopsTest, PaintTheSameForEveryProcessor) {
  for (const double ratio : {1.0, 1.5, 4.0}) {
    QtDrawingSurface first(80, 60, ratio); // Qt traces a letter that it has not printed yet a little differently
    QtDrawingSurface plain(80, 60, ratio);
    surface.Resize(80, 60, ratio);
    for (QtDrawingSurface* each : {&first, &surface, &plain}) {
      TheLoops = each == &plain ? &PlainLoops() : &FastestLoops();
      each->SetWindow({0, 0, 8, 6});
      Scribble scribble(seed);
      for (int i = 0; i < 1000; ++i) scribble.DrawOneOn(*each);
      each->Image();
    }
    EXPECT_TRUE(surface.Image() == plain.Image()) << ratio;
  }
}

TEST_F(PixelLoopsTest, CoverOfEachPixelWhatALineCoversOfIt) {
  for (const PixelLoops* loops : {&PlainLoops(), &FastestLoops()}) {
    TheLoops = loops;
    for (int i = 0; i < 200; ++i) {
      QImage picture(43, 31, QImage::Format_RGB32);
      picture.fill(Qt::white);
      const QPointF start(Between(2, 41), Between(2, 29));
      const double reach = i % 2 == 0 ? 40 : 6;
      const QLineF line(start, QPointF(std::clamp(start.x() + Between(-reach, reach), 2.0, 41.0),
                                       std::clamp(start.y() + Between(-reach, reach), 2.0, 29.0)));
      PixelPen(Pixels(picture), qRgb(0, 0, 0), 2).SolidLine(line);
      for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
          ASSERT_NEAR(qRed(picture.pixel(x, y)), Literal(line, x, y), 1) << x << ' ' << y;
        }
      }
    }
  }
}

} // namespace
} // namespace strutwright
