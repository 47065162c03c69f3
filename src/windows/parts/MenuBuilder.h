#pragma once

#include <functional>

#include <QAction>
#include <QKeySequence>
#include <QList>
#include <QMenu>

namespace strutwright {

class CommandFrame;

/// Builds the menus of one child window.  Every command first takes a pending edit, and runs inside the guard.
class MenuBuilder {
 public:
  /// owner: the child window, which the menus and their actions belong to.
  MenuBuilder(QWidget& owner, CommandFrame& frame) : Owner(owner), Frame(frame) {}

  /// Adds a menu to the owner's menu bar, or below another menu.
  QMenu* AddMenu(const QString& name, const QString& title);
  QMenu* AddSubmenu(QMenu& menu, const QString& name, const QString& title);

  /// Adds a command.  toolTip: what it does, where the text does not say it.
  QAction* Add(QMenu& menu, const QString& name, const QString& text, const QKeySequence& shortcut,
               std::function<void()> command, const QString& toolTip = {});

  /// The menus of the menu bar that were added, in their order.
  const QList<QMenu*>& Menus() const { return MenuList; }

 private:
  QMenu* NewMenu(const QString& name, const QString& title);

  QWidget& Owner;
  CommandFrame& Frame;
  QList<QMenu*> MenuList;
};

} // namespace strutwright
