#include "PictureFile.h"

#include "FileSystem.h"

#include <QBuffer>
#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QSaveFile>
#include <QSvgGenerator>

namespace strutwright {

namespace {

QByteArray SvgBytes(const QSize& size, const std::function<void(QPainter&)>& paint) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  QSvgGenerator generator;
  generator.setOutputDevice(&buffer);
  generator.setSize(size);
  generator.setViewBox(QRect(QPoint(0, 0), size));
  generator.setResolution(96);
  generator.setTitle(QStringLiteral("Strutwright"));
  QPainter painter;
  if (!painter.begin(&generator)) throw FileError("The picture could not be made");
  painter.fillRect(QRect(QPoint(0, 0), size), Qt::white);
  paint(painter);
  painter.end();
  return bytes;
}

void WriteAll(QFileDevice& file, const QByteArray& bytes) {
  if (!file.open(QIODevice::WriteOnly)) throw FileError(file.errorString().toStdString());
  if (file.write(bytes) != bytes.size() || !file.flush()) throw FileError(file.errorString().toStdString());
}

/// A device or a pipe can only be written in place; anything else gets its new content in one step.
void WriteBytes(const QString& path, const QByteArray& bytes) {
  const QFileInfo target(path);
  if (target.exists() && !target.isFile() && !target.isDir()) {
    QFile file(path);
    WriteAll(file, bytes);
    return;
  }
  QSaveFile file(path);
  file.setDirectWriteFallback(true);
  WriteAll(file, bytes);
  if (!file.commit()) throw FileError(file.errorString().toStdString());
}

} // namespace

QByteArray ImageBytes(const QImage& image, const char* format) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  if (!image.save(&buffer, format)) throw FileError("The picture could not be made");
  return bytes;
}

void WritePicture(const std::string& path, const QImage& image, const QSize& size,
                  const std::function<void(QPainter&)>& paint) {
  const QString name = QString::fromStdString(path);
  if (name.endsWith(QStringLiteral(".svg"), Qt::CaseInsensitive)) return WriteBytes(name, SvgBytes(size, paint));
  const bool png = name.endsWith(QStringLiteral(".png"), Qt::CaseInsensitive);
  WriteBytes(name, ImageBytes(image, png ? "PNG" : "BMP"));
}

} // namespace strutwright
