#include "RecoveryKeeper.h"

#include "EventGuard.h"
#include "Platform.h"
#include "modRecovery.h"

namespace strutwright {

namespace {

constexpr int Delay = 3000; // ms

} // namespace

RecoveryKeeper::RecoveryKeeper(QObject& owner, const QUndoStack& steps) {
  Timer.setParent(&owner);
  Timer.setObjectName("RecoveryTimer");
  Timer.setSingleShot(true);
  Timer.setInterval(Delay);
  OnSignal(&Timer, &QTimer::timeout, &Timer, [this] { Tick(); });
  OnSignal(&steps, &QUndoStack::indexChanged, &Timer, [this] { NoteChange(); });
}

/// A timer that runs is not started anew: whoever types without a pause would never be kept.
void RecoveryKeeper::NoteChange() {
  if (!Timer.isActive()) Timer.start();
}

void RecoveryKeeper::KeepNow() {
  Timer.stop();
  KeepRecovery();
}

void RecoveryKeeper::ShowWhatWasLeft() {
  if (HasUnsavedModel()) ShowHint("A model was left unsaved: File > Restore Unsaved Model brings it back");
}

/// Under an open box a command may have stopped half-way.
void RecoveryKeeper::Tick() {
  if (MessageIsOpen()) return NoteChange();
  KeepNow();
}

} // namespace strutwright
