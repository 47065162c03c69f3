#include "QtShell.h"

#include "ScratchFolder.h"

#include <filesystem>
#include <string>

#include <QTest>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

namespace fs = std::filesystem;

TEST(QtShellTest, StartsAProgramWithItsArgumentsLetterForLetter) {
  const ScratchFolder folder;
  const fs::path built(ECHO_ARGUMENTS);
  const std::string program = folder.Path("my " + built.filename().string());
  fs::copy_file(built, program);

  EXPECT_TRUE(QtShell().Start(program, {"--open", "/models/a \"b\" $c.stw", ""}));

  ASSERT_TRUE(QTest::qWaitFor([&] { return fs::exists(program + ".given"); }));
  EXPECT_EQ(FileBytes(program + ".given"), "--open|/models/a \"b\" $c.stw||");
}

TEST(QtShellTest, SaysThatAProgramCanNotBeStarted) {
  const ScratchFolder folder;
  EXPECT_FALSE(QtShell().Start(folder.Path("missing"), {}));
}

} // namespace
} // namespace strutwright
