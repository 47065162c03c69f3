#pragma once

#include "Clipboard.h"
#include "FileDialog.h"
#include "FileSystem.h"
#include "FileTypeRegistry.h"
#include "Hints.h"
#include "MessageBoxes.h"
#include "Paper.h"
#include "Progress.h"
#include "SettingsStore.h"
#include "Shell.h"

#include <chrono>
#include <string>

namespace strutwright {

/// The date where the user is, as "2026-11-21".
std::string LocalDate();

/// Everything that the program asks of a desktop.  main() or a test fixture fills it; nothing here is owned.
struct Platform {
  MessageBoxes* messages = nullptr;
  FileSystem* files = nullptr;
  FileDialog* dialog = nullptr;
  std::string programFolder = {}; ///< where the executable lies; empty in a program that keeps no files of its own
  std::string dataFolder = {};    ///< where the user's programs keep files; need not exist
  Clipboard* clipboard = nullptr;
  Shell* shell = nullptr;
  SettingsStore* settings = nullptr;     ///< nullptr in a program that keeps no settings
  FileTypeRegistry* fileTypes = nullptr; ///< nullptr in a program that registers no file type
  std::string executable = {};           ///< full path of this program
  std::string icon = {};                 ///< full path of its icon; the file need not exist
  std::chrono::steady_clock::time_point (*now)() = &std::chrono::steady_clock::now;
  Paper* paper = nullptr;
  Printers* printers = nullptr; ///< nullptr in a program that prints nothing
  Hints* hints = nullptr;       ///< nullptr in a program without a status bar
  Progress* progress = nullptr; ///< likewise
  std::string (*today)() = &LocalDate;
};

/// The one platform of the process, filled before the first call into any floor above.
Platform& ThePlatform();

MessageBoxes& Messages();
FileSystem& Files();
FileDialog& TheFileDialog();
Clipboard& TheClipboard();
Shell& TheShell();
SettingsStore& Settings();
FileTypeRegistry& FileTypes();
Paper& ThePaper();
Printers& ThePrinters();
const std::string& ProgramFolder();
const std::string& DataFolder();

/// Shows a box with an OK button under the program's title.
void ShowMessage(MessageIcon icon, const std::string& text);

/// Shows a question with the buttons Yes and No under the program's title; true for Yes.
bool AskQuestion(const std::string& text);

/// Shows a hint where the program has a place for hints.
void ShowHint(const std::string& text);

/// True while ShowMessage or AskQuestion shows a box: what is drawn meanwhile, under it, must not show another one.
bool MessageIsOpen();

} // namespace strutwright
