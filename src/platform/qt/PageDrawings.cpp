#include "PageDrawings.h"

#include <cstring>
#include <memory>
#include <utility>

#include <QAbstractTextDocumentLayout>
#include <QByteArray>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace strutwright {

namespace {

constexpr int StrokesObject = QTextFormat::UserObject;
constexpr int StrokesIndex = QTextFormat::UserProperty; ///< of a picture's strokes

/// Stands in for what Qt itself does with images.
class StrokesOnPage : public QObject, public QTextObjectInterface {
 public:
  using QObject::QObject;

  /// Qt asks by the interface's name.
  void* qt_metacast(const char* name) override {
    return std::strcmp(name, qobject_interface_iid<QTextObjectInterface*>()) == 0
               ? static_cast<QTextObjectInterface*>(this)
               : QObject::qt_metacast(name);
  }

  /// As large as the image: its pixels are those of the screen.
  QSizeF intrinsicSize(QTextDocument* text, int /*place*/, const QTextFormat& format) override {
    const QSizeF size(format.doubleProperty(QTextFormat::ImageWidth), format.doubleProperty(QTextFormat::ImageHeight));
    return size * text->documentLayout()->paintDevice()->logicalDpiY() /
           qRound(QGuiApplication::primaryScreen()->logicalDotsPerInchY());
  }

  void drawObject(QPainter* painter, const QRectF& place, QTextDocument* /*text*/, int /*place*/,
                  const QTextFormat& format) override {
    const PictureStrokes& picture = *Pictures.at(static_cast<std::size_t>(format.intProperty(StrokesIndex)));
    painter->save();
    painter->setClipRect(place, Qt::IntersectClip);
    painter->translate(place.topLeft());
    painter->scale(place.width() / picture.size.width(), place.height() / picture.size.height());
    for (const Stroke& stroke : picture.strokes) PaintStroke(*painter, stroke);
    painter->restore();
  }

  std::vector<std::shared_ptr<const PictureStrokes>> Pictures;
};

/// A run of one image in a document, usually of one character.
struct ImageRun {
  int begin;
  int length;
  QTextImageFormat format;
};

std::vector<ImageRun> ImagesOf(const QTextDocument& text) {
  std::vector<ImageRun> images;
  for (QTextBlock block = text.begin(); block.isValid(); block = block.next()) {
    for (auto part = block.begin(); !part.atEnd(); ++part) {
      const QTextFragment run = part.fragment();
      const QTextCharFormat format = run.charFormat();
      if (format.isImageFormat()) images.push_back({run.position(), run.length(), format.toImageFormat()});
    }
  }
  return images;
}

} // namespace

void DrawPictures(QTextDocument& text, const std::vector<PaperPicture>& pictures) {
  const std::vector<ImageRun> images = ImagesOf(text);
  auto* onPage = new StrokesOnPage(&text); // which owns it
  text.documentLayout()->registerHandler(StrokesObject, onPage);
  for (const PaperPicture& picture : pictures) {
    if (picture.strokes == nullptr) continue;
    const QString name = "data:image/png;base64," + QByteArray::fromStdString(picture.png).toBase64();
    for (const ImageRun& image : images) {
      if (image.format.name() != name) continue;
      QTextCharFormat format = image.format;
      format.setObjectType(StrokesObject);
      format.setProperty(StrokesIndex, static_cast<int>(onPage->Pictures.size()));
      QTextCursor run(&text);
      run.setPosition(image.begin);
      run.setPosition(image.begin + image.length, QTextCursor::KeepAnchor);
      run.setCharFormat(format);
    }
    onPage->Pictures.push_back(picture.strokes);
  }
}

} // namespace strutwright
