#include "modSafeSave.h"

#include "NewFile.h"
#include "Platform.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <limits>
#include <system_error>

namespace strutwright {

namespace {

bool IsAnyOf(const FileError& error, std::initializer_list<std::errc> reasons) {
  return std::any_of(reasons.begin(), reasons.end(), [&error](std::errc reason) { return error.code == reason; });
}

/// The folder can't take a second file, or won't let it take the place of the first.
bool IsRefusedByFolder(const FileError& error) {
  return IsAnyOf(error,
                 {std::errc::permission_denied, std::errc::operation_not_permitted, std::errc::read_only_file_system,
                  std::errc::device_or_resource_busy, std::errc::cross_device_link});
}

void WriteInPlace(const std::string& target, const std::string& content) {
  Files().Write(target, content);
  Files().Flush(target);
}

/// What the old file holds behind the first `length` bytes.
std::string TailOf(const std::string& target, std::size_t length) {
  return Files().Read(target, length, std::numeric_limits<std::size_t>::max());
}

void Overwrite(const std::string& target, const std::string& content) {
  Files().Write(target, content);
  Files().Resize(target, content.size());
  Files().Flush(target);
}

/// Gives a file that could not be overwritten its old content again; false where that fails too.
bool PutBack(const std::string& target, const std::string& old) {
  try {
    Overwrite(target, old);
    return true;
  } catch (const FileError&) {
    return false;
  }
}

/// Overwrites a file that has other names, which a new file in its place would not have.  The whole new content lies
/// beside it until that is done, so that a kill loses nothing.
void OverwriteUnderAllNames(const std::string& target, const std::string& content) {
  const std::string old = TailOf(target, 0);
  const std::string beside = PutNewFileBeside(Files(), target, content, true);
  try {
    Overwrite(target, content);
  } catch (const FileError& error) {
    if (!PutBack(target, old)) throw FileError(std::string(error.what()) + "\nThe whole content is in " + beside);
    Discard(Files(), beside);
    throw;
  }
  Discard(Files(), beside);
}

void PutInPlace(const std::string& target, const std::string& content) {
  if (Files().HasOtherNames(target)) return OverwriteUnderAllNames(target, content);
  ReplaceByNewFile(Files(), target, content, true);
}

void SaveOverFile(const std::string& target, const std::string& bytes) {
  Files().CheckWritable(target);
  try {
    PutInPlace(target, bytes + TailOf(target, bytes.size()));
  } catch (const FileError& error) {
    // Without truncation the tail stays where it is, even one that may not be read.
    if (!IsRefusedByFolder(error)) throw;
    WriteInPlace(target, bytes);
  }
}

void SaveInsteadOfFile(const std::string& target, const std::string& bytes) {
  Files().CheckWritable(target);
  PutInPlace(target, bytes);
}

/// overFile: saves where there is a file already.
void SaveTo(const std::string& path, const std::string& bytes,
            void (*overFile)(const std::string& target, const std::string& bytes)) {
  if (path.empty()) throw FileError(std::make_error_code(std::errc::no_such_file_or_directory));
  if (Files().Kind(path) == FileKind::Special) return WriteInPlace(path, bytes);
  const std::string target = Files().FollowLinks(path);
  switch (Files().Kind(target)) {
  case FileKind::Folder: throw FileError(std::make_error_code(std::errc::is_a_directory));
  case FileKind::Missing: return ReplaceByNewFile(Files(), target, bytes, false);
  default: return overFile(target, bytes);
  }
}

} // namespace

void SaveBytes(const std::string& path, const std::string& bytes) { SaveTo(path, bytes, SaveOverFile); }

void SaveWholeFile(const std::string& path, const std::string& bytes) { SaveTo(path, bytes, SaveInsteadOfFile); }

} // namespace strutwright
