#include "RecentFilesMenu.h"

#include "CommandFrame.h"
#include "RecentFiles.h"
#include "modFileCommands.h"

#include <QTextDocument>

namespace strutwright {

namespace {

/// The caption with the mark of its key at its beginning; what looks like another one belongs to the path.
QString MenuText(const std::string& caption) {
  const QString text = QString::fromStdString(caption);
  return text.left(1) + text.mid(1).replace('&', "&&").replace('\t', ' ');
}

} // namespace

RecentFilesMenu::RecentFilesMenu(QMenu& menu, QWidget& owner, CommandFrame& frame)
    : QObject(&menu), Menu(menu), Owner(owner), Frame(frame) {
  mnuBar3 = AddSeparator("mnuBar3");
  mnuBar4 = AddSeparator("mnuBar4");
  Refresh();
}

QAction* RecentFilesMenu::AddSeparator(const QString& name) {
  QAction* separator = Menu.addSeparator();
  separator->setObjectName(name);
  return separator;
}

void RecentFilesMenu::Refresh() {
  mnuBar3->setVisible(TheRecentFiles.mnuBar3);
  mnuBar4->setVisible(TheRecentFiles.mnuBar4);
  const auto count = static_cast<qsizetype>(mnuRUF.size());
  while (Entries.size() < count) AddEntry();
  while (Entries.size() > count) RemoveEntry();
  for (qsizetype place = 0; place < count; ++place) {
    const RecentFileEntry& entry = mnuRUF.at(static_cast<std::size_t>(place));
    QAction& action = *Entries.at(place);
    const QString path = QString::fromStdString(entry.tag);
    action.setText(MenuText(entry.caption));
    action.setData(path);
    action.setToolTip(Qt::mightBeRichText(path) ? path.toHtmlEscaped() : path);
    action.setVisible(entry.visible);
    action.setEnabled(!entry.tag.empty());
  }
}

void RecentFilesMenu::AddEntry() {
  const int index = static_cast<int>(Entries.size()) + 1;
  auto* action = new QAction(&Owner);
  action->setObjectName("mnuRUF_" + QString::number(index));
  connect(action, &QAction::triggered, &Owner, [&frame = Frame, index] {
    frame.Run([&frame, index] { frame.Edit("Open", [index] { OpenRecentFile(index); }); });
  });
  Menu.insertAction(mnuBar4, action);
  Entries << action;
}

/// The entry may be the one that was chosen and still at work.
void RecentFilesMenu::RemoveEntry() {
  QAction* action = Entries.takeLast();
  Menu.removeAction(action);
  action->setObjectName({});
  action->deleteLater();
}

} // namespace strutwright
