#include "PixelLoops.h"
#include "PixelPen.h"
#include "QtFixture.h"
#include "RunSeed.h"

#include <algorithm>
#include <cmath>
#include <random>

#include <QColor>
#include <QLineF>

namespace strutwright {
namespace {

class PixelLoopsTest : public QtFixture {
 protected:
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

/// A picture of its own that every loop has painted on, in and out of the picture; the same for the same seed.
QImage PaintedBy(const PixelLoops& loops, const Stamp& stamp, unsigned seed) {
  QImage picture(80, 60, QImage::Format_RGB32);
  picture.fill(Qt::white);
  const Pixels ground(picture, loops);
  std::mt19937 random(seed);
  const auto between = [&](double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
  };
  for (int i = 0; i < 1000; ++i) {
    PixelPen pen(ground, static_cast<QRgb>(random()), between(0.5, 6));
    const QPointF start(between(-20, 100), between(-20, 80));
    const QPointF end(between(-20, 100), between(-20, 80));
    pen.SolidLine({start, end});
    pen.DashedLine({end, start});
    pen.Circle(start, between(0, 12));
    stamp.CopyTo(ground, static_cast<int>(end.x()), static_cast<int>(end.y()));
  }
  return picture;
}

/// Ink of every strength, wider than what is copied at a time.
Stamp ShadedStamp(int width) {
  QImage ink(width, 9, QImage::Format_ARGB32_Premultiplied);
  for (int y = 0; y < ink.height(); ++y) {
    for (int x = 0; x < ink.width(); ++x) ink.setPixel(x, y, qPremultiply(qRgba(200, 20 * y, 90, 255 - 9 * (x + y))));
  }
  return Stamp(ink);
}

TEST_F(PixelLoopsTest, PaintTheSameForEveryProcessor) {
  for (const int width : {5, 8, 13, 16, 21}) {
    const Stamp stamp = ShadedStamp(width);
    EXPECT_TRUE(PaintedBy(FastestLoops(), stamp, seed) == PaintedBy(PlainLoops(), stamp, seed)) << width;
  }
}

TEST_F(PixelLoopsTest, AreTheFastestOnesWhereNobodyAsksForOthers) {
  QImage picture(8, 1, QImage::Format_RGB32);
  EXPECT_EQ(Pixels(picture).loops, &FastestLoops());
  EXPECT_EQ(Pixels(picture, PlainLoops()).loops, &PlainLoops());
}

TEST_F(PixelLoopsTest, CoverOfEachPixelWhatALineCoversOfIt) {
  for (const PixelLoops* loops : {&PlainLoops(), &FastestLoops()}) {
    for (int i = 0; i < 200; ++i) {
      QImage picture(43, 31, QImage::Format_RGB32);
      picture.fill(Qt::white);
      const QPointF start(Between(2, 41), Between(2, 29));
      const double reach = i % 2 == 0 ? 40 : 6;
      const QLineF line(start, QPointF(std::clamp(start.x() + Between(-reach, reach), 2.0, 41.0),
                                       std::clamp(start.y() + Between(-reach, reach), 2.0, 29.0)));
      PixelPen(Pixels(picture, *loops), qRgb(0, 0, 0), 2).SolidLine(line);
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
