#include "modSavedModels.h"

#include "FileState.h"
#include "modModelFile.h"
#include "modModelStore.h"

#include <algorithm>
#include <utility>

namespace strutwright {

namespace {

/// Puts the tables aside as they lie in memory, and back again.
class TablesAside {
 public:
  TablesAside() : Nodes(std::move(NodeTable)), Members(std::move(MemberTable)) {}
  TablesAside(const TablesAside&) = delete;
  TablesAside& operator=(const TablesAside&) = delete;
  ~TablesAside() {
    NodeTable = std::move(Nodes);
    MemberTable = std::move(Members);
    NodeCount = NodesBefore;
    MemberCount = MembersBefore;
  }

 private:
  FieldTable Nodes;
  FieldTable Members;
  std::int16_t NodesBefore = NodeCount;
  std::int16_t MembersBefore = MemberCount;
};

/// What was entered: the bytes behind GridCapacity.
std::string Entered(const std::string& model) { return model.substr(sizeof(GridCapacity)); }

bool IsEmpty(const std::string& model) {
  const StoredModel read = ReadModel(model);
  return read.nodeCount == 0 && read.memberCount == 0;
}

} // namespace

std::string ModelInGrids() {
  const TablesAside tables;
  RebuildModelFromGrids();
  return WriteModel();
}

void NoteFile(const std::string& path, const std::string& model) { TheFiles.SavedModels[path] = Entered(model); }

bool IsUnsaved(const std::string& model) {
  const auto& files = TheFiles.SavedModels;
  const std::string entered = Entered(model);
  if (!CurrentFileName.empty()) {
    const auto own = files.find(CurrentFileName);
    return own == files.end() || own->second != entered;
  }
  return !IsEmpty(model) &&
         std::none_of(files.begin(), files.end(), [&](const auto& file) { return file.second == entered; });
}

} // namespace strutwright
