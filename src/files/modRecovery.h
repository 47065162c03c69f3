#pragma once

namespace strutwright {

// Nothing typed is lost when the program ends without a save, however it ends: while there are changes that are not in
// the model's file, a copy of the model lies in the user's data folder.  Each running copy of the program has a file
// of its own, unsaved-1.stw or a higher number, and holds the lock of unsaved-1.lock; a file whose lock is free was
// left by a run that has ended.  The lock's file stays, because a lock that could be removed would be no lock.
// Where the data folder can't be written, nothing of this works and nobody is held up.

/// Writes the model, as the grids hold it, to this run's recovery file where it is not saved (IsUnsaved) and the file
/// does not hold it yet; removes the file where there is nothing to keep.  Never throws, never shows anything.
/// A file that RestoreUnsavedModel brought, and whose model was neither changed nor saved, is left for another time.
void KeepRecovery();

/// Whether a run that has ended left a recovery file.  Never throws; false where that can't be found out.
bool HasUnsavedModel();

/// Opens the recovery file that was written last among those of the runs that have ended, as a model that has no file
/// name: Save asks for one.  The file is this run's own from then on.  What was open and unsaved is kept, and can be
/// restored in its turn.  A file that can't be read shows the message of openModel, is renamed to damaged-1.stw or a
/// higher number, and nothing else changes.  Without a file a hint says so.
void RestoreUnsavedModel();

} // namespace strutwright
