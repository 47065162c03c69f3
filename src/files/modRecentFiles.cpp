#include "modRecentFiles.h"

#include "FileEvents.h"
#include "PathSpelling.h"
#include "Platform.h"
#include "RecentFiles.h"
#include "modFirstRun.h"
#include "modNumberText.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace strutwright {

namespace {

constexpr const char* PathSection = "Recent Files";
constexpr const char* ConfigSection = "Config";
constexpr const char* LimitKey = "MAX_FILES";
constexpr const char* CountKey = "noRUF";

constexpr std::int16_t FirstLimit = 3;
constexpr std::int16_t GreatestLimit = 20;
constexpr std::int16_t LimitInNeed = 4;
constexpr std::size_t RoomForPath = 25; // characters behind the separator that a shortened path begins with

std::string StoredPath(int place) { return Settings().Get(PathSection, std::to_string(place), ""); }

void StorePath(int place, const std::string& path) { Settings().Save(PathSection, std::to_string(place), path); }

void StoreNumber(const char* key, std::int16_t number) { Settings().Save(ConfigSection, key, std::to_string(number)); }

/// What stands in the store as far as it is a number; `fallback` otherwise.
std::int16_t StoredNumber(const char* key, std::int16_t fallback) {
  return IntegerValue(Settings().Get(ConfigSection, key, std::to_string(fallback))).value_or(fallback);
}

RecentFileEntry& Entry(int index) { return mnuRUF.at(static_cast<std::size_t>(index - 1)); }

void CreateEntry(int index) {
  if (static_cast<int>(mnuRUF.size()) < index) mnuRUF.resize(static_cast<std::size_t>(index));
}

void WriteEntry(int index, const std::string& path) {
  Entry(index).tag = path;
  Entry(index).caption = "&" + std::to_string(index) + "   " + ShownPath(path);
}

void ShowEntry(int index) {
  CreateEntry(index);
  Entry(index).visible = true;
}

void TakeLimit() {
  if (!IsNumberForm(TheRecentFiles.txtMaxFiles)) ShowMessage(MessageIcon::None, "Please input a number in future, ok");
  MAX_FILES = IntegerValue(TheRecentFiles.txtMaxFiles).value_or(LimitInNeed);
  if (MAX_FILES < 1 || MAX_FILES > GreatestLimit) MAX_FILES = LimitInNeed;
  StoreNumber(LimitKey, MAX_FILES);
  MAX_FILES = StoredNumber(LimitKey, MAX_FILES);
}

void Grow() {
  TakeLimit();
  if (noRUF >= MAX_FILES) return;
  TheRecentFiles.mnuBar4 = true;
  ShowEntry(1);
  ++noRUF;
  ShowEntry(noRUF);
  StoreNumber(CountKey, noRUF);
}

/// Keys beyond the limit stay as they are, and so does what stands twice.
void StoreAtTop(const std::string& path) {
  if (NameOneFile(StoredPath(1), path)) return;
  for (int place = MAX_FILES - 1; place >= 1; --place) StorePath(place + 1, StoredPath(place));
  StorePath(1, path);
}

/// The place of a path in the menu, from 1; nothing when it is not there.
std::optional<int> PlaceInMenu(const std::string& path) {
  const auto found = std::find_if(mnuRUF.begin(), mnuRUF.end(),
                                  [&path](const RecentFileEntry& entry) { return NameOneFile(entry.tag, path); });
  if (found == mnuRUF.end()) return std::nullopt;
  return static_cast<int>(found - mnuRUF.begin()) + 1;
}

void MoveToTop(int place) {
  const std::string path = Entry(place).tag;
  for (int above = place - 1; above >= 1; --above) WriteEntry(above + 1, Entry(above).tag);
  WriteEntry(1, path);
}

void DropEntriesBeyondLimit() {
  if (noRUF <= MAX_FILES) return;
  StoreNumber(LimitKey, MAX_FILES);
  for (int place = MAX_FILES + 1; place <= noRUF; ++place) Settings().Delete(PathSection, std::to_string(place));
  mnuRUF.resize(static_cast<std::size_t>(MAX_FILES));
  noRUF = StoredNumber(LimitKey, MAX_FILES);
  StoreNumber(CountKey, noRUF); // or the next start would show entries without a path
}

void Trim() {
  TakeLimit();
  DropEntriesBeyondLimit();
}

void WriteEntries() {
  if (noRUF > MAX_FILES) Trim();
  for (int place = 1; place <= noRUF; ++place) WriteEntry(place, StoredPath(place));
}

void BeginFirstRun() {
  firstRun();
  StoreNumber(CountKey, noRUF);
  MAX_FILES = FirstLimit;
  StoreNumber(LimitKey, MAX_FILES);
  TheRecentFiles.txtMaxFiles = std::to_string(MAX_FILES);
}

/// A store that was damaged or edited by hand may hold any count.
void TakeStoredList() {
  MAX_FILES = StoredNumber(LimitKey, MAX_FILES);
  noRUF = std::clamp(StoredNumber(CountKey, noRUF), std::int16_t{0}, GreatestLimit);
  TheRecentFiles.txtMaxFiles = std::to_string(MAX_FILES);
  TheRecentFiles.mnuBar3 = true;
  for (int place = 1; place <= noRUF; ++place) {
    ShowEntry(place);
    WriteEntry(place, StoredPath(place));
  }
}

bool IsSeparator(char c) { return c == '\\' || c == '/'; }

/// Whether a byte of a UTF-8 text begins a character.
bool BeginsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }

} // namespace

void startUpList() {
  if (ThePlatform().settings == nullptr) return;
  if (StoredPath(1).empty()) {
    BeginFirstRun();
  } else {
    TakeStoredList();
  }
  FileEvents().RecentFilesChanged();
}

void addRecentFile(const std::string& path) {
  if (ThePlatform().settings == nullptr) return;
  Settings().Refresh();
  if (const std::optional<int> place = PlaceInMenu(path)) {
    MoveToTop(*place);
  } else {
    Grow();
    StoreAtTop(path);
    WriteEntries();
  }
  Trim();
  FileEvents().RecentFilesChanged();
}

void refreshCaptions() {
  if (ThePlatform().settings == nullptr) return;
  WriteEntries();
  FileEvents().RecentFilesChanged();
}

void applyMaxFiles() {
  if (ThePlatform().settings == nullptr) return;
  Settings().Refresh();
  Trim();
  FileEvents().RecentFilesChanged();
}

std::string ShownPath(const std::string& path) {
  std::optional<std::size_t> start;
  std::size_t behind = 0; // characters
  for (std::size_t place = path.size(); place > 0; --place) {
    const char byte = path[place - 1];
    if (IsSeparator(byte)) {
      if (behind > RoomForPath) return "..." + path.substr(start.value_or(place - 1));
      start = place - 1;
    }
    if (BeginsCharacter(byte)) ++behind;
  }
  return path;
}

} // namespace strutwright
