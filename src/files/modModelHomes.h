#pragma once

#include <string>

namespace strutwright {

// Which file each model belongs to that undo and redo may bring back, so that no Save puts one model over another's
// file.  A model comes back with the file name that it had last.  Where another model has been saved over that file
// since, it comes back without one, and Save asks.

/// The model that is open from now on is another one than before.
/// readFrom: the file that it was opened from; empty for one that was begun.
void BeginModel(const std::string& readFrom);

/// Notes that the open model has been saved to CurrentFileName.  Unless it was opened from there, the file now belongs
/// to it alone.
void TakeFileOver();

/// Notes the file name that a model had when it gave way to another one.
void LeaveModel(int number, const std::string& fileName);

/// The file name that a model has when it is brought back; empty when it has none.
std::string FileNameOfModel(int number);

} // namespace strutwright
