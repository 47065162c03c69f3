#pragma once

#include "Clipboard.h"
#include "FakeFileDialog.h"
#include "MessageBoxes.h"
#include "Paper.h"
#include "Platform.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace strutwright {

/// Keeps every box that was shown.
class FakeMessageBoxes : public MessageBoxes {
 public:
  void Show(const Message& message) override { shown.push_back(message); }

  /// Answers from a script.  A question that nobody scripted fails the test and counts as No.
  bool Ask(const Message& question) override;

  void WillAnswer(bool yes) { Script.push_back(yes); }
  std::size_t UnusedAnswers() const { return Script.size(); }

  std::vector<Message> shown; ///< boxes and questions in their order

 private:
  std::deque<bool> Script;
};

/// A clipboard of its own.
class FakeClipboard : public Clipboard {
 public:
  std::string Text() override { return text; }
  void SetText(const std::string& plain, const std::string& table) override {
    text = plain;
    html = table;
  }

  std::string text;
  std::string html;
};

/// Keeps the paths that it was asked to open, and the programs that it was asked to start with their arguments.
class FakeShell : public Shell {
 public:
  void Open(const std::string& path) override { opened.push_back(path); }
  bool Start(const std::string& program, const std::vector<std::string>& arguments) override {
    started.push_back({program});
    started.back().insert(started.back().end(), arguments.begin(), arguments.end());
    return startsPrograms;
  }

  std::vector<std::string> opened;
  std::vector<std::vector<std::string>> started;
  bool startsPrograms = true;
};

/// Keeps the settings in memory.
class FakeSettings : public SettingsStore {
 public:
  void Refresh() override {
    if (elsewhere) elsewhere(*this);
  }
  std::string Get(const std::string& section, const std::string& key, const std::string& fallback) override {
    const auto found = texts.find(section + "/" + key);
    return found == texts.end() ? fallback : found->second;
  }
  void Save(const std::string& section, const std::string& key, const std::string& text) override {
    texts[section + "/" + key] = text;
    written.push_back(section + "/" + key + " = " + text);
  }
  void Delete(const std::string& section, const std::string& key) override {
    texts.erase(section + "/" + key);
    written.push_back(section + "/" + key + " deleted");
  }

  std::map<std::string, std::string> texts;       ///< by "section/key"
  std::vector<std::string> written;               ///< what was saved and deleted, in its order
  std::function<void(FakeSettings&)> elsewhere{}; ///< what another copy of the program has done
};

/// Keeps what was set, a line each: "key = value"; "Announce" where that was called.
class FakeFileTypes : public FileTypeRegistry {
 public:
  bool IsInstalled(const std::string& typeClass, const std::string& extension, const std::string& program) override {
    asked = typeClass + " " + extension + " " + program;
    return installed;
  }
  void SetDefault(const std::string& key, const std::string& value) override { written.push_back(key + " = " + value); }
  void Announce() override { written.emplace_back("Announce"); }

  std::vector<std::string> written;
  bool installed = false; ///< by an installer or a package
  std::string asked;      ///< what IsInstalled was last asked for
};

/// Makes texts that say what they were made of, and keeps what was drawn and printed.
class FakePaper : public Paper, public Printers {
 public:
  PaperPicture Picture(int width, int height, const std::function<void(DrawingSurface&)>& draw) override;
  std::string Pdf(const PaperDocument& document) override { return "%PDF of " + document.title; }
  bool Print(const PaperDocument& document) override;

  std::vector<std::string> drawn;   ///< what can be seen on the last picture, a line each
  std::vector<std::string> printed; ///< the titles
  std::string printFailure;         ///< reason why nothing can be printed; empty when it can
};

/// Keeps what was shown in the status bar, a line each: "ShowHint(...)", "ShowProgress(Solving, 25 %)".
class FakeStatusBar : public Hints, public Progress {
 public:
  explicit FakeStatusBar(std::vector<std::string>& events) : Events(events) {}

  void ShowHint(const std::string& text) override { Events.push_back("ShowHint(" + text + ")"); }
  bool ShowProgress(const std::string& text, double fraction) override;
  void EndProgress() override { Events.emplace_back("EndProgress"); }

  int reportsUntilCancel = -1; ///< how many reports of progress go by before the user cancels; -1: never

 private:
  std::vector<std::string>& Events;
};

/// A platform of stand-ins for one test.  When the test ends, boxes that it did not take with TakeMessages and answers
/// for the file dialog that nothing asked for fail it.
class PlatformTest : public testing::Test {
 protected:
  PlatformTest();
  ~PlatformTest() override;
  PlatformTest(const PlatformTest&) = delete;
  PlatformTest& operator=(const PlatformTest&) = delete;
  void TearDown() override;

  /// The boxes shown since the last call, in their order.
  std::vector<Message> TakeMessages();

  FakeMessageBoxes messages;
  std::vector<std::string> events; ///< what happened outside of boxes, in its order
  FakeStatusBar statusBar{events};
  FakeFileDialog dialog;
  FakeClipboard clipboard;
  FakeShell shell;
  FakeSettings settings;
  FakeFileTypes fileTypes;
  FakePaper paper;
};

/// A box under the program's title, to compare with.
Message Box(MessageIcon icon, const std::string& text);

/// For readable failures.
void PrintTo(const Message& message, std::ostream* out);

} // namespace strutwright
