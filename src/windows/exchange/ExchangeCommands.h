#pragma once

#include <string>

namespace strutwright {

class CommandFrame;

// What the main frame does with other programs' files.

/// Lets the user choose a file, and imports it.
void ImportChosen(CommandFrame& frame);

/// Shows what a file would bring, and puts it in the place of the model, as one step that can be undone, if the user
/// wants that.  A file that can't be imported is refused with a message, and nothing has changed.
void ImportFile(CommandFrame& frame, const std::string& path);

/// Writes the model for another program under a name that the user is asked for.
void ExportFrom(CommandFrame& frame);

/// Imports a file that is dropped on the frame, from now on: one whose name is one to import, unless something else
/// waits for an answer.  The dialog comes once the program that the file is from has gone on.
void ImportDroppedFiles(CommandFrame& frame);

} // namespace strutwright
