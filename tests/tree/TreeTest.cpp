// The rules of the house that no compiler checks.

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::array<const char*, 5> FoldersWithQt{"src/ui/forms/", "src/platform/qt/", "src/app/", "src/bracefold/",
                                                   "src/cli/"};

struct CompiledFile {
  std::string path; ///< relative to the tree
  std::string command;
};

std::string TextOf(const fs::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<CompiledFile> CompiledFiles() {
  std::vector<CompiledFile> files;
  for (const auto& entry : nlohmann::json::parse(TextOf(fs::path(BINARY_DIR) / "compile_commands.json"))) {
    const fs::path path = fs::relative(entry["file"].get<std::string>(), SOURCE_DIR);
    files.push_back({path.generic_string(), entry["command"]});
  }
  return files;
}

std::vector<fs::path> SourcesBelow(const std::string& folder) {
  std::vector<fs::path> sources;
  for (const auto& entry : fs::recursive_directory_iterator(fs::path(SOURCE_DIR) / folder)) {
    const std::string extension = entry.path().extension().string();
    if (extension == ".h" || extension == ".cpp") sources.push_back(entry.path());
  }
  return sources;
}

bool MayUseQt(const std::string& path) {
  return std::any_of(FoldersWithQt.begin(), FoldersWithQt.end(),
                     [&path](const char* folder) { return path.starts_with(folder); });
}

bool NamesQt(const std::string& command) {
  static const std::regex qt(R"((-I|-isystem )\S*/(qt6|Qt\w+)\b|-DQT_)");
  return std::regex_search(command, qt);
}

/// Files of src/ that are compiled with Qt although their folder has none.
std::vector<std::string> FilesWithForbiddenQt(const std::vector<CompiledFile>& files) {
  std::vector<std::string> forbidden;
  for (const CompiledFile& file : files) {
    if (file.path.starts_with("src/") && !MayUseQt(file.path) && NamesQt(file.command)) forbidden.push_back(file.path);
  }
  return forbidden;
}

TEST(LayerTest, KeepsQtOutOfTheFloorsBelowTheForms) {
  const std::vector<CompiledFile> files = CompiledFiles();
  ASSERT_GT(files.size(), 10U);
  EXPECT_THAT(FilesWithForbiddenQt(files), IsEmpty());
}

TEST(LayerTest, WouldFindQtInTheWrongFolder) {
  const std::string command = "c++ -isystem /usr/include/x86_64-linux-gnu/qt6/QtCore -c x.cpp";
  EXPECT_THAT(FilesWithForbiddenQt({{"src/model/Grid.cpp", command}, {"src/ui/forms/frmMain.cpp", command}}),
              ElementsAre("src/model/Grid.cpp"));
  EXPECT_THAT(FilesWithForbiddenQt({{"src/ui/modGrids.cpp", "c++ -DQT_CORE_LIB -c x.cpp"}}),
              ElementsAre("src/ui/modGrids.cpp"));
}

TEST(LayerTest, IncludesHeadersByBareName) {
  const std::regex withFolder(R"(#include "[^"]*/)");
  for (const fs::path& source : SourcesBelow("src")) {
    EXPECT_FALSE(std::regex_search(TextOf(source), withFolder)) << source;
  }
}

TEST(LayerTest, HasHeadersWithUniqueNames) {
  std::map<std::string, int> count;
  for (const fs::path& source : SourcesBelow("src")) {
    if (source.extension() == ".h") ++count[source.filename().string()];
  }
  for (const auto& [name, times] : count) EXPECT_EQ(times, 1) << name;
}

/// A folder's library and what it says it uses, from its CMakeLists.txt.
std::vector<std::string> UsedLayers(const std::string& folder) {
  const std::string text = TextOf(fs::path(SOURCE_DIR) / folder / "CMakeLists.txt");
  std::smatch found;
  std::vector<std::string> layers;
  if (!std::regex_search(text, found, std::regex(R"(USES ([a-z \n]*)\))"))) return layers;
  const std::string names = found[1];
  const std::regex word("[a-z]+");
  for (auto each = std::sregex_iterator(names.begin(), names.end(), word); each != std::sregex_iterator(); ++each) {
    layers.push_back(each->str());
  }
  return layers;
}

TEST(LayerTest, LetsNoFloorUseAHigherOne) {
  const std::vector<std::string> floors{"platform", "native", "qt", "model", "analysis", "files", "display", "ui", "cli"};
  const auto heightOf = [&floors](const std::string& name) {
    return std::find(floors.begin(), floors.end(), name) - floors.begin();
  };
  for (const char* floor : {"model", "analysis", "files", "display", "ui", "cli"}) {
    const auto used = UsedLayers(std::string("src/") + floor);
    EXPECT_FALSE(used.empty()) << floor;
    for (const std::string& layer : used) EXPECT_LT(heightOf(layer), heightOf(floor)) << floor << " uses " << layer;
  }
}

TEST(ModuleTest, IsStandardCppAndNothingElse) {
  const std::regex module("mod[A-Z].*");
  for (const fs::path& source : SourcesBelow("src")) {
    if (!std::regex_match(source.filename().string(), module)) continue;
    EXPECT_FALSE(std::regex_search(TextOf(source), std::regex("#include <(Q|unistd|sys/|windows)"))) << source;
  }
}

} // namespace
} // namespace strutwright
