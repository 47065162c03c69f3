#include "modSavedModels.h"

#include "FileState.h"
#include "modModelFile.h"
#include "modModelStore.h"

#include <algorithm>

namespace strutwright {

namespace {

/// What was entered: the bytes behind GridCapacity.
std::string Entered(const std::string& model) { return model.substr(sizeof(GridCapacity)); }

bool IsEmpty(const std::string& model) {
  const StoredModel read = ReadModel(model);
  return read.nodeCount == 0 && read.memberCount == 0;
}

} // namespace

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
