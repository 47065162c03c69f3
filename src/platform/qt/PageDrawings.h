#pragma once

#include "Paper.h"
#include "Stroke.h"

#include <cstddef>
#include <vector>

#include <QSize>

class QTextDocument;

namespace strutwright {

/// What a picture shows.
struct PictureStrokes {
  QSize size; ///< logical pixels
  std::vector<Stroke> strokes;
};

/// Of more strokes than this a page gets the picture's pixels: the outlines of so many letters would take more room.
inline constexpr std::size_t MaxStrokesOnPage = 4000;

/// Has these pictures of a document painted as strokes, where it shows them: sharp at any size.
/// text: has been set from HTML, and is not laid out yet.
void DrawPictures(QTextDocument& text, const std::vector<PaperPicture>& pictures);

} // namespace strutwright
