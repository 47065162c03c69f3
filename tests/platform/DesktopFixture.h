#pragma once

#include "DesktopFileTypes.h"
#include "NativeFileSystem.h"
#include "ScratchFolder.h"

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

namespace strutwright {

/// A desktop in a fresh home, with a program and its icon beside it.
class DesktopTest : public testing::Test {
 protected:
  DesktopTest() {
    PutProgram(program);
    PutFile(icon, "<svg/>");
  }

  static void PutProgram(const std::string& path) {
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    PutFile(path, "#!/bin/sh\n");
    std::filesystem::permissions(path, std::filesystem::perms(0755));
  }

  std::string Home(const std::string& path) const { return folder.Path("home/" + path); }
  std::string Data(const std::string& path) const { return Home(".local/share/" + path); }

  DesktopPlaces Places() const {
    return {Home(".local/share"), Home(".config"), {folder.Path("missing/share"), folder.Path("usr/share")}};
  }

  /// What a first run sets.
  void Associate(FileTypeRegistry& types) const {
    types.SetDefault("Strutwright.File", "Strutwright File");
    types.SetDefault(".stw", "Strutwright.File");
    types.SetDefault("Strutwright.File\\shell\\open\\command", program + " %1");
    types.SetDefault("Strutwright.File\\DefaultIcon", icon);
    types.Announce();
  }

  ScratchFolder folder;
  NativeFileSystem files;
  std::string program = folder.Path("opt/truss/strutwright");
  std::string icon = folder.Path("opt/truss/strutwright.svg");
};

} // namespace strutwright
