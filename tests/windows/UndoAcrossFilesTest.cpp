#include "EditHistory.h"
#include "FakePlatform.h"
#include "FileEvents.h"
#include "FileState.h"
#include "FromEnvironment.h"
#include "MemoryFileSystem.h"
#include "RecentFiles.h"
#include "Utf8Path.h"
#include "modFileCommands.h"
#include "modModelFile.h"
#include "modModelStore.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

enum class Command { OpenA, OpenB, New, SaveAsC, SaveAsA, Edit, Undo, Redo };

constexpr std::array AllCommands{Command::OpenA,   Command::OpenB, Command::New,  Command::SaveAsC,
                                 Command::SaveAsA, Command::Edit,  Command::Undo, Command::Redo};
constexpr int FirstEdit = 10; // what is edited differs from what the files hold

using Commands = std::vector<Command>;

/// How many commands follow each other; STRUTWRIGHT_UNDO_COMMANDS makes it more or fewer.
std::size_t Longest() {
  static const std::size_t longest = std::max(FromEnvironment("STRUTWRIGHT_UNDO_COMMANDS", 6), 1U);
  return longest;
}

/// For readable failures.
std::string Written(const Commands& commands) {
  const std::array<const char*, 8> names{"Open a", "Open b", "New", "Save As c", "Save As a", "edit", "undo", "redo"};
  std::string text;
  for (const Command each : commands) text += std::string(names.at(static_cast<std::size_t>(each))) + ", ";
  return text;
}

/// What belongs where, in so many words: each Open and New begins another model; a model has the name that it had last,
/// and a file belongs to those that were opened from it until another one is saved over it.
class WhatBelongsWhere {
 public:
  /// Nothing is open, and a and b hold a model each.
  WhatBelongsWhere() { Now.text = ""; }

  bool CanUndo() const { return !Past.empty(); }
  bool CanRedo() const { return !Future.empty(); }
  const std::string& Text() const { return Now.text; }

  /// The file that Save writes to; empty where it has to ask.
  std::string Name() const {
    const auto name = Names.find(Now.model);
    return name != Names.end() && Owns(Now.model, name->second) ? name->second : "";
  }

  bool OwnsItsFile() const { return Name().empty() || Owns(Now.model, Name()); }
  const std::map<std::string, std::string>& Files() const { return Contents; }

  void Do(Command command, const std::string& edited) {
    switch (command) {
    case Command::OpenA: return Begin("a", Contents.at("a"), true);
    case Command::OpenB: return Begin("b", Contents.at("b"), true);
    case Command::New: return Begin("newTruss.stw", "", false);
    case Command::SaveAsC: return SaveTo("c");
    case Command::SaveAsA: return SaveTo("a");
    case Command::Edit: return Change({Now.model, edited});
    case Command::Undo: return Step(Past, Future);
    case Command::Redo: return Step(Future, Past);
    }
  }

  void SaveTo(const std::string& file) {
    Contents[file] = Now.text;
    Names[Now.model] = file;
    const bool itsOwn = ReadFrom.contains({Now.model, file}) && Owns(Now.model, file);
    if (!itsOwn) Owners[file] = {Now.model};
  }

 private:
  struct State {
    int model = 0;
    std::string text;
  };

  bool Owns(int model, const std::string& file) const {
    const auto owners = Owners.find(file);
    return owners != Owners.end() && owners->second.contains(model);
  }

  void Begin(const std::string& file, const std::string& text, bool read) {
    if (Name() == file && Now.text == text) return; // it is what is open
    const int model = ++Last;
    Names[model] = file;
    Owners[file].insert(model);
    if (read) ReadFrom.insert({model, file});
    Change({model, text});
  }

  void Change(State next) {
    Past.push_back(Now);
    Future.clear();
    Now = std::move(next);
  }

  void Step(std::vector<State>& from, std::vector<State>& to) {
    to.push_back(Now);
    Now = from.back();
    from.pop_back();
  }

  State Now;
  std::vector<State> Past;
  std::vector<State> Future;
  int Last = 0;
  std::map<int, std::string> Names;
  std::map<std::string, std::set<int>> Owners; ///< the models whose file it is
  std::set<std::pair<int, std::string>> ReadFrom;
  std::map<std::string, std::string> Contents{{"a", "1"}, {"b", "2"}}; ///< the x of node 1, the only one
};

/// Keeps the caption, as the main window does.
class CaptionKeeper : public FileListener {
 public:
  CaptionKeeper() { ListenToFiles(this); }
  ~CaptionKeeper() override { ListenToFiles(nullptr); }
  CaptionKeeper(const CaptionKeeper&) = delete;
  CaptionKeeper& operator=(const CaptionKeeper&) = delete;

  void CaptionChanged(const std::string& text) override { caption = QString::fromStdString(text); }

  QString caption{"Strutwright"};
};

/// All cells are filled, so that the grid reads the same when it comes back from a file.
void PutNode(const std::string& x) {
  if (GrJoints.RowCount() == 1) GrJoints.SetRowCount(2);
  GrJoints.SetText(1, 0, "1");
  for (int column = NodeX; column <= NodeSupport; ++column) GrJoints.SetText(1, column, column == NodeX ? x : "0");
  RebuildModelFromGrids();
}

