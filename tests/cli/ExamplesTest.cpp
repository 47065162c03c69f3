#include "CliTest.h"

#include <algorithm>
#include <filesystem>
#include <regex>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> ExampleNames(const std::string& extension) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(EXAMPLES_DIR)) {
    if (entry.path().extension() == extension) names.push_back(entry.path().stem().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::string Example(const std::string& name) { return std::string(EXAMPLES_DIR) + "/" + name; }

using ExamplesTest = CliTest;

TEST_F(ExamplesTest, AreEachThereAsModelAndAsText) {
  EXPECT_EQ(ExampleNames(".csv").size(), 15U);
  EXPECT_EQ(ExampleNames(".csv"), ExampleNames(".stw"));
}

TEST_F(ExamplesTest, AreMadeFromTheirTexts) {
  for (const std::string& name : ExampleNames(".csv")) {
    ASSERT_EQ(Run({"make", Example(name + ".csv"), folder.Path(name)}), 0) << err;
    EXPECT_EQ(FileBytes(folder.Path(name)), FileBytes(Example(name + ".stw"))) << name;
  }
}

TEST_F(ExamplesTest, AreExplainedWithTheirSources) {
  const std::string readme = FileBytes(Example("README.md"));
  for (const std::string& name : ExampleNames(".stw")) {
    EXPECT_NE(readme.find("| `" + name + "` |"), std::string::npos) << name;
  }
}

TEST_F(ExamplesTest, StandInTheReadmeAsTheyArePrinted) {
  const fs::path tree = fs::path(EXAMPLES_DIR).parent_path();
  ASSERT_EQ(Run({"analyse", Example("four_nodes_three_bars.stw")}), 0);
  const std::string tables = out.substr(out.find("JOINTS"), out.rfind('\n') - out.find("JOINTS"));
  EXPECT_NE(FileBytes((tree / "README.md").string()).find(tables), std::string::npos);
}

/// The bytes of the hex dump in the description of the model file.
std::string DumpedBytes(const std::string& text) {
  const std::regex line("\n[0-9a-f]{8}: ((?:[0-9a-f]{4,8} )+) ");
  std::string bytes;
  for (auto each = std::sregex_iterator(text.begin(), text.end(), line); each != std::sregex_iterator(); ++each) {
    std::string digits = (*each)[1];
    digits.erase(std::remove(digits.begin(), digits.end(), ' '), digits.end());
    for (std::size_t at = 0; at < digits.size(); at += 2) {
      bytes.push_back(static_cast<char>(std::stoi(digits.substr(at, 2), nullptr, 16)));
    }
  }
  return bytes;
}

TEST_F(ExamplesTest, OfTheModelFileIsAModel) {
  const fs::path tree = fs::path(EXAMPLES_DIR).parent_path();
  const std::string bytes = DumpedBytes(FileBytes((tree / "docs/format.md").string()));
  ASSERT_EQ(bytes.size(), 222U);
  PutFile(folder.Path("bracket.stw"), bytes);
  ASSERT_EQ(Run({"analyse", "--format", "csv", folder.Path("bracket.stw")}), 0);
  EXPECT_NE(out.find("\r\n1,-16,C,-16,"), std::string::npos) << out;
  EXPECT_NE(out.find("\r\n2,19.999998,T,19.999998,"), std::string::npos) << out;
}

} // namespace
} // namespace strutwright
