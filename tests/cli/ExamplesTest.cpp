#include "CliTest.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace strutwright {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> ModelNames(const std::string& folder, const std::string& extension) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) {
    if (entry.path().extension() == extension) names.push_back(entry.path().stem().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::vector<std::string> ExampleNames(const std::string& extension) { return ModelNames(EXAMPLES_DIR, extension); }

std::string Example(const std::string& name) { return std::string(EXAMPLES_DIR) + "/" + name; }

/// A line of the index.
struct IndexLine {
  std::string name;
  std::string title;
  std::string tip;
};

std::vector<IndexLine> Index() {
  const std::regex form("(.+) \\| (.+) \\| (.+)");
  std::vector<IndexLine> lines;
  std::istringstream text(FileBytes(Example("index.txt")));
  for (std::string line; std::getline(text, line);) {
    std::smatch parts;
    EXPECT_TRUE(std::regex_match(line, parts, form)) << line;
    if (!parts.empty()) lines.push_back({parts[1], parts[2], parts[3]});
  }
  return lines;
}

using ExamplesTest = CliTest;

TEST_F(ExamplesTest, AreEachThereAsModelAndAsText) {
  EXPECT_GE(ExampleNames(".csv").size(), 12U);
  EXPECT_EQ(ExampleNames(".csv"), ExampleNames(".stw"));
}

TEST_F(ExamplesTest, AreMadeFromTheirTexts) {
  for (const std::string tree : {EXAMPLES_DIR, PUBLISHED_DIR}) {
    for (const std::string& name : ModelNames(tree, ".csv")) {
      ASSERT_EQ(Run({"make", tree + "/" + name + ".csv", folder.Path(name)}), 0) << err;
      EXPECT_EQ(FileBytes(folder.Path(name)), FileBytes(tree + "/" + name + ".stw")) << name;
    }
  }
}

TEST_F(ExamplesTest, AreEachNamedOnceInTheIndex) {
  std::vector<std::string> names;
  std::vector<std::string> titles;
  for (const auto& [name, title, tip] : Index()) {
    names.push_back(name);
    titles.push_back(title);
    EXPECT_NE(tip, "") << name;
  }
  std::sort(names.begin(), names.end());
  std::sort(titles.begin(), titles.end());
  EXPECT_EQ(names, ExampleNames(".stw"));
  EXPECT_EQ(std::adjacent_find(titles.begin(), titles.end()), titles.end());
}

TEST_F(ExamplesTest, StandInTheirReadmeInTheOrderOfTheIndex) {
  const std::string readme = FileBytes(Example("README.md"));
  std::size_t last = 0;
  for (const auto& [name, title, tip] : Index()) {
    const std::size_t row = readme.find("| `" + name + "` | " + title + " | " + tip + " | ");
    ASSERT_NE(row, std::string::npos) << name;
    EXPECT_LT(last, row) << name;
    last = row;
  }
}

/// An example after its analysis.
struct AnalysedExample {
  std::string name;
  nlohmann::json results;
  double left = 0, right = 0, bottom = 0, top = 0; ///< of its nodes, m

  double Width() const { return right - left; }
  double Height() const { return top - bottom; }
};

/// Loads and reactions in x and y with their nodes; a reaction only where a support holds.
struct Arrow {
  double x, y, forceX, forceY;
};

class AnalysedExamplesTest : public ExamplesTest {
 protected:
  std::vector<AnalysedExample> Analysed() {
    std::vector<AnalysedExample> examples;
    for (const std::string& name : ExampleNames(".stw")) {
      Run({"analyse", "--format", "json", "--check", Example(name + ".stw")});
      examples.push_back({name, nlohmann::json::parse(out)});
      SetExtent(examples.back());
    }
    return examples;
  }

  std::vector<Arrow> ArrowsOf(const AnalysedExample& example) {
    std::vector<Arrow> arrows;
    const nlohmann::json model = Shown(example);
    for (const auto& node : model["nodes"]) {
      arrows.push_back({node["x"], node["y"], node["fx"], node["fy"]});
    }
    for (const auto& node : example.results["nodes"]) {
      const int support = node["support"];
      arrows.push_back({node["x"], node["y"], support >= 2 ? node["rx"].get<double>() : 0,
                        support % 2 == 1 ? node["ry"].get<double>() : 0});
    }
    return arrows;
  }

 private:
  nlohmann::json Shown(const AnalysedExample& example) {
    Run({"show", "--format", "json", Example(example.name + ".stw")});
    return nlohmann::json::parse(out);
  }

  void SetExtent(AnalysedExample& example) {
    const nlohmann::json model = Shown(example);
    for (const auto& node : model["nodes"]) {
      example.left = std::min(example.left, node["x"].get<double>());
      example.right = std::max(example.right, node["x"].get<double>());
      example.bottom = std::min(example.bottom, node["y"].get<double>());
      example.top = std::max(example.top, node["y"].get<double>());
    }
  }
};

TEST_F(AnalysedExamplesTest, AreMechanismsOnlyWhereTheirNamesSaySo) {
  for (const AnalysedExample& example : Analysed()) {
    const bool meant = example.name.starts_with("mechanism_");
    EXPECT_EQ(example.results["result"], meant ? "unstable" : "ok") << example.name;
    EXPECT_EQ(example.results["check"]["mechanisms"], meant ? 1 : 0) << example.name;
  }
}

TEST_F(AnalysedExamplesTest, AreLightStructuresOfSomeWidth) {
  constexpr double minWidth = 3;          // m
  constexpr double maxForcePerHeight = 3; // kN/m
  for (const AnalysedExample& example : Analysed()) {
    EXPECT_GE(example.Width(), minWidth) << example.name;
    for (const Arrow& arrow : ArrowsOf(example)) {
      const double force = std::max(std::abs(arrow.forceX), std::abs(arrow.forceY));
      EXPECT_LE(force, maxForcePerHeight * example.Height()) << example.name;
    }
  }
}

// An arrow lies to the right of its node or above it.  The view of the frame at its first size has 653 x 385 pixels
// and holds 1.4 times the truss in the direction that fills it.
TEST_F(AnalysedExamplesTest, HaveRoomForTheirArrowsInTheView) {
  constexpr double kNPerMetre = 10;
  for (const AnalysedExample& example : Analysed()) {
    const double metrePerPixel = 1.4 * std::max(example.Width() / 653, example.Height() / 385);
    const double viewRight = (example.left + example.right + 653 * metrePerPixel) / 2;
    const double viewTop = (example.bottom + example.top + 385 * metrePerPixel) / 2;
    for (const Arrow& arrow : ArrowsOf(example)) {
      EXPECT_LT(arrow.x + std::abs(arrow.forceX) / kNPerMetre, viewRight) << example.name;
      EXPECT_LT(arrow.y + std::abs(arrow.forceY) / kNPerMetre, viewTop) << example.name;
    }
  }
}

TEST_F(ExamplesTest, IncludeABridgeOf30Members) {
  ASSERT_EQ(Run({"analyse", "--format", "json", Example("cantilever_bridge.stw")}), 0);
  EXPECT_EQ(nlohmann::json::parse(out)["members"].size(), 30U);
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
