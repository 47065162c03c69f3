#include "QtFixture.h"
#include "RunSeed.h"
#include "Scribble.h"

#include <random>
#include <string>

#include <QSize>

namespace strutwright {
namespace {

using StrokeCanvasTest = QtFixture;

/// Looked at after each stroke, a picture is painted the literal way: nothing that comes later hides anything yet.
void ExpectTheSameAsStrokeByStroke(const QSize& size, double ratio, unsigned seed,
                                   void (Scribble::*draw)(QtDrawingSurface&)) {
  QtDrawingSurface first(size.width(), size.height(), ratio); // Qt traces a letter not printed yet a little differently
  QtDrawingSurface whole(size.width(), size.height(), ratio);
  QtDrawingSurface watched(size.width(), size.height(), ratio);
  for (QtDrawingSurface* each : {&first, &whole, &watched}) {
    each->SetWindow({0, 0, 8, 6});
    Scribble scribble(seed);
    for (int i = 0; i < 300; ++i) {
      (scribble.*draw)(*each);
      if (each == &watched) watched.Image();
    }
    each->Image();
  }
  EXPECT_TRUE(whole.Image() == watched.Image()) << ratio << ' ' << size.width() << " x " << size.height();
}

TEST_F(StrokeCanvasTest, PaintsTheSameWhetherItIsLookedAtAfterEachStrokeOrAtTheEnd) {
  const unsigned seed = RunSeed();
  SCOPED_TRACE("seed " + std::to_string(seed));
  for (const double ratio : {1.0, 1.5, 4.0}) {
    ExpectTheSameAsStrokeByStroke({80, 60}, ratio, seed, &Scribble::DrawOneOn);
  }
}

/// The last ratio has letters that are wider than what can be looked up at a time.
TEST_F(StrokeCanvasTest, LeavesNothingOutThatIsSeenAmongManyNumbers) {
  const unsigned seed = RunSeed();
  SCOPED_TRACE("seed " + std::to_string(seed));
  for (const double ratio : {1.0, 1.25, 2.0, 3.0, 4.0, 6.0}) {
    for (const QSize& size : {QSize(64, 40), QSize(7, 50), QSize(80, 60)}) {
      ExpectTheSameAsStrokeByStroke(size, ratio, seed, &Scribble::DrawSmallOneOn);
    }
  }
}

/// Only the corner of a line looks out from under the numbers in some of these pictures.
TEST_F(StrokeCanvasTest, LeavesNoLineOutOfWhichACornerIsSeen) {
  const unsigned seed = RunSeed();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  const auto between = [&](double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
  };
  QtDrawingSurface watched(40, 30);
  surface.Resize(40, 30);
  for (QtDrawingSurface* each : {&surface, &watched}) each->SetWindow({0, 0, 40, 30});
  for (int scene = 0; scene < 2000; ++scene) {
    for (QtDrawingSurface* each : {&surface, &watched}) each->Clear();
    const double x = between(12, 28);
    const double y = between(10, 20);
    const double dx = between(-4, 4);
    const double dy = between(-4, 4);
    for (QtDrawingSurface* each : {&surface, &watched}) {
      each->SetPenWidth(1 + scene % 3);
      each->DrawLine(x, y, x + dx, y + dy);
    }
    watched.Image();
    for (int number = 0; number < 6; ++number) {
      const double left = x - between(4, 16);
      const double top = y - between(4, 14);
      for (QtDrawingSurface* each : {&surface, &watched}) {
        each->MoveTo(left, top);
        each->DrawText("888");
        if (each == &watched) watched.Image();
      }
    }
    ASSERT_TRUE(surface.Image() == watched.Image()) << scene;
  }
}

} // namespace
} // namespace strutwright
