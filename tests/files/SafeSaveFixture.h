#pragma once

#include "AsUser.h"
#include "EventsTest.h"
#include "FaultyFileSystem.h"
#include "ModelBuilder.h"
#include "NativeFileSystem.h"
#include "ScratchFolder.h"
#include "modSafeSave.h"

#include <string>
#include <system_error>

namespace strutwright {

/// A file in a folder of its own, on a disk whose steps are counted and may fail.
class SafeSaveFixture : public EventsTest {
 protected:
  SafeSaveFixture() {
    ThePlatform().files = &files;
    ResetModel();
  }

  std::string ExistingFile(const std::string& bytes) {
    PutFile(path, bytes);
    return path;
  }

  ScratchFolder folder;
  NativeFileSystem disk;
  FaultyFileSystem files{disk};
  std::string path = folder.Path("model.stw");
};

/// Tries to save as an ordinary user: 0 saved, 1 refused for want of permission, 2 anything else.
inline int SaveAsUser(const std::string& file) {
  return AsUnprivilegedUser([&file] {
    try {
      SaveBytes(file, "new");
      return 0;
    } catch (const FileError& error) {
      return error.code == std::errc::permission_denied ? 1 : 2;
    }
  });
}

} // namespace strutwright
