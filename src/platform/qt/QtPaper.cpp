#include "QtPaper.h"

#include "FileSystem.h"
#include "PageDrawings.h"
#include "PaperPages.h"
#include "PictureFile.h"
#include "QtDrawingSurface.h"

#include <memory>
#include <string_view>

#include <QBuffer>
#include <QDateTime>
#include <QEventLoop>
#include <QImage>
#include <QPdfWriter>

namespace strutwright {

namespace {

constexpr double PixelsInPrint = 3;    // for a logical one
constexpr int DotsPerMeter = 3 * 3780; // of a picture, so that its bytes are the same on every screen
constexpr std::size_t DateDigits = 14; // year to second
constexpr int Resolution = 600;        // of a page, dots an inch

/// Puts the date that SOURCE_DATE_EPOCH names, in seconds since 1970, in the place of today's, so that the same
/// document has the same bytes on another day.  Without it the date stays.
void TakeSourceDate(std::string& pdf) {
  constexpr std::string_view key = "/CreationDate (D:";
  bool isNumber = false;
  const qint64 seconds = qEnvironmentVariable("SOURCE_DATE_EPOCH").toLongLong(&isNumber);
  const std::size_t at = pdf.find(key);
  const std::size_t end = pdf.find(')', at);
  if (!isNumber || at == std::string::npos || end == std::string::npos) return;
  const QString date = QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC).toString(QStringLiteral("yyyyMMddHHmmss"));
  // Places in the file are counted from its beginning: the date keeps its length.
  const std::size_t length = end - at - key.size();
  const std::string text = date.toStdString() + (length == DateDigits + 1 ? "Z" : "+00'00'");
  if (text.size() == length) pdf.replace(at + key.size(), length, text);
}

/// Without colours where it has none: a third of the bytes, made in a third of the time.
QImage Slim(const QImage& image) { return image.allGray() ? image.convertToFormat(QImage::Format_Grayscale8) : image; }

} // namespace

PaperPicture QtPaper::Picture(int width, int height, const std::function<void(DrawingSurface&)>& draw) {
  QtDrawingSurface surface(width, height, PixelsInPrint);
  draw(surface);
  QImage image = Slim(surface.Image());
  image.setDotsPerMeterX(DotsPerMeter);
  image.setDotsPerMeterY(DotsPerMeter);
  PaperPicture picture{ImageBytes(image, "PNG").toStdString()};
  if (surface.Drawn().size() <= MaxStrokesOnPage) {
    picture.strokes = std::make_shared<PictureStrokes>(PictureStrokes{QSize(width, height), surface.Drawn()});
  }
  return picture;
}

std::string QtPaper::Pdf(const PaperDocument& document) {
  const QEventLoop timers; // which a text starts, also on a thread that has none
  QBuffer file;
  if (!file.open(QIODevice::WriteOnly)) throw FileError("The pages could not be made");
  QPdfWriter writer(&file);
  writer.setPageLayout(LayoutOf(document));
  writer.setResolution(Resolution);
  writer.setTitle(QString::fromStdString(document.title));
  writer.setCreator(QStringLiteral("Strutwright"));
  PaintPages(document, writer);
  std::string pdf = file.data().toStdString();
  TakeSourceDate(pdf);
  return pdf;
}

} // namespace strutwright
