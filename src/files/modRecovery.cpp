#include "modRecovery.h"

#include "FileEvents.h"
#include "FileState.h"
#include "PathSpelling.h"
#include "Platform.h"
#include "modFileCommands.h"
#include "modModelFile.h"
#include "modSafeSave.h"
#include "modSavedModels.h"

#include <algorithm>
#include <charconv>
#include <exception>
#include <functional>
#include <string_view>
#include <utility>
#include <vector>

namespace strutwright {

namespace {

constexpr std::string_view Prefix = "unsaved-";
constexpr std::string_view Suffix = ".stw";

/// A program that keeps no files of its own has none.
bool HasDataFolder() { return !ThePlatform().dataFolder.empty(); }

std::string InDataFolder(std::string_view prefix, int number, std::string_view suffix) {
  return NativePath(DataFolder() + "/" + std::string(prefix) + std::to_string(number) + std::string(suffix));
}

/// The number in the name of a recovery file; 0 for every other file.
int NumberOf(std::string_view name) {
  if (!name.starts_with(Prefix) || !name.ends_with(Suffix)) return 0;
  name.remove_prefix(Prefix.size());
  const char* const end = name.data() + name.size() - Suffix.size();
  int number = 0;
  const auto [last, error] = std::from_chars(name.data(), end, number);
  return error == std::errc() && last == end && number > 0 ? number : 0;
}

bool Exists(const std::string& path) { return Files().Kind(path) == FileKind::File; }

/// A recovery file by its number, locked; nothing when a running copy of the program has it.
std::optional<RecoveryFile> Take(int number) {
  std::unique_ptr<FileLock> lock = Files().TryLock(InDataFolder(Prefix, number, ".lock"));
  if (!lock) return std::nullopt;
  return RecoveryFile{InDataFolder(Prefix, number, Suffix), std::move(lock), {}};
}

/// A file for this run under a number that neither a running copy nor a run that has ended uses.
RecoveryFile FreeFile() {
  Files().CreateFolder(DataFolder());
  for (int number = 1;; ++number) {
    std::optional<RecoveryFile> file = Take(number);
    if (file && Files().Kind(file->path) == FileKind::Missing) return std::move(*file);
  }
}

/// The numbers of all recovery files, the one that was written last first.
std::vector<int> NewestFirst() {
  std::vector<std::pair<std::int64_t, int>> files;
  for (const std::string& name : Files().Names(DataFolder())) {
    const int number = NumberOf(name);
    if (number == 0) continue;
    const std::string path = InDataFolder(Prefix, number, Suffix);
    if (Exists(path)) files.emplace_back(Files().ModifiedAt(path), number);
  }
  std::sort(files.begin(), files.end(), std::greater<>());
  std::vector<int> numbers;
  for (const auto& [time, number] : files) numbers.push_back(number);
  return numbers;
}

/// The newest file that a run that has ended left, locked.
std::optional<RecoveryFile> LeftFile() {
  if (!HasDataFolder()) return std::nullopt;
  for (const int number : NewestFirst()) {
    std::optional<RecoveryFile> file = Take(number);
    if (file && Exists(file->path)) return file; // a run that ended just now may have removed it
  }
  return std::nullopt;
}

void Keep(const std::string& model) {
  std::optional<RecoveryFile>& own = TheFiles.OwnRecovery;
  if (!own) own = FreeFile();
  if (own->content == model) return;
  SaveBytes(own->path, model);
  own->content = model;
  own->restored = false;
}

void Drop() {
  std::optional<RecoveryFile>& own = TheFiles.OwnRecovery;
  if (!own) return;
  if (!own->restored && Exists(own->path)) Files().Remove(own->path);
  own.reset();
}

/// Work in the data folder that nobody waits for.
void Try(const std::function<void()>& work) {
  try {
    work();
  } catch (const std::exception&) {
    // A model that can't be kept now is tried again after the next change.
  }
}

void PutAside(const std::string& path) {
  int number = 1;
  while (Files().Kind(InDataFolder("damaged-", number, Suffix)) != FileKind::Missing) ++number;
  Files().Replace(path, InDataFolder("damaged-", number, Suffix));
}

void Restore(RecoveryFile file) {
  const std::string nameBefore = CurrentFileName;
  if (!OpenUnlisted(file.path)) {
    CurrentFileName = nameBefore;
    return PutAside(file.path);
  }
  TheFiles.SavedModels.erase(file.path);
  CurrentFileName.clear();
  FileEvents().CaptionChanged("Restored model");
  file.content = ModelInGrids();
  file.restored = true;
  TheFiles.OwnRecovery = std::move(file);
}

} // namespace

void KeepRecovery() {
  if (!HasDataFolder()) return;
  Try([] {
    const std::string model = ModelInGrids();
    if (IsUnsaved(model)) {
      Keep(model);
    } else {
      Drop();
    }
  });
}

bool HasUnsavedModel() {
  bool has = false;
  Try([&has] { has = LeftFile().has_value(); });
  return has;
}

void RestoreUnsavedModel() {
  KeepRecovery();
  Try([] {
    std::optional<RecoveryFile> file = LeftFile();
    if (!file) return ShowHint("There is no unsaved model to restore");
    Restore(std::move(*file));
  });
}

} // namespace strutwright
