// The rules of the house that no compiler checks.

#include "TreeFiles.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <map>
#include <regex>
#include <set>
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

constexpr std::array<const char*, 5> FoldersWithQt{"src/windows/", "src/platform/qt/", "src/app/", "src/bracefold/",
                                                   "src/cli/"};
/// What lies in a folder with Qt and has none all the same.
constexpr std::array<const char*, 1> PlainFolders{"src/cli/plain/"};

struct CompiledFile {
  std::string path; ///< relative to the tree
  std::string command;
};

/// A path relative to the tree.  Files that the build itself makes, each of several sources, lie in its folder as those
/// sources lie in the tree.
std::string PathInTree(const fs::path& file) {
  const std::string inBuild = fs::relative(file, BINARY_DIR).generic_string();
  return inBuild.starts_with("..") ? fs::relative(file, SOURCE_DIR).generic_string() : inBuild;
}

std::vector<CompiledFile> CompiledFiles() {
  std::vector<CompiledFile> files;
  for (const auto& entry : nlohmann::json::parse(TextOf(fs::path(BINARY_DIR) / "compile_commands.json"))) {
    files.push_back({PathInTree(entry["file"].get<std::string>()), entry["command"]});
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
  const auto isBelow = [&path](const char* folder) { return path.starts_with(folder); };
  return std::any_of(FoldersWithQt.begin(), FoldersWithQt.end(), isBelow) &&
         std::none_of(PlainFolders.begin(), PlainFolders.end(), isBelow);
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
  EXPECT_EQ(PathInTree(fs::path(BINARY_DIR) / "src/model/unity_0_cxx.cxx"), "src/model/unity_0_cxx.cxx");
  EXPECT_EQ(PathInTree(fs::path(SOURCE_DIR) / "src/model/Grid.cpp"), "src/model/Grid.cpp");
  const std::string command = "c++ -isystem /usr/include/x86_64-linux-gnu/qt6/QtCore -c x.cpp";
  EXPECT_THAT(FilesWithForbiddenQt({{"src/model/Grid.cpp", command}, {"src/windows/main/frmMain.cpp", command}}),
              ElementsAre("src/model/Grid.cpp"));
  EXPECT_THAT(FilesWithForbiddenQt({{"src/editing/modGrids.cpp", "c++ -DQT_CORE_LIB -c x.cpp"}}),
              ElementsAre("src/editing/modGrids.cpp"));
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

/// Whether a text includes a header of Qt: <QWidget>, <QtMath> or <QtGui/QColor>; "QtShell.h" is the house's own.
bool IncludesQt(const std::string& text) {
  static const std::regex qt(R"(#\s*include\s*<Q[A-Za-z])");
  return std::regex_search(text, qt);
}

TEST(LayerTest, IncludesQtOnlyInItsFolders) {
  int found = 0;
  for (const fs::path& source : SourcesBelow("src")) {
    if (!IncludesQt(TextOf(source))) continue;
    ++found;
    EXPECT_TRUE(MayUseQt(fs::relative(source, SOURCE_DIR).generic_string())) << source;
  }
  EXPECT_GT(found, 10);
}

TEST(LayerTest, WouldFindAnIncludeOfQt) {
  EXPECT_TRUE(IncludesQt("#include <string>\n#include <QtGui/QColor>\n"));
  EXPECT_TRUE(IncludesQt("# include <QWidget>\n"));
  EXPECT_FALSE(IncludesQt("#include \"QtShell.h\"\n// a QWidget\n"));
  EXPECT_FALSE(MayUseQt("src/platform/widgets/QtClipboard.h"));
  EXPECT_FALSE(MayUseQt("src/families/TrussShape.h"));
}

/// What each folder may use of the house.
const std::map<std::string, std::set<std::string>> AllowedLayers{
    {"platform", {}},
    {"platform/native", {"platform"}},
    {"platform/qt/raster", {}},
    {"platform/qt", {"platform", "raster"}},
    {"model", {"platform"}},
    {"analysis/tiled", {"platform"}},
    {"analysis", {"platform", "model", "tiled"}},
    {"worked", {"platform", "model"}},
    {"check", {"platform", "model", "analysis"}},
    {"files", {"platform", "model", "analysis"}},
    {"exchange", {"platform", "model", "analysis", "files"}},
    {"display", {"platform", "model", "analysis"}},
    {"statics", {"platform", "model", "analysis", "check"}},
    {"editing", {"platform", "model", "analysis", "files"}},
    {"equations", {"platform", "model", "analysis", "worked"}},
    {"workbench", {"platform", "model", "worked", "analysis", "check", "statics", "files", "display", "editing"}},
    {"report",
     {"platform", "model", "worked", "analysis", "check", "files", "exchange", "display", "editing", "equations"}},
    {"classset",
     {"platform", "model", "analysis", "check", "statics", "files", "display", "worked", "exchange", "report",
      "families", "equations"}},
    {"windows",
     {"platform", "qt", "model", "analysis", "check", "statics", "files", "exchange", "display", "editing", "equations",
      "workbench", "report", "worked", "classset"}},
    {"app", {"platform", "native", "qt", "windows", "app"}},
    {"families", {"platform", "model", "analysis", "files"}},
    {"bracefold",
     {"platform", "native", "qt", "model", "analysis", "files", "display", "workbench", "windows", "families",
      "bracefold"}},
    {"cli/plain", {"platform", "native", "model", "analysis", "files", "exchange", "display", "editing"}},
    {"cli",
     {"platform", "native", "qt", "model", "analysis", "check", "files", "exchange", "display", "statics", "editing",
      "workbench", "report", "worked", "families", "classset", "plain"}},
};

/// The libraries of the house that a folder's CMakeLists.txt links, by either way of saying so.
std::set<std::string> LinkedLayers(const std::string& text) {
  std::set<std::string> layers;
  const auto take = [&layers](const std::string& names, const std::regex& word) {
    for (auto each = std::sregex_iterator(names.begin(), names.end(), word); each != std::sregex_iterator(); ++each) {
      layers.insert((*each)[1]);
    }
  };
  std::smatch uses;
  if (std::regex_search(text, uses, std::regex(R"(USES ([a-z \n]*)\))"))) take(uses[1], std::regex("([a-z]+)"));
  const std::regex link(R"(target_link_libraries\((?!strutwright-)\w+([^)]*)\))");
  for (auto each = std::sregex_iterator(text.begin(), text.end(), link); each != std::sregex_iterator(); ++each) {
    take((*each)[1], std::regex("strutwright_(\\w+)"));
  }
  layers.erase("compiler");
  return layers;
}

std::vector<std::string> ForbiddenLayers(const std::string& folder, const std::string& cmake) {
  std::vector<std::string> forbidden;
  const std::set<std::string> linked = LinkedLayers(cmake);
  const std::set<std::string>& allowed = AllowedLayers.at(folder);
  std::set_difference(linked.begin(), linked.end(), allowed.begin(), allowed.end(), std::back_inserter(forbidden));
  return forbidden;
}

TEST(LayerTest, LetsNoFloorUseAHigherOne) {
  for (const auto& [folder, allowed] : AllowedLayers) {
    const std::string cmake = TextOf(fs::path(SOURCE_DIR) / "src" / folder / "CMakeLists.txt");
    EXPECT_FALSE(cmake.empty()) << folder;
    EXPECT_EQ(LinkedLayers(cmake).empty(), allowed.empty()) << folder;
    EXPECT_THAT(ForbiddenLayers(folder, cmake), IsEmpty()) << folder;
  }
}

TEST(LayerTest, WouldFindAnUpwardLink) {
  EXPECT_THAT(ForbiddenLayers("display", "strutwright_layer(display\n  USES files model platform)"),
              ElementsAre("files"));
  EXPECT_THAT(ForbiddenLayers("model", "target_link_libraries(strutwright_model PUBLIC strutwright_editing)"),
              ElementsAre("editing"));
}

TEST(LayerTest, KnowsEveryFolderOfTheHouse) {
  for (const auto& entry : fs::recursive_directory_iterator(fs::path(SOURCE_DIR) / "src")) {
    if (entry.path().filename() != "CMakeLists.txt") continue;
    const std::string folder = fs::relative(entry.path().parent_path(), fs::path(SOURCE_DIR) / "src").generic_string();
    EXPECT_TRUE(AllowedLayers.contains(folder)) << folder;
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
