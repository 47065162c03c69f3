#pragma once

#include <functional>
#include <string>

namespace strutwright {

// The commands of the File menu and the picture export, as the menus, the toolbar and the analysis call them.
// The commands ask, and show messages and failures, themselves; only newModel and writeScratchCopy throw.

/// Save (asSave) or Save As (not asSave) of the model as the grids hold it; Save without a CurrentFileName is Save As.
/// A dialog closed without a name says "Please Name a File" and asks again, and what that wrote is written once more;
/// where the second dialog is cancelled, saving to no name fails.  A dialog cancelled at once changes nothing.
/// Results of a current analysis stay, but the file gets zeros in member fields 6 to 9.
/// A failure shows "Error while saving file ", the name and the reason.
void saveModel(bool asSave);

/// Opens a model file: its model becomes the open one and stands in the data grids, and the window starts afresh.
/// fileName: empty asks the user, who may cancel; nothing has changed then.
/// Values that the file does not hold, or that are not finite, are read as zero and shown in a message.
/// A file that can't be read shows "Unkown error while opening file " and its name; the open model then stays,
/// and CurrentFileName is emptied.
/// A file that was opened takes the top of the recent files.
/// Returns whether a model was opened; `reason`, where given, takes the description of a failure.
bool openModel(const std::string& fileName, std::string* reason = nullptr);

/// The same for a file of the program itself, which takes no place among the recent files.
/// fileName: not empty.
bool OpenUnlisted(const std::string& fileName);

/// Opens an entry of the recent files under its name, also an example: only OpenExample leaves a model without one.
/// The entry moves to the top of the list first, whether or not it can be opened.
/// index: from 1, of an entry that exists.
void OpenRecentFile(int index);

/// Empties the model and the grids, which get GridCapacity rows.  Save then writes to newTruss.stw among the
/// program's own files without asking, on purpose: a new model can be kept without thinking of a name.
void newModel();

/// Saves a drawing under a name that the user is asked for, with the same second chance as saveModel.
/// A failure shows "Error while saving file ", the name and the reason.
/// save: writes it to a path; may throw FileError.
void savePicture(const std::function<void(const std::string& path)>& save);

/// Writes the model to temp_truss.stw among the program's own files and reads it back, which also sizes the tables to
/// the counts.  Another running copy of the program waits meanwhile, so that neither reads the other's model.
/// Throws FileError, whose text begins with the file's path; the tables are then as they were.
void writeScratchCopy();

/// The menus' and the toolbar's Save and Save As: the grids are taken in before anything else.
void SaveFromMenu();
void SaveAsFromMenu();

/// The menus' Open.  The capacity comes from the file; where the user cancels, it stays 0.
void OpenFromMenu();

/// The same for a file whose name is known already.
/// fileName: full path; empty asks for it.
void OpenNamed(const std::string& fileName);

/// The display's New: the grids keep their header rows alone and grow with the model.
void NewFromMenu();

/// Shows "Error while saving file ", the file's name and the reason.
void ReportSaveFailure(const std::string& fileName, const std::string& reason);

} // namespace strutwright
