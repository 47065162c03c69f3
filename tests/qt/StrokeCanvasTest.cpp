#include "QtFixture.h"
#include "Scribble.h"

#include <random>
#include <string>

namespace strutwright {
namespace {

using StrokeCanvasTest = QtFixture;

TEST_F(StrokeCanvasTest, PaintsTheSameWhetherItIsLookedAtAfterEachStrokeOrAtTheEnd) {
  const unsigned seed = std::random_device()();
  SCOPED_TRACE("seed " + std::to_string(seed));
  for (const double ratio : {1.0, 1.5, 4.0}) {
    QtDrawingSurface first(80, 60, ratio); // Qt traces a letter that it has not printed yet a little differently
    QtDrawingSurface watched(80, 60, ratio);
    surface.Resize(80, 60, ratio);
    for (QtDrawingSurface* each : {&first, &surface, &watched}) {
      each->SetWindow({0, 0, 8, 6});
      Scribble scribble(seed);
      for (int i = 0; i < 300; ++i) {
        scribble.DrawOneOn(*each);
        if (each == &watched) watched.Image();
      }
    }
    EXPECT_TRUE(surface.Image() == watched.Image()) << ratio;
  }
}

} // namespace
} // namespace strutwright
