#include "QtShell.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
#include <QStringList>
#include <QUrl>

namespace strutwright {

void QtShell::Open(const std::string& path) {
  const QFileInfo target(QString::fromStdString(path));
  if (!target.exists()) return;
  if (target.isFile() && target.isExecutable()) {
    QProcess::startDetached(target.absoluteFilePath(), {});
  } else {
    QDesktopServices::openUrl(QUrl::fromLocalFile(target.absoluteFilePath()));
  }
}

bool QtShell::Start(const std::string& program, const std::vector<std::string>& arguments) {
  QStringList texts;
  for (const std::string& each : arguments) texts << QString::fromStdString(each);
  return QProcess::startDetached(QString::fromStdString(program), texts);
}

} // namespace strutwright
