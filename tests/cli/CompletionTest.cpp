// What shells complete.

#include "CliTest.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::HasSubstr;

class CompletionTest : public CliTest {
 protected:
  std::string Script(const std::string& shell) {
    EXPECT_EQ(Run({"completion", shell}), 0) << err;
    return out;
  }

#ifndef _WIN32 // where bash is not at home
  /// What bash offers behind these words.
  std::string Offered(const std::string& words, int last) {
    PutFile(folder.Path("script"), Script("bash"));
    const std::string command = "bash -c 'cd " + folder.Path("") + " && . ./script && COMP_WORDS=(strutwright-cli " +
                                words + ") COMP_CWORD=" + std::to_string(last) +
                                " && _strutwright_cli && echo \"${COMPREPLY[@]}\"'";
    std::FILE* pipe = ::popen(command.c_str(), "r");
    std::array<char, 4096> line{};
    const bool has = std::fgets(line.data(), line.size(), pipe) != nullptr;
    EXPECT_EQ(::pclose(pipe), 0);
    return has ? std::string(line.data()) : "";
  }
#endif

  /// What --help names.
  std::vector<std::string> Commands() {
    Run({"--help"});
    static const std::regex command(R"(\n  ([a-z]+) )");
    std::vector<std::string> names;
    for (auto each = std::sregex_iterator(out.begin(), out.end(), command); each != std::sregex_iterator(); ++each) {
      names.push_back((*each)[1]);
    }
    return names;
  }

  /// The long options that --help of a command names.
  std::set<std::string> OptionsOf(const std::string& command) {
    Run({command, "--help"});
    static const std::regex option(R"((?:^|[\s,])--([a-z-]+))");
    std::set<std::string> options;
    for (auto each = std::sregex_iterator(out.begin(), out.end(), option); each != std::sregex_iterator(); ++each) {
      options.insert((*each)[1]);
    }
    return options;
  }
};

TEST_F(CompletionTest, NamesEveryOptionOfEveryCommand) {
  int options = 0;
  for (const std::string& name : Commands()) {
    const std::string fish = Script("fish");
    const std::string zsh = Script("zsh");
    EXPECT_THAT(fish, HasSubstr(" -a " + name + " -d "));
    for (const std::string& option : OptionsOf(name)) {
      ++options;
      EXPECT_THAT(fish, HasSubstr("__fish_seen_subcommand_from " + name + "'")) << name;
      EXPECT_THAT(fish, HasSubstr(" -l " + option)) << name;
      EXPECT_THAT(zsh, HasSubstr("--" + option)) << name;
    }
  }
  EXPECT_GT(options, 20);
}

#ifndef _WIN32

TEST_F(CompletionTest, OffersEveryOptionOfEveryCommandInBash) {
  for (const std::string& command : Commands()) {
    for (const std::string& option : OptionsOf(command)) {
      EXPECT_THAT(Offered(command + " --" + option, 2), HasSubstr("--" + option)) << command;
    }
  }
}

TEST_F(CompletionTest, OffersCommandsValuesAndFilesInBash) {
  EXPECT_EQ(Offered("an", 1), "analyse\n");
  EXPECT_EQ(Offered("show --format d", 3), "dxf\n");
  EXPECT_EQ(Offered("make --units \"\"", 3), "mm cm m in ft\n");
  EXPECT_EQ(Offered("completion z", 2), "zsh\n");
}

TEST_F(CompletionTest, OffersFilesByTheirEndingsInBash) {
  for (const char* name : {"a.stw", "a.DXF", "a.csv", "a.pdf", "a.png", "a b.json"}) PutFile(folder.Path(name), "");
  std::filesystem::create_directory(folder.Path("a.folder"));
  EXPECT_EQ(Offered("analyse a", 2), "a.folder a.stw a.DXF a.csv a b.json\n");
  EXPECT_EQ(Offered("make a.csv a", 3), "a.folder a.stw a.DXF a.csv a b.json\n");
  EXPECT_EQ(Offered("mark a", 2), "a.folder a.csv\n");
  EXPECT_EQ(Offered("analyse a.stw --report a", 4), "a.folder a.pdf\n");
  EXPECT_EQ(Offered("analyse a.stw --picture a", 4), "a.folder a.png\n");
  EXPECT_EQ(Offered("make a.dxf --layers a", 4), "a.folder a.csv\n");
  EXPECT_EQ(Offered("make --tolerance a", 3), "\n") << "a number";
}

#endif

TEST_F(CompletionTest, SaysWhatZshAndFishTake) {
  EXPECT_THAT(Script("zsh"), HasSubstr("':value:(text csv json dxf tikz)'"));
  EXPECT_THAT(Script("zsh"), HasSubstr("'(-j --jobs)'{-j,--jobs}'["));
  EXPECT_THAT(Script("fish"), HasSubstr(" -s j -l jobs -x -d '"));
}

TEST_F(CompletionTest, SaysWhichFilesZshAndFishOffer) {
  EXPECT_THAT(Script("zsh"), HasSubstr("'*:file:_files -g \"(*.[cC][sS][vV])\"'"));
  EXPECT_THAT(Script("zsh"), HasSubstr("':file:_files -g \"(*.[pP][dD][fF]|*.[hH][tT][mM][lL])\"'"));
  EXPECT_THAT(Script("zsh"), HasSubstr("'*:value:(bash zsh fish)'"));
  EXPECT_THAT(Script("fish"), HasSubstr("__fish_seen_subcommand_from mark' -k -a '(__fish_complete_suffix .csv)'\n"));
  EXPECT_THAT(Script("fish"), HasSubstr("__fish_seen_subcommand_from completion' -f -a 'bash zsh fish'\n"));
}

TEST_F(CompletionTest, KnowsThreeShells) {
  EXPECT_EQ(Run({"completion", "csh"}), 2);
  EXPECT_THAT(err, HasSubstr("bash"));
}

} // namespace
} // namespace strutwright
