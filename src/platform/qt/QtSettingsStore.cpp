#include "QtSettingsStore.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QStandardPaths>

namespace strutwright {

namespace {

QString FileOfProgram() {
  const QString name = QFileInfo(QCoreApplication::applicationFilePath()).completeBaseName();
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + '/' + name + ".ini";
}

QString FullKey(const std::string& section, const std::string& key) {
  return QString::fromStdString(section) + '/' + QString::fromStdString(key);
}

} // namespace

QtSettingsStore::QtSettingsStore() : QtSettingsStore(FileOfProgram()) {}

QtSettingsStore::QtSettingsStore(const QString& file) : File(file, QSettings::IniFormat) {}

void QtSettingsStore::Refresh() { File.sync(); }

/// A text that somebody has written into the file by hand, with a comma in it, reads as a list.
std::string QtSettingsStore::Get(const std::string& section, const std::string& key, const std::string& fallback) {
  const QVariant text = File.value(FullKey(section, key));
  if (!text.isValid()) return fallback;
  if (text.typeId() == QMetaType::QStringList) return text.toStringList().join(", ").toStdString();
  return text.toString().toStdString();
}

void QtSettingsStore::Save(const std::string& section, const std::string& key, const std::string& text) {
  File.setValue(FullKey(section, key), QString::fromStdString(text));
}

void QtSettingsStore::Delete(const std::string& section, const std::string& key) { File.remove(FullKey(section, key)); }

} // namespace strutwright
