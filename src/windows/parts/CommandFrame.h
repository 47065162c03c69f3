#pragma once

#include <functional>

#include <QMainWindow>

namespace strutwright {

/// The main frame as its dialogs know it: the window that runs their commands.
class CommandFrame : public QMainWindow {
 public:
  /// Runs a command inside the guard, after it has taken a pending edit of a cell.
  virtual void Run(const std::function<void()>& command) = 0;

  /// Runs a command that may change the model, as one step that can be undone.
  /// what: its name, as in "Undo Paste".
  virtual void Edit(const QString& what, const std::function<void()>& command) = 0;
};

} // namespace strutwright
