#pragma once

#include "Stroke.h"

#include <span>
#include <string>

class QByteArray;
class QImage;
class QSize;

namespace strutwright {

/// Writes a picture: PNG for ".png", SVG for ".svg", a bitmap for every other name.
/// image: the picture's pixels; size: its size in logical pixels; strokes: what it shows, for SVG.
/// A failure throws FileError and leaves an older file as it was, unless its folder takes no second file.
void WritePicture(const std::string& path, const QImage& image, const QSize& size, std::span<const Stroke> strokes);

/// The bytes of a picture file.  format: "PNG" or "BMP".  Throws FileError.
QByteArray ImageBytes(const QImage& image, const char* format);

} // namespace strutwright
