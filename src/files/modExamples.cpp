#include "modExamples.h"

#include "FileState.h"
#include "Platform.h"
#include "modFileCommands.h"

#include <algorithm>
#include <array>
#include <filesystem>

namespace strutwright {

namespace fs = std::filesystem;

namespace {

/// From the program's folder: as installed, beside the program, and in the tree that it was built in.
constexpr std::array ExampleFolders{"/../share/strutwright/examples/", "/examples/", "/../../../../examples/"};

} // namespace

std::vector<std::string> ExampleModels() {
  for (const char* each : ExampleFolders) {
    const std::string folder = ProgramFolder() + each;
    std::vector<std::string> models;
    for (const std::string& name : Files().Names(folder)) {
      if (name.ends_with(".stw")) models.push_back(fs::path(folder + name).lexically_normal().string());
    }
    if (!models.empty()) {
      std::sort(models.begin(), models.end());
      return models;
    }
  }
  return {};
}

void OpenExample(const std::string& path) {
  if (openModel(path)) CurrentFileName.clear();
}

} // namespace strutwright
