#include "QtPaper.h"

#include "FileSystem.h"
#include "PaperPages.h"
#include "PictureFile.h"
#include "QtDrawingSurface.h"

#include <QBuffer>
#include <QPdfWriter>

namespace strutwright {

namespace {

constexpr double PixelsInPrint = 3;    // for a logical one
constexpr int DotsPerMeter = 3 * 3780; // of a picture, so that its bytes are the same on every screen
constexpr int Resolution = 600;        // of a page, dots an inch

} // namespace

std::string QtPaper::Picture(int width, int height, const std::function<void(DrawingSurface&)>& draw) {
  QtDrawingSurface surface(width, height, PixelsInPrint);
  draw(surface);
  QImage image = surface.Image();
  image.setDotsPerMeterX(DotsPerMeter);
  image.setDotsPerMeterY(DotsPerMeter);
  return ImageBytes(image, "PNG").toStdString();
}

std::string QtPaper::Pdf(const PaperDocument& document) {
  QBuffer file;
  if (!file.open(QIODevice::WriteOnly)) throw FileError("The pages could not be made");
  QPdfWriter writer(&file);
  writer.setPageLayout(LayoutOf(document));
  writer.setResolution(Resolution);
  writer.setTitle(QString::fromStdString(document.title));
  writer.setCreator(QStringLiteral("Strutwright"));
  PaintPages(document, writer);
  return file.data().toStdString();
}

} // namespace strutwright
