#include "Platform.h"

#include "Ensure.h"

#include <ctime>
#include <iomanip>
#include <sstream>

namespace strutwright {

std::string IconName(MessageIcon icon) {
  switch (icon) {
  case MessageIcon::Information: return "information";
  case MessageIcon::Question: return "question";
  case MessageIcon::Exclamation: return "exclamation";
  case MessageIcon::Critical: return "critical";
  case MessageIcon::None: break;
  }
  return "none";
}

Platform& ThePlatform() {
  static Platform platform;
  return platform;
}

MessageBoxes& Messages() {
  Ensure(ThePlatform().messages != nullptr, "message boxes are set up before they are used");
  return *ThePlatform().messages;
}

FileSystem& Files() {
  Ensure(ThePlatform().files != nullptr, "the file system is set up before it is used");
  return *ThePlatform().files;
}

FileDialog& TheFileDialog() {
  Ensure(ThePlatform().dialog != nullptr, "the file dialog is set up before it is shown");
  return *ThePlatform().dialog;
}

Clipboard& TheClipboard() {
  Ensure(ThePlatform().clipboard != nullptr, "the clipboard is set up before it is used");
  return *ThePlatform().clipboard;
}

Shell& TheShell() {
  Ensure(ThePlatform().shell != nullptr, "the shell is set up before it is used");
  return *ThePlatform().shell;
}

FileTypeRegistry& FileTypes() {
  Ensure(ThePlatform().fileTypes != nullptr, "the register of file types is set up before it is used");
  return *ThePlatform().fileTypes;
}

SettingsStore& Settings() {
  Ensure(ThePlatform().settings != nullptr, "the settings store is set up before it is used");
  return *ThePlatform().settings;
}

Paper& ThePaper() {
  Ensure(ThePlatform().paper != nullptr, "paper is there before it is used");
  return *ThePlatform().paper;
}

Printers& ThePrinters() {
  Ensure(ThePlatform().printers != nullptr, "the printers are set up before they are used");
  return *ThePlatform().printers;
}

std::string LocalDate() {
  const std::time_t now = std::time(nullptr);
  std::ostringstream text;
  text << std::put_time(std::localtime(&now), "%Y-%m-%d");
  return text.str();
}

const std::string& ProgramFolder() {
  Ensure(!ThePlatform().programFolder.empty(), "the program's folder is known before it is used");
  return ThePlatform().programFolder;
}

const std::string& DataFolder() {
  Ensure(!ThePlatform().dataFolder.empty(), "the user's data folder is known before it is used");
  return ThePlatform().dataFolder;
}

namespace {

int openMessages = 0;

/// Counts an open box, also when showing it fails.
class OpenMessage {
 public:
  OpenMessage() { ++openMessages; }
  OpenMessage(const OpenMessage&) = delete;
  OpenMessage& operator=(const OpenMessage&) = delete;
  ~OpenMessage() { --openMessages; }
};

} // namespace

void ShowMessage(MessageIcon icon, const std::string& text) {
  const OpenMessage open;
  Messages().Show({icon, ProgramTitle, text});
}

bool AskQuestion(const std::string& text) {
  const OpenMessage open;
  return Messages().Ask({MessageIcon::Question, ProgramTitle, text});
}

void ShowHint(const std::string& text) {
  if (ThePlatform().hints != nullptr) ThePlatform().hints->ShowHint(text);
}

bool MessageIsOpen() { return openMessages > 0; }

} // namespace strutwright
