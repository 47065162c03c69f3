#include "CliTest.h"

#include <algorithm>
#include <filesystem>
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
  EXPECT_EQ(ExampleNames(".csv").size(), 14U);
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

} // namespace
} // namespace strutwright
