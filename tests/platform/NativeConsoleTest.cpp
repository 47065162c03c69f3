#include "NativeConsole.h"
#include "WorkerProcesses.h"

#include <array>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

TEST(ProgramArgumentsTest, GoWithoutTheProgramsName) {
  // These are not this process's own, which a system that has them in another encoding gives instead.
  std::array<std::string, 1> texts{"test_platform"};
  std::array<char*, 2> arguments{texts[0].data(), nullptr};
  for (const std::string& each : ProgramArguments(1, arguments.data())) {
    EXPECT_EQ(each.find("test_platform"), std::string::npos);
  }
}

TEST(IsTerminalTest, IsFalseForNoFile) { EXPECT_FALSE(IsTerminal(-1)); }

} // namespace
} // namespace strutwright
