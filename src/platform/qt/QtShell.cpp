#include "QtShell.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
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

} // namespace strutwright
