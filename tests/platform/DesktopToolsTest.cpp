// The register of file types with a desktop's own tools.

#include "DesktopFixture.h"

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <string>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

namespace fs = std::filesystem;

/// Waits until `probe` holds; false when it does not within a time that is long for every machine.
bool Eventually(const std::function<bool()>& probe) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
  while (!probe()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  return true;
}

std::string ShellWord(const std::string& text) {
  std::string word = "'";
  for (const char character : text) word += character == '\'' ? "'\\''" : std::string(1, character);
  return word + "'";
}

class DesktopToolsTest : public DesktopTest {
 protected:
  void FirstRun(const DesktopFileTypes::RenewIndexes& renew = StartIndexTools) {
    DesktopFileTypes types(files, {Home(".local/share"), Home(".config"), {}}, renew);
    Associate(types);
  }

  static void RenewNothing(const std::string& /*dataFolder*/) {}

  /// What a command prints in this home, without the line's end.
  std::string Output(const std::string& command) const {
    const std::string environment = "env -i PATH=/usr/local/bin:/usr/bin:/bin LANG=C.UTF-8 XDG_CURRENT_DESKTOP=GNOME "
                                    "HOME=" +
                                    ShellWord(Home("")) + " ";
    FILE* pipe = popen((environment + command + " 2>&1").c_str(), "r");
    std::string text;
    for (int character = 0; (character = std::fgetc(pipe)) != EOF;) text += static_cast<char>(character);
    pclose(pipe);
    while (text.ends_with('\n')) text.pop_back();
    return text;
  }
};

TEST_F(DesktopToolsTest, KnowTypeAndProgramAfterAFirstRun) {
  PutFile(folder.Path("model.stw"), std::string("\x14\0\0\0\0\0", 6));
  FirstRun();
  const std::string query = "xdg-mime query filetype " + ShellWord(folder.Path("model.stw"));
  EXPECT_TRUE(Eventually([&] { return Output(query) == "application/x-strutwright"; })) << Output(query);
  EXPECT_EQ(Output("xdg-mime query default application/x-strutwright"), "strutwright.desktop");
  EXPECT_TRUE(Eventually([this] { return fs::exists(Data("applications/mimeinfo.cache")); }));
}

TEST_F(DesktopToolsTest, FindNoFaultWithTheEntry) {
  program = folder.Path("opt/my $trusses' 100%/a\"b`c\\d/strutwright");
  FirstRun(RenewNothing);
  EXPECT_EQ(Output("desktop-file-validate " + ShellWord(Data("applications/strutwright.desktop"))), "");
}

TEST_F(DesktopToolsTest, StartAProgramAtAnyPlaceWithTheModelsPath) {
  for (const std::string place : {"plain", "my trusses", "100%f", "a\"b", "a`id`b", "$HOME", "back\\slash", "it's",
                                  "tab\there", "(a) & b; c | d > e", "#~*?[x]"}) {
    program = folder.Path("opt/" + place + "/strutwright");
    PutProgram(program);
    PutFile(program, "#!/bin/sh\nprintf '%s %s' \"$1\" \"$2\" >\"$HOME/new\" && mv \"$HOME/new\" \"$HOME/given\"\n");
    FirstRun(RenewNothing);
    fs::remove(Home("given"));
    Output("gio launch " + ShellWord(Data("applications/strutwright.desktop")) + " '/tmp/a model.stw'");
    ASSERT_TRUE(Eventually([this] { return fs::exists(Home("given")); })) << place;
    EXPECT_EQ(FileBytes(Home("given")), "--open /tmp/a model.stw");
  }
}

TEST_F(DesktopToolsTest, MayBeMissing) {
  const std::string path = std::getenv("PATH");
  setenv("PATH", folder.Path("opt").c_str(), 1);
  FirstRun();
  setenv("PATH", path.c_str(), 1);
  EXPECT_TRUE(fs::exists(Data("applications/strutwright.desktop")));
}

TEST_F(DesktopToolsTest, KeepNobodyWaiting) {
  PutProgram(folder.Path("slow/update-mime-database"));
  PutFile(folder.Path("slow/update-mime-database"),
          "#!/bin/sh\n: >\"$1/begun\"\nwhile [ -e \"$1\" ]; do sleep 0.1; done\n");
  const std::string path = std::getenv("PATH");
  setenv("PATH", (folder.Path("slow") + ":" + path).c_str(), 1);
  const auto begin = std::chrono::steady_clock::now();
  FirstRun();
  setenv("PATH", path.c_str(), 1);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
  EXPECT_TRUE(Eventually([this] { return fs::exists(Data("mime/begun")); }));
}

} // namespace
} // namespace strutwright
