#include "ModelSession.h"

#include "AnalysisState.h"
#include "DisplayState.h"
#include "EditingState.h"
#include "Ensure.h"
#include "FileState.h"
#include "Output.h"
#include "Platform.h"
#include "RecentFiles.h"
#include "modFileCommands.h"
#include "modGrids.h"
#include "modModelStore.h"

#include <algorithm>
#include <ostream>
#include <utility>

namespace strutwright {

namespace {

/// Lines of a text joined as sentences are; a line that is none is set off by a semicolon.
std::string OnOneLine(const std::string& text) {
  std::string line;
  for (const char c : text) {
    if (c == '\n' && !line.ends_with('.')) line += ';';
    line += c == '\n' ? ' ' : c;
  }
  return line;
}

} // namespace

ModelSession::ModelSession(std::string file, std::ostream& err) : FileName(std::move(file)), Err(err) {
  Ensure(ThePlatform().messages == nullptr, "one model is open at a time");
  ThePlatform() = {.messages = this, .files = &Disk};
  TheModel = ModelState{};
  TheAnalysis = AnalysisState{};
  TheFiles = FileState{};
  TheRecentFiles = RecentFiles{};
  TheEditing = EditingState{};
  TheDisplay = DisplayState{};
  initGrids();
}

ModelSession::~ModelSession() { ThePlatform() = {}; }

bool ModelSession::Ask(const Message& question) {
  Show(question);
  return false;
}

bool ModelSession::Open(std::istream& in) {
  Disk.SetInput(FileName, in);
  std::string reason;
  Opening = true;
  const bool opened = openModel(FileName, &reason);
  Opening = false;
  if (opened) {
    for (const std::string& remark : Disk.Remarks()) Report(remark);
    for (const Message& message : Messages) Report(message.text);
  } else {
    Report(reason); // which says more than the box does
  }
  return opened;
}

void ModelSession::Report(const std::string& text) {
  Err << OnOneLine(ValidText(FileName)) << ": " << OnOneLine(ValidText(text)) << '\n';
}

void ModelSession::ShowUncaught(const std::string& description) {
  Show({MessageIcon::Critical, ProgramTitle, description});
}

void ModelSession::Show(const Message& message) {
  Messages.push_back(message);
  if (!Opening) Report(message.text);
}

} // namespace strutwright
