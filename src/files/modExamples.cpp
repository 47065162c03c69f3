#include "modExamples.h"

#include "FileState.h"
#include "Platform.h"
#include "Utf8Path.h"
#include "modFileCommands.h"
#include "modNumberText.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <sstream>
#include <utility>

namespace strutwright {

namespace {

/// From the program's folder: as installed, beside the program, and in the tree that it was built in.
constexpr std::array ExampleFolders{"/../share/strutwright/examples/", "/examples/", "/../../../../examples/"};

constexpr const char* IndexName = "index.txt";
constexpr std::size_t MaxIndexBytes = std::size_t{1} << 20;

/// What the index says of one model.
struct IndexEntry {
  std::string fileName;
  std::string title;
  std::string tip;
};

std::optional<IndexEntry> EntryOf(const std::string& line) {
  std::array<std::string, 3> fields;
  std::istringstream text(line);
  for (std::string& field : fields) {
    std::getline(text, field, '|');
    field = TrimBlanks(field);
    if (field.empty()) return std::nullopt;
  }
  return IndexEntry{fields[0] + ".stw", fields[1], fields[2]};
}

/// Nothing where there is no index: a model is then called by its file's name.
std::vector<IndexEntry> IndexOf(const std::string& folder) {
  std::vector<IndexEntry> entries;
  std::istringstream text;
  try {
    text.str(Files().Read(folder + IndexName, 0, MaxIndexBytes));
  } catch (const FileError&) {
    return entries;
  }
  for (std::string line; std::getline(text, line);) {
    if (line.ends_with('\r')) line.pop_back();
    if (auto entry = EntryOf(line)) entries.push_back(std::move(*entry));
  }
  return entries;
}

std::vector<std::string> ModelNames(const std::string& folder) {
  std::vector<std::string> names = Files().Names(folder);
  std::erase_if(names, [](const std::string& name) { return !name.ends_with(".stw"); });
  std::sort(names.begin(), names.end());
  return names;
}

std::vector<Example> ExamplesIn(const std::string& folder) {
  std::vector<std::string> names = ModelNames(folder);
  std::vector<Example> examples;
  if (names.empty()) return examples;
  const auto add = [&](const std::string& name, const std::string& title, const std::string& tip) {
    examples.push_back({TidyPath(folder + name), title, tip});
  };
  for (const IndexEntry& entry : IndexOf(folder)) {
    if (std::erase(names, entry.fileName) > 0) add(entry.fileName, entry.title, entry.tip);
  }
  for (const std::string& name : names) add(name, name, "");
  return examples;
}

} // namespace

std::vector<Example> Examples() {
  for (const char* each : ExampleFolders) {
    std::vector<Example> examples = ExamplesIn(ProgramFolder() + each);
    if (!examples.empty()) return examples;
  }
  return {};
}

void OpenExample(const std::string& path) {
  if (openModel(path)) CurrentFileName.clear();
}

} // namespace strutwright
