#include "MenuBuilder.h"

#include "CommandFrame.h"

#include <utility>

namespace strutwright {

QMenu* MenuBuilder::AddMenu(const QString& name, const QString& title) {
  MenuList << NewMenu(name, title);
  return MenuList.last();
}

QMenu* MenuBuilder::NewMenu(const QString& name, const QString& title) {
  auto* menu = new QMenu(title, &Owner);
  menu->setObjectName(name);
  menu->setToolTipsVisible(true);
  return menu;
}

QMenu* MenuBuilder::AddSubmenu(QMenu& menu, const QString& name, const QString& title) {
  QMenu* submenu = NewMenu(name, title);
  menu.addMenu(submenu);
  return submenu;
}

QAction* MenuBuilder::Add(QMenu& menu, const QString& name, const QString& text, const QKeySequence& shortcut,
                          std::function<void()> command, const QString& toolTip) {
  auto* action = new QAction(text, &Owner);
  action->setObjectName(name);
  action->setShortcut(shortcut);
  if (!toolTip.isEmpty()) action->setToolTip(toolTip);
  QObject::connect(action, &QAction::triggered, &Owner,
                   [&frame = Frame, command = std::move(command)] { frame.Run(command); });
  menu.addAction(action);
  return action;
}

} // namespace strutwright
