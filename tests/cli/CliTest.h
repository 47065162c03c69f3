#pragma once

#include "CommandLine.h"
#include "ScratchFolder.h"
#include "Utf8Path.h"

#include <cstdint>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace strutwright {

/// Runs the program in this process and keeps what it printed.
class CliTest : public testing::Test {
 protected:
  int Run(const std::vector<std::string>& arguments) {
    std::istringstream inStream(in);
    std::ostringstream outStream;
    std::ostringstream errStream;
    const int status = RunCommandLine(arguments, inStream, outStream, errStream);
    out = outStream.str();
    err = errStream.str();
    return status;
  }

  /// A file that is larger than any model: it has no end where the system has such a thing.
  std::string TooLargeFile() const {
#ifdef _WIN32
    PutFile(folder.Path("large"), "");
    std::filesystem::resize_file(PathOf(folder.Path("large")), (std::uintmax_t{64} << 20U) + 1);
    return folder.Path("large");
#else
    return "/dev/zero";
#endif
  }

  static std::string Reference(const std::string& name) { return std::string(REFERENCE_DIR) + "/" + name + ".stw"; }

  ScratchFolder folder;
  std::string in; ///< what standard input holds
  std::string out;
  std::string err;
};

} // namespace strutwright
