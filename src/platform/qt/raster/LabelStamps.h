#pragma once

#include "PixelPen.h"
#include "Stroke.h"

#include <array>
#include <cstddef>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include <QPoint>

class QPainter;

namespace strutwright {

/// Paints a label on its halo; leaves the painter's transformation as it was.
void PaintLabel(QPainter& painter, const LabelStroke& label);

/// Widths of texts, letter by letter: the letters of a label are not set closer for their neighbours' sake, and a
/// large model asks for the width of ten thousand labels.
class LabelWidths {
 public:
  double WidthOf(const std::string& text, int size);

 private:
  std::map<int, std::array<double, 128>> Advances; ///< of the letters of ASCII, for each height of the font
};

/// A label as a small picture: to paint it anew takes a hundred times as long as to copy it.
struct LabelStamp {
  Stamp ink;
  int reach = 0; ///< device pixels from the upper left corner of its picture to the middle, either way
};

/// Keeps the labels that were drawn last.
class LabelStamps {
 public:
  /// The label's picture, which lasts until the next call, and in `corner` where it comes.
  const Stamp& Place(const LabelStroke& label, double ratio, QPoint& corner);

 private:
  using Key = std::tuple<std::string, int, int, QRgb, int, bool>; ///< text, direction in 1/1024, colour, size, box

  double Ratio = 0; ///< of the labels below
  std::map<Key, LabelStamp> Stamps;
};

} // namespace strutwright
