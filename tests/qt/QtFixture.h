#pragma once

#include "OffscreenApplication.h"
#include "QtDrawingSurface.h"
#include "ScratchFolder.h"

#include <QColor>
#include <QImage>
#include <QRect>

#include <gtest/gtest.h>

namespace strutwright {

/// A surface of 80 by 60 pixels, ten of them a metre, that shows x 0..8 and y -6..0.
class QtFixture : public testing::Test {
 protected:
  QtFixture() { surface.SetWindow({0, 0, 8, 6}); }

  QColor At(int x, int y) const { return surface.Image().pixelColor(x, y); }

  /// The smallest rectangle that holds all pixels that are not white.
  static QRect InkOf(const QImage& image) {
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (image.pixelColor(x, y) != Qt::white) ink |= QRect(x, y, 1, 1);
      }
    }
    return ink;
  }

  QRect Ink() const { return InkOf(surface.Image()); }

  OffscreenApplication application;
  QtDrawingSurface surface{80, 60};
  ScratchFolder folder;
};

} // namespace strutwright