/// The program that is tested: its file commands and its history, on files in memory.
class RealProgram {
 public:
  RealProgram(MemoryFileSystem& files, FakeFileDialog& dialog) : Files(files), Dialog(dialog) {
    TheModel = ModelState{};
    TheFiles = FileState{};
    TheRecentFiles = RecentFiles{};
    GrJoints.SetColumnCount(6);
    GrMembers.SetColumnCount(6);
    mnuRUF.resize(1);
    Files.files = {{"a", FileWithNodeAt("1")}, {"b", FileWithNodeAt("2")}};
    GrJoints.SetRowCount(1);
    RebuildModelFromGrids();
  }

  static std::string Text() { return NodeCount == 0 ? "" : GrJoints.Text(1, NodeX); }
  QString Caption() const { return Keeper.caption; }

  void Do(Command command, const std::string& edited) {
    switch (command) {
    case Command::OpenA: return Open("a");
    case Command::OpenB: return Open("b");
    case Command::New: return History.Run("New", NewFromMenu);
    case Command::SaveAsC: return SaveAs("c");
    case Command::SaveAsA: return SaveAs("a");
    case Command::Edit: return History.Run("Edit", [&] { PutNode(edited); });
    case Command::Undo: return History.Undo();
    case Command::Redo: return History.Redo();
    }
  }

  /// What a file holds: the x of its node 1.
  std::string Held(const std::string& file) {
    const StoredModel model = ReadModel(Files.files.at(file));
    return model.nodeCount == 0 ? "" : std::to_string(static_cast<int>(model.nodes(1, NodeX)));
  }

 private:
  static std::string FileWithNodeAt(const std::string& x) {
    PutNode(x);
    return WriteModel();
  }

  void Open(const std::string& file) {
    Dialog.WillChoose(file);
    History.Run("Open", OpenFromMenu);
  }

  void SaveAs(const std::string& file) {
    Dialog.WillChoose(file);
    SaveAsFromMenu();
  }

  MemoryFileSystem& Files;
  FakeFileDialog& Dialog;
  CaptionKeeper Keeper;
  EditHistory History{Keeper.caption};
};

class UndoAcrossFilesTest : public PlatformTest, public testing::WithParamInterface<Command> {
 protected:
  UndoAcrossFilesTest() {
    ThePlatform().files = &files;
    ThePlatform().programFolder = "/program";
  }
  ~UndoAcrossFilesTest() override {
    TheModel = ModelState{};
    TheFiles = FileState{};
    TheRecentFiles = RecentFiles{};
  }

  static std::string PlainName(const std::string& path) { return path.substr(path.find_last_of("\\/") + 1); }

  /// Does the commands in the program and in the plain model, compares them after each, and saves at the end.
  void Run(const Commands& commands) {
    RealProgram program(files, dialog);
    WhatBelongsWhere plain;
    int edits = FirstEdit;
    for (const Command each : commands) {
      const std::string edited = std::to_string(++edits);
      program.Do(each, edited);
      plain.Do(each, edited);
      ASSERT_EQ(RealProgram::Text(), plain.Text()) << Written(commands);
      ASSERT_EQ(PlainName(CurrentFileName), plain.Name()) << Written(commands);
    }
    Save(program, plain);
    for (const auto& [file, text] : plain.Files()) {
      const std::string path = file == "newTruss.stw" ? Utf8Of(PathOf("/program") / PathOf(file)) : file;
      ASSERT_EQ(program.Held(path), text) << file << " after " << Written(commands) << "Save";
    }
    dialog.shown.clear();
    ++sequences;
  }

  /// Without a name, Save asks for one.
  void Save(RealProgram& program, WhatBelongsWhere& plain) {
    const bool asks = plain.Name().empty();
    if (asks) dialog.WillChoose("d");
    SaveFromMenu();
    plain.SaveTo(asks ? "d" : plain.Name());
    ASSERT_EQ(dialog.UnusedAnswers(), 0U);
    ASSERT_EQ(program.Caption().toStdString(), PlainName(CurrentFileName));
  }

  /// Every order that goes on from these commands, up to the longest, without an undo or a redo that has nothing to do.
  void RunAll(const Commands& begun) {
    if (begun.size() >= Longest()) return Run(begun);
    WhatBelongsWhere plain;
    int edits = FirstEdit;
    for (const Command each : begun) plain.Do(each, std::to_string(++edits));
    for (const Command next : AllCommands) {
      if (next == Command::Undo && !plain.CanUndo()) continue;
      if (next == Command::Redo && !plain.CanRedo()) continue;
      Commands longer = begun;
      longer.push_back(next);
      RunAll(longer);
      if (HasFatalFailure()) return;
    }
  }

  MemoryFileSystem files;
  int sequences = 0;
};

TEST_P(UndoAcrossFilesTest, NeverLetsASavePutOneModelOverAnothersFile) {
  RunAll({GetParam()});
  // Six of the commands can always follow.
  EXPECT_GE(sequences, std::pow(6, Longest() - 1));
}

std::string NameOf(const testing::TestParamInfo<Command>& info) {
  const std::array<const char*, 6> names{"OpenA", "OpenB", "New", "SaveAsC", "SaveAsA", "Edit"};
  return names.at(static_cast<std::size_t>(info.param));
}

// Nothing can be undone or redone at first.
INSTANTIATE_TEST_SUITE_P(AfterFirst, UndoAcrossFilesTest,
                         testing::Values(Command::OpenA, Command::OpenB, Command::New, Command::SaveAsC,
                                         Command::SaveAsA, Command::Edit),
                         NameOf);

} // namespace
} // namespace strutwright
