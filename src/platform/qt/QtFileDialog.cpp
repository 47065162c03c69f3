#include "QtFileDialog.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>

namespace strutwright {

QStringList QtFileDialog::NameFilters(const QString& filter) {
  QStringList filters;
  const QStringList parts = filter.split('|');
  for (qsizetype part = 0; part + 1 < parts.size(); part += 2) {
    const QString pattern = parts[part + 1] == "*.*" ? "*" : parts[part + 1];
    filters << parts[part] + " (" + pattern + ")";
  }
  return filters;
}

QString QtFileDialog::StartFolder() const {
  QString initial = QString::fromStdString(initialFolder);
  if (!initial.isEmpty() && QDir(initial).exists()) return initial;
  if (!LastFolder.isEmpty() && QDir(LastFolder).exists()) return LastFolder;
  // Not every user has a folder for documents; the dialog would take a missing one for the name of a file.
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  return QDir(documents).exists() ? documents : QDir::homePath();
}

bool QtFileDialog::ShowOpen() { return Show(false); }

bool QtFileDialog::ShowSave() { return Show(true); }

bool QtFileDialog::Show(bool save) {
  QFileDialog dialog(QApplication::activeWindow(), QString::fromStdString(title), StartFolder());
  dialog.setObjectName("FileDialog");
  dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode((flags & FileMustExist) != 0 ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
  dialog.setOption(QFileDialog::DontConfirmOverwrite, (flags & OverwritePrompt) == 0);
  dialog.setNameFilters(NameFilters(QString::fromStdString(filter)));
  if (save) dialog.setDefaultSuffix(QString::fromStdString(defaultExtension));
  const QFileInfo last(QString::fromStdString(fileName));
  if (!fileName.empty() && last.dir().exists()) dialog.selectFile(last.filePath());
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return false;
  const QString chosen = QDir::toNativeSeparators(dialog.selectedFiles().first());
  LastFolder = QFileInfo(chosen).absolutePath();
  fileName = chosen.toStdString();
  return true;
}

} // namespace strutwright
