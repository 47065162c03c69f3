#include "QtFileDialog.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStandardPaths>

namespace strutwright {

namespace {

/// The ending that a filter stands for, "Name (*.ending)"; empty where it stands for any.
QString EndingOf(const QString& filter) {
  static const QRegularExpression ending(R"(\(\*\.(\w+)\)$)");
  return ending.match(filter).captured(1);
}

/// A name without an ending gets that of the kind that the user chooses; where it has one, Qt changes it.
void FollowFilter(QFileDialog& dialog) {
  QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog](const QString& chosen) {
    if (const QString ending = EndingOf(chosen); !ending.isEmpty()) dialog.setDefaultSuffix(ending);
  });
}

} // namespace

QStringList QtFileDialog::NameFilters(const QString& filter) {
  QStringList filters;
  const QStringList parts = filter.split('|');
  for (qsizetype part = 0; part + 1 < parts.size(); part += 2) {
    const QString pattern = parts[part + 1] == "*.*" ? "*" : parts[part + 1];
    filters << parts[part] + " (" + pattern + ")";
  }
  return filters;
}

QString QtFileDialog::StartFolder(const FileQuestion& question) const {
  QString initial = QString::fromStdString(question.initialFolder);
  if (!initial.isEmpty() && QDir(initial).exists()) return initial;
  if (!LastFolder.isEmpty() && QDir(LastFolder).exists()) return LastFolder;
  // Not every user has a folder for documents; the dialog would take a missing one for the name of a file.
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  return QDir(documents).exists() ? documents : QDir::homePath();
}

std::optional<std::string> QtFileDialog::Ask(FileDialogKind kind, const FileQuestion& question) {
  const bool save = kind == FileDialogKind::Save;
  QFileDialog dialog(QApplication::activeWindow(), QString::fromStdString(question.title), StartFolder(question));
  dialog.setObjectName("FileDialog");
  dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode((question.flags & FileMustExist) != 0 ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
  dialog.setOption(QFileDialog::DontConfirmOverwrite, (question.flags & OverwritePrompt) == 0);
  dialog.setNameFilters(NameFilters(QString::fromStdString(question.filter)));
  if (save) dialog.setDefaultSuffix(QString::fromStdString(question.defaultExtension));
  const QFileInfo last(QString::fromStdString(question.fileName));
  if (!question.fileName.empty() && last.dir().exists()) dialog.selectFile(last.filePath());
  // A default extension that is no kind of the filter is added to every name that has none.
  if (save && EndingOf(dialog.nameFilters().value(0)) == dialog.defaultSuffix()) FollowFilter(dialog);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  const QString chosen = QDir::toNativeSeparators(dialog.selectedFiles().first());
  LastFolder = QFileInfo(chosen).absolutePath();
  return chosen.toStdString();
}

} // namespace strutwright
