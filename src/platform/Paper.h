#pragma once

#include "DrawingSurface.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace strutwright {

/// What a picture shows, as only the paper that made it knows.
struct PictureStrokes;

/// A picture in documents.
struct PaperPicture {
  std::string png;                                         ///< its bytes, fine enough for print
  std::shared_ptr<const PictureStrokes> strokes = nullptr; ///< what pages show in its place, sharp at any size
};

/// A document to read or to print: HTML of the plain kind that QTextDocument knows, its pictures inside it.
struct PaperDocument {
  std::string title; ///< plain text, UTF-8
  std::string html;
  bool landscape = false;                  ///< its pages lie on their side
  std::vector<PaperPicture> pictures = {}; ///< those of the HTML that pages show as strokes
};

/// Makes documents without a desktop: the same on every screen.  Each routine throws FileError when it fails.
class Paper {
 public:
  virtual ~Paper() = default;

  /// A PNG picture of what `draw` draws on a white surface of this size, in logical pixels.
  virtual PaperPicture Picture(int width, int height, const std::function<void(DrawingSurface&)>& draw) = 0;

  /// The bytes of a PDF file: pages of A4, upright or on their side, numbered.
  virtual std::string Pdf(const PaperDocument& document) = 0;
};

/// The desktop's printers.
class Printers {
 public:
  virtual ~Printers() = default;

  /// Asks the user where to print and prints.  False when the user cancelled.  Throws FileError.
  virtual bool Print(const PaperDocument& document) = 0;
};

} // namespace strutwright
