#pragma once

#include <QTimer>
#include <QUndoStack>

namespace strutwright {

/// Keeps the model in its recovery file a few seconds after each change.
class RecoveryKeeper {
 public:
  /// owner: the window, under which the timer is found.  steps: every step, undone ones too, is a change.
  RecoveryKeeper(QObject& owner, const QUndoStack& steps);

  /// Says that there may be something to keep.  What follows within the next seconds is kept together with it.
  void NoteChange();

  /// Keeps the model as it is now; nothing is waited for any more.
  void KeepNow();

  /// Says in the status bar, at the start of the program, that the last run left something to restore.
  static void ShowWhatWasLeft();

 private:
  void Tick();

  QTimer Timer;
};

} // namespace strutwright
