#include "QtFixture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>

namespace strutwright {
namespace {

/// Pixels in which two pictures differ by more than antialiasing explains; all of them when the sizes differ.
int DifferingPixels(const QImage& first, const QImage& second) {
  constexpr int Tolerance = 64;
  if (first.size() != second.size()) return first.width() * first.height();
  int count = 0;
  for (int y = 0; y < first.height(); ++y) {
    for (int x = 0; x < first.width(); ++x) {
      const QColor a = first.pixelColor(x, y);
      const QColor b = second.pixelColor(x, y);
      const int most =
          std::max({std::abs(a.red() - b.red()), std::abs(a.green() - b.green()), std::abs(a.blue() - b.blue())});
      if (most > Tolerance) ++count;
    }
  }
  return count;
}

class QtDrawingSurfaceTest : public QtFixture {
 protected:
  /// Where a text of 13 pixels has ink when Qt prints it by itself.
  static QRect InkOfPlainText(const QString& text, const QPoint& corner) {
    QImage image(80, 60, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    QFont font;
    font.setPixelSize(13);
    painter.setFont(font);
    painter.drawText(corner + QPoint(0, qRound(QFontMetricsF(font).ascent())), text);
    painter.end();
    return InkOf(image);
  }

  int ReddishPixels() const {
    int count = 0;
    for (int y = 0; y < 60; ++y) {
      for (int x = 0; x < 80; ++x) count += At(x, y).red() > 200 && At(x, y).green() < 128 ? 1 : 0;
    }
    return count;
  }

  /// Pixels with a letter's ink in a picture that look otherwise on the surface.
  int DifferingInside(const QImage& picture) const {
    int count = 0;
    for (int y = 0; y < 60; ++y) {
      for (int x = 0; x < 80; ++x) {
        const QColor colour = picture.pixelColor(x, y);
        count += colour != Qt::white && std::abs(colour.blue() - At(x, y).blue()) > 40 ? 1 : 0;
      }
    }
    return count;
  }

  /// Compares with a stored picture; STRUTWRIGHT_NEW_PICTURES=1 stores the picture of today instead, to be looked at.
  void ExpectPicture(const std::string& name) const {
    const QString file = QString::fromStdString(std::string(PICTURES_DIR) + "/" + name + ".png");
    if (qEnvironmentVariableIsSet("STRUTWRIGHT_NEW_PICTURES")) surface.Image().save(file);
    EXPECT_LE(DifferingPixels(surface.Image(), QImage(file)), 10) << name;
  }
};

TEST_F(QtDrawingSurfaceTest, IsWhiteAtFirstAndWhenCleared) {
  EXPECT_TRUE(Ink().isEmpty());
  surface.DrawLine(0, 0, 8, 6);
  EXPECT_FALSE(Ink().isEmpty());
  surface.Clear();
  EXPECT_TRUE(Ink().isEmpty());
}

TEST_F(QtDrawingSurfaceTest, DrawsLinesOfItsWidthsAndColours) {
  surface.DrawLine(1, 1, 7, 1);
  surface.SetPenWidth(2);
  surface.SetPenColour(Red);
  surface.DrawLine(1, 2, 7, 5);
  surface.SetPenColour(Blue);
  surface.DrawLine(1, 1, 1, 5);
  ExpectPicture("lines");
}

TEST_F(QtDrawingSurfaceTest, DrawsCirclesAndBoxes) {
  surface.SetPenWidth(2);
  surface.SetPenColour(Green);
  surface.DrawCircle(2, 2, 1);
  surface.DrawBox(4, 1, 7, 3);
  surface.SetFillStyle(FillStyle::Solid);
  surface.SetFillColour(Orange);
  surface.DrawCircle(2, 4.5, 1);
  surface.DrawBox(7, 5.5, 4, 4);
  ExpectPicture("circles_and_boxes");
}

TEST_F(QtDrawingSurfaceTest, DrawsDashedLines) {
  surface.SetLineStyle(LineStyle::Dashed);
  surface.SetPenColour(Grey);
  surface.DrawLine(0, 3, 8, 3);
  surface.DrawLine(4, 0, 4, 6);
  surface.SetPenColour(Red);
  surface.DrawLine(0, 0, 8, 6);
  ExpectPicture("dashed_lines");
}

TEST_F(QtDrawingSurfaceTest, FillsWholePixelsWithAnUprightOrLevelLine) {
  surface.DrawLine(1, 2, 7, 2);
  EXPECT_EQ(At(40, 20), QColor(Qt::black));
  EXPECT_EQ(At(40, 19), QColor(Qt::white));
  EXPECT_EQ(At(40, 21), QColor(Qt::white));
}

TEST_F(QtDrawingSurfaceTest, RestoresWhatItInvertsTwice) {
  surface.SetPenWidth(2);
  surface.DrawCircle(4, 3, 2);
  surface.DrawLine(0, 0, 8, 5.3);
  const QImage before = surface.Image();
  for (const bool again : {false, true}) {
    surface.SetPenMode(PenMode::Invert);
    surface.SetPenColour(Blue);
    surface.DrawBox(1.23, 0.7, 6.1, 5.5);
    surface.DrawLine(0.3, 5.1, 7.7, 1.2);
    EXPECT_EQ(surface.Image() == before, again);
  }
}

TEST_F(QtDrawingSurfaceTest, InvertsWhatLiesUnderThePen) {
  surface.SetPenMode(PenMode::Invert);
  surface.DrawLine(1, 2, 7, 2);
  EXPECT_EQ(At(40, 20), QColor(Qt::black));
  surface.DrawLine(4, 1, 4, 5);
  EXPECT_EQ(At(40, 20), QColor(Qt::white));
}

TEST_F(QtDrawingSurfaceTest, HasMorePixelsOnADenseScreen) {
  surface.Resize(80, 60, 2);
  EXPECT_EQ(surface.Image().size(), QSize(160, 120));
  EXPECT_EQ(surface.PixelWidth(), 80);
  surface.SetPenWidth(2);
  surface.DrawLine(1, 2, 7, 2);
  EXPECT_EQ(InkOf(surface.Image()).top(), 38);
  EXPECT_EQ(InkOf(surface.Image()).height(), 4);
}

TEST_F(QtDrawingSurfaceTest, KeepsCentreAndScaleWhenResized) {
  surface.Resize(160, 30);
  EXPECT_EQ(surface.Window(), (ViewWindow{-4, 1.5F, 16, 3}));
  EXPECT_TRUE(Ink().isEmpty());
}

TEST_F(QtDrawingSurfaceTest, HasAtLeastOnePixel) {
  surface.Resize(0, -5);
  EXPECT_EQ(surface.PixelWidth(), 1);
  EXPECT_EQ(surface.PixelHeight(), 1);
}

TEST_F(QtDrawingSurfaceTest, MapsPixelsAndPoints) {
  surface.SetWindow({-1, 2, 4, 3});
  EXPECT_EQ(surface.ToPixel(1, 3.5), QPointF(40, 30));
  EXPECT_EQ(surface.ToSurface({40, 30}), QPointF(1, 3.5));
}

TEST_F(QtDrawingSurfaceTest, LeavesTheCurrentPointAtTheEndOfALineAndTheCentreOfACircle) {
  surface.DrawLine(1, 2, 3, 4);
  EXPECT_EQ(surface.CurrentX(), 3);
  EXPECT_EQ(surface.CurrentY(), 4);
  surface.DrawCircle(5, 6, 1);
  EXPECT_EQ(surface.CurrentX(), 5);
  EXPECT_EQ(surface.CurrentY(), 6);
}

TEST_F(QtDrawingSurfaceTest, StartsATextAtTheCurrentPoint) {
  surface.MoveTo(1, 2);
  surface.DrawText("12");
  EXPECT_NEAR(Ink().left(), 10, 3);
  EXPECT_GE(Ink().top(), 20);
  EXPECT_LT(Ink().bottom(), 40);
}

TEST_F(QtDrawingSurfaceTest, KeepsTheSizeOfATextWhenZoomed) {
  surface.MoveTo(1, 2);
  surface.DrawText("12");
  const QSize size = Ink().size();
  surface.Clear();
  surface.SetWindow({0, 0, 80, 60});
  surface.MoveTo(10, 20);
  surface.DrawText("12");
  EXPECT_EQ(Ink().size(), size);
}

TEST_F(QtDrawingSurfaceTest, PutsATextOnItsOwnBackgroundOrOnAHalo) {
  surface.SetFillStyle(FillStyle::Solid);
  for (const bool on : {true, false}) {
    surface.DrawBox(0, 0, 8, 6);
    const QColor before = At(11, 21);
    surface.MoveTo(1, 2);
    surface.SetTextAttribute(on);
    surface.SetTextColour(Red);
    surface.DrawText("   l");
    EXPECT_EQ(before, QColor(Qt::black));
    EXPECT_EQ(At(10, 22), QColor(on ? Qt::black : Qt::white)); // away from the letter
  }
}

TEST_F(QtDrawingSurfaceTest, PaintsTheDigitsOfANumberOneAfterTheOtherInItsColour) {
  for (const char* text : {"8", "8-8.8"}) {
    surface.Clear();
    surface.MoveTo(1, 2);
    surface.SetTextColour(Red);
    surface.DrawText(text);
    const QRect plain = InkOfPlainText(text, QPoint(10, 20));
    EXPECT_LE(std::abs(Ink().left() - plain.left()), 1) << text;
    EXPECT_LE(std::abs(Ink().right() - plain.right()), 1) << text;
    EXPECT_LE(std::abs(Ink().top() - plain.top()), 1) << text;
    EXPECT_LE(std::abs(Ink().bottom() - plain.bottom()), 1) << text;
    EXPECT_GT(ReddishPixels(), 0) << text;
  }
}

TEST_F(QtDrawingSurfaceTest, PaintsANumberAsLargeOnADenseScreen) {
  surface.MoveTo(1, 2);
  surface.DrawText("42");
  const QRect ink = Ink();
  for (const double ratio : {1.5, 2.0}) {
    surface.Resize(80, 60, ratio);
    surface.MoveTo(1, 2);
    surface.DrawText("42");
    EXPECT_NEAR(Ink().width(), ink.width() * ratio, 3) << ratio;
    EXPECT_NEAR(Ink().left(), ink.left() * ratio, 3) << ratio;
    EXPECT_NEAR(Ink().top(), ink.top() * ratio, 3) << ratio;
  }
}

TEST_F(QtDrawingSurfaceTest, EndsAHaloInLessThanAQuarterOfAPixel) {
  surface.SetFillStyle(FillStyle::Solid);
  surface.SetFillColour(Black);
  surface.DrawBox(-1, -1, 9, 7);
  surface.SetTextColour({255, 255, 255});
  surface.MoveTo(1, 1);
  surface.DrawText("358.-");
  int white = 0;
  for (int y = 0; y < 60; ++y) {
    for (int x = 0; x < 80; ++x) {
      const int grey = At(x, y).red();
      ASSERT_TRUE(grey < 64 || grey == 255) << x << ' ' << y;
      if (grey == 255) ++white;
    }
  }
  EXPECT_GT(white, 200);
}

TEST_F(QtDrawingSurfaceTest, LaysAHaloAroundANumberButNotOverItsOtherDigits) {
  surface.MoveTo(1, 2);
  surface.DrawText("88");
  const QImage onWhite = surface.Image();
  surface.Clear();
  surface.SetFillStyle(FillStyle::Solid);
  surface.SetFillColour(Orange);
  surface.DrawBox(0, 0, 8, 6);
  surface.MoveTo(1, 2);
  surface.DrawText("88");
  EXPECT_EQ(DifferingInside(onWhite), 0);
}

TEST_F(QtDrawingSurfaceTest, KeepsAPictureThatWasTakenWhileItDrawsOn) {
  surface.DrawLine(1, 1, 7, 1);
  const QImage before = surface.Image();
  const QImage copy = before.copy();
  surface.DrawLine(1, 5, 7, 5);
  EXPECT_EQ(before, copy);
  EXPECT_NE(surface.Image(), before);
}

TEST_F(QtDrawingSurfaceTest, DrawsNothingThatHasNoPlace) {
  const double NaN = std::numeric_limits<double>::quiet_NaN();
  for (const double x : {NaN, std::numeric_limits<double>::infinity()}) {
    surface.DrawLine(0, 0, x, 0);
    surface.DrawBox(x, 0, 1, x);
    surface.DrawCircle(x, 0, 1);
    surface.DrawCircle(0, 0, x);
    surface.MoveTo(x, x);
    surface.DrawText("text");
  }
  EXPECT_TRUE(Ink().isEmpty());
}

TEST_F(QtDrawingSurfaceTest, SurvivesAnyWindow) {
  const float NaN = std::numeric_limits<float>::quiet_NaN();
  const std::array<ViewWindow, 5> windows{
      {{4, 2, 0, 0}, {NaN, NaN, NaN, NaN}, {1e30F, 1e30F, 1, 1}, {0, 0, 1e-30F, 1e-30F}, {-3e38F, 0, 3e38F, 3e38F}}};
  surface.SetLineStyle(LineStyle::Dashed);
  for (const ViewWindow& window : windows) {
    surface.SetWindow(window);
    for (const double x : {0.0, 1.0, 1e30, -1e300}) {
      surface.DrawLine(-x, 1, x, 2);
      surface.DrawBox(-x, -x, x, x);
      surface.DrawCircle(x, x, 0.1);
      surface.DrawCircle(0, 0, x);
      surface.MoveTo(x, x);
      surface.DrawText("text");
    }
  }
  EXPECT_EQ(surface.Image().size(), QSize(80, 60));
}

TEST_F(QtDrawingSurfaceTest, DrawsTheVisiblePartOfALineThatComesFromFarAway) {
  for (const double far : {1e5, 1e25, 1e30, 3e37}) {
    for (const LineStyle style : {LineStyle::Solid, LineStyle::Dashed}) {
      surface.Clear();
      surface.SetLineStyle(style);
      surface.DrawLine(4, -far, 4, 1.1 * far);
      surface.DrawLine(-far, 3, 1.3 * far, 3);
      EXPECT_TRUE(Ink().contains(QRect(4, 4, 72, 52))) << far << ": no more than a gap between dashes is missing";
    }
  }
}

TEST_F(QtDrawingSurfaceTest, CutsOffAtItsEdgesWhatHangsOverThem) {
  QtDrawingSurface larger(120, 100);
  larger.SetWindow({-2, -2, 12, 10});
  for (QtDrawingSurface* each : {&surface, &larger}) {
    for (const double x : {-0.33, 3.9, 7.81}) {
      for (const double y : {-0.72, 2.6, 5.23}) {
        each->DrawCircle(x, y, 0.31);
        each->DrawLine(x - 0.43, y - 0.2, x + 0.57, y + 0.9);
        each->MoveTo(x - 0.2, y);
        each->DrawText("-4.8");
      }
    }
  }
  EXPECT_FALSE(Ink().isEmpty());
  EXPECT_TRUE(surface.Image() == larger.Image().copy(20, 20, 80, 60));
}

TEST_F(QtDrawingSurfaceTest, DrawsThePartOfALargeCircleThatIsInSight) {
  surface.DrawCircle(4 - 10000, 3, 10000); // passes upright through the middle
  EXPECT_LE(std::abs(Ink().center().x() - 40), 2);
  EXPECT_EQ(Ink().height(), 60);
  EXPECT_LE(Ink().width(), 4);
}

} // namespace
} // namespace strutwright
