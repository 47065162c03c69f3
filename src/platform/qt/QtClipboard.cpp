#include "QtClipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QString>

namespace strutwright {

std::string QtClipboard::Text() { return QGuiApplication::clipboard()->text().toStdString(); }

void QtClipboard::SetText(const std::string& text, const std::string& html) {
  auto* data = new QMimeData; // the clipboard owns it
  data->setText(QString::fromStdString(text));
  if (!html.empty()) data->setHtml(QString::fromStdString(html));
  QGuiApplication::clipboard()->setMimeData(data);
}

} // namespace strutwright
