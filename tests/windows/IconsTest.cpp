#include "Icons.h"
#include "FormFixture.h"

#include <string>

#include <QAction>
#include <QColor>
#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <QToolBar>

namespace strutwright {
namespace {

class IconsTest : public FormTest {
 protected:
  /// Its width in device pixels, where it shall be so many logical ones wide.
  static int WidthOf(const QIcon& icon, int width, double ratio) {
    return icon.pixmap(QSize(width, width), ratio).toImage().width();
  }

  static bool IsDrawn(const QIcon& icon, int width) {
    const QImage image = icon.pixmap(QSize(width, width), 1).toImage();
    bool drawn = false;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) drawn = drawn || image.pixelColor(x, y).alpha() > 127;
    }
    return drawn && image.pixelColor(0, 0).alpha() < 255;
  }
};

TEST_F(IconsTest, OfTheToolBarAreSharpOnEveryUsualScreen) {
  const auto& bar = Find<QToolBar>("Toolbar1");
  const int width = bar.iconSize().width();
  for (const QAction* action : bar.actions()) {
    if (action->isSeparator()) continue;
    SCOPED_TRACE(action->toolTip().toStdString());
    EXPECT_TRUE(IsDrawn(action->icon(), width));
    for (const double ratio : {1.0, 1.25, 1.5, 2.0, 3.0}) {
      EXPECT_EQ(WidthOf(action->icon(), width, ratio), width * ratio) << ratio;
    }
  }
}

TEST_F(IconsTest, OfTheProgramsHaveTheSizesOfFramesAndListsOfWindows) {
  for (const char* name : {"strutwright", "bracefold"}) {
    for (const int width : {16, 18, 24, 32, 48, 64, 128}) {
      EXPECT_EQ(WidthOf(IconNamed(name), width, 1), width) << name;
      EXPECT_TRUE(IsDrawn(IconNamed(name), width)) << name << ' ' << width;
    }
  }
  EXPECT_EQ(frame->windowIcon().availableSizes(), IconNamed("strutwright").availableSizes());
}

TEST_F(IconsTest, OfNoSuchNameAreNone) { EXPECT_TRUE(IconNamed("strut").isNull()); }

} // namespace
} // namespace strutwright
