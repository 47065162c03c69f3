#pragma once

#include "AnalysisState.h"
#include "EventsTest.h"
#include "FaultyFileSystem.h"
#include "FileState.h"
#include "ModelBuilder.h"
#include "NativeFileSystem.h"
#include "RecentFiles.h"
#include "ScratchFolder.h"
#include "modFileCommands.h"
#include "modModelStore.h"
#include "modRecovery.h"

#include <chrono>
#include <filesystem>
#include <string>

namespace strutwright {

/// Runs of the program in one process: what a run holds, its lock above all, lies in TheFiles.
class RecoveryFixture : public EventsTest {
 protected:
  RecoveryFixture() {
    ThePlatform().files = &files;
    ThePlatform().programFolder = folder.Root();
    ThePlatform().dataFolder = folder.Path("data/strutwright");
    StartRun();
  }
  ~RecoveryFixture() override {
    TheFiles = FileState{};
    TheRecentFiles = RecentFiles{};
  }

  /// Ends the run before, however it stood, and starts another one with an empty model.
  static void StartRun() {
    TheFiles = FileState{};
    TheRecentFiles = RecentFiles{};
    TheAnalysis = AnalysisState{};
    ResetModel();
    SetModel({});
  }

  std::string DataFile(const std::string& name) const { return folder.Path("data/strutwright/" + name); }
  bool IsKept(int number) const {
    return std::filesystem::exists(DataFile("unsaved-" + std::to_string(number) + ".stw"));
  }

  /// A run that ended with this model unsaved.
  static void LeaveUnsaved(const ModelData& model) {
    StartRun();
    SetModel(model);
    KeepRecovery();
    StartRun();
  }

  /// Makes a recovery file so many seconds older than it is.
  void Age(int number, int seconds) const {
    const std::string path = DataFile("unsaved-" + std::to_string(number) + ".stw");
    std::filesystem::last_write_time(path, std::filesystem::last_write_time(path) - std::chrono::seconds(seconds));
  }

  void SaveAs(const std::string& name) {
    dialog.WillChoose(folder.Path(name));
    SaveAsFromMenu();
  }

  ScratchFolder folder;
  NativeFileSystem disk;
  FaultyFileSystem files{disk};
};

} // namespace strutwright
