#pragma once

#include "FileDialog.h"
#include "FileSystem.h"
#include "Host.h"
#include "MessageBoxes.h"

#include <string>

namespace strutwright {

/// Everything that the program asks of a desktop.  main() or a test fixture fills it; nothing here is owned.
struct Platform {
  MessageBoxes* messages = nullptr;
  Host* host = nullptr;
  FileSystem* files = nullptr;
  FileDialog* dialog = nullptr;
  std::string programFolder = {}; ///< where the executable lies; empty in a program that keeps no files of its own
  std::string dataFolder = {};    ///< where the user's programs keep files; need not exist
};

/// The one platform of the process, filled before the first call into any floor above.
Platform& ThePlatform();

MessageBoxes& Messages();
Host& TheHost();
FileSystem& Files();
FileDialog& TheFileDialog();
const std::string& ProgramFolder();
const std::string& DataFolder();

/// Shows a box with an OK button under the program's title.
void ShowMessage(MessageIcon icon, const std::string& text);

/// True while ShowMessage shows a box: what is drawn meanwhile, under it, must not show another one.
bool MessageIsOpen();

} // namespace strutwright
