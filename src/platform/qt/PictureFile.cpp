#include "PictureFile.h"

#include "FileSystem.h"
#include "PathSpelling.h"
#include "SvgPicture.h"

#include <system_error>

#include <QBuffer>
#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QSaveFile>
#include <QString>

namespace strutwright {

namespace {

/// Windows has words of its own, in its user's language, for a folder that is not there.
[[noreturn]] void ThrowReason(const QFileDevice& file) {
  if (HasBackslashPaths && !QFileInfo(file.fileName()).absoluteDir().exists()) {
    throw FileError(std::make_error_code(std::errc::no_such_file_or_directory));
  }
  throw FileError(file.errorString().toStdString());
}

void WriteAll(QFileDevice& file, const QByteArray& bytes) {
  if (!file.open(QIODevice::WriteOnly)) ThrowReason(file);
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

void WritePicture(const std::string& path, const QImage& image, const QSize& size, std::span<const Stroke> strokes) {
  const QString name = QString::fromStdString(path);
  const auto endsWith = [&](const char* ending) { return name.endsWith(QLatin1String(ending), Qt::CaseInsensitive); };
  if (endsWith(".svg")) return WriteBytes(name, QByteArray::fromStdString(SvgPicture(strokes, size)));
  WriteBytes(name, ImageBytes(image, endsWith(".png") ? "PNG" : "BMP"));
}

} // namespace strutwright
