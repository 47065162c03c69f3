#pragma once

#include "EventsTest.h"
#include "FaultyFileSystem.h"
#include "ModelBuilder.h"
#include "NativeFileSystem.h"
#include "ScratchFolder.h"
#include "modFileCommands.h"
#include "modModelStore.h"

#include <string>

namespace strutwright {

/// A model in the tables and a folder of the program that takes files.
class ScratchCopyFixture : public EventsTest {
 protected:
  ScratchCopyFixture() {
    ThePlatform().files = &files;
    ThePlatform().programFolder = folder.Root();
    ThePlatform().dataFolder = folder.Path("data/strutwright");
    ResetModel();
    SetModel(Triangle());
  }

  /// What the scratch copy fails with; empty when it does not.
  static std::string Failure() {
    try {
      writeScratchCopy();
      return {};
    } catch (const FileError& error) {
      return error.what();
    }
  }

  ScratchFolder folder;
  NativeFileSystem disk;
  FaultyFileSystem files{disk};
  std::string path = folder.Path("temp_truss.stw");
};

} // namespace strutwright
