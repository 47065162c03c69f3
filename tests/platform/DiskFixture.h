#pragma once

#include "NativeFileSystem.h"
#include "ScratchFolder.h"

#include <limits>
#include <string>

#include <gtest/gtest.h>

namespace strutwright {

/// The machine's own file system, and a folder to try it in.
class NativeFileSystemTest : public testing::Test {
 protected:
  static constexpr std::size_t Everything = std::numeric_limits<std::size_t>::max();

  std::string Made(const std::string& name, const std::string& bytes) {
    PutFile(folder.Path(name), bytes);
    return folder.Path(name);
  }

  ScratchFolder folder;
  NativeFileSystem disk;
};

} // namespace strutwright
