#pragma once

#include <QAction>
#include <QList>
#include <QMenu>

namespace strutwright {

class CommandFrame;

/// The recent files in one File menu: an entry each, between two separators.
class RecentFilesMenu : public QObject {
 public:
  /// Adds itself to the end of the menu, which owns it.
  /// owner: the child window, which the entries belong to.
  RecentFilesMenu(QMenu& menu, QWidget& owner, CommandFrame& frame);

  /// Shows the list as it is now.
  void Refresh();

 private:
  QAction* AddSeparator(const QString& name);
  void AddEntry();
  void RemoveEntry();

  QMenu& Menu;
  QWidget& Owner;
  CommandFrame& Frame;
  QAction* mnuBar3 = nullptr;
  QAction* mnuBar4 = nullptr;
  QList<QAction*> Entries;
};

} // namespace strutwright
