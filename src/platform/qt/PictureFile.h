#pragma once

#include <functional>
#include <string>

class QByteArray;
class QImage;
class QPainter;
class QSize;

namespace strutwright {

/// Writes a picture: PNG for ".png", SVG for ".svg", a bitmap for every other name.
/// image: the picture's pixels; size: its size in logical pixels; paint: paints it anew, for SVG.
/// A failure throws FileError and leaves an older file as it was, unless its folder takes no second file.
void WritePicture(const std::string& path, const QImage& image, const QSize& size,
                  const std::function<void(QPainter&)>& paint);

/// The bytes of a picture file.  format: "PNG" or "BMP".  Throws FileError.
QByteArray ImageBytes(const QImage& image, const char* format);

} // namespace strutwright
