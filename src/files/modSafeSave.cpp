#include "modSafeSave.h"

#include "Platform.h"

#include <limits>
#include <system_error>

namespace strutwright {

namespace {

/// Removes a file that is not wanted after all; whether that works changes nothing for the user.
void Discard(const std::string& path) {
  try {
    Files().Remove(path);
  } catch (const FileError&) {
    return;
  }
}

void ReplaceByNewFile(const std::string& fresh, const std::string& target, const std::string& content, bool existed) {
  try {
    Files().Write(fresh, content);
    if (existed) Files().CopyMode(target, fresh);
    Files().Flush(fresh);
    Files().Replace(fresh, target);
  } catch (...) {
    Discard(fresh);
    throw;
  }
}

bool FolderTakesNoFile(const FileError& error) {
  return error.code == std::errc::permission_denied || error.code == std::errc::operation_not_permitted ||
         error.code == std::errc::read_only_file_system;
}

void WriteInPlace(const std::string& target, const std::string& content) {
  Files().Write(target, content);
  Files().Flush(target);
}

/// The path of an empty file beside the target; empty where the folder can't take a second file.
std::string FreshFile(const std::string& target) {
  try {
    return Files().CreateBeside(target);
  } catch (const FileError& error) {
    if (FolderTakesNoFile(error)) return {};
    throw;
  }
}

void SaveOverFile(const std::string& target, const std::string& bytes) {
  Files().CheckWritable(target);
  const std::string content = bytes + Files().Read(target, bytes.size(), std::numeric_limits<std::size_t>::max());
  const std::string fresh = FreshFile(target);
  if (fresh.empty()) {
    WriteInPlace(target, content);
  } else {
    ReplaceByNewFile(fresh, target, content, true);
  }
}

} // namespace

void SaveBytes(const std::string& path, const std::string& bytes) {
  const std::string target = Files().FollowLinks(path);
  switch (Files().Kind(target)) {
  case FileKind::Folder: throw FileError(std::make_error_code(std::errc::is_a_directory));
  case FileKind::Special: return WriteInPlace(target, bytes);
  case FileKind::File: return SaveOverFile(target, bytes);
  case FileKind::Missing: return ReplaceByNewFile(Files().CreateBeside(target), target, bytes, false);
  }
}

} // namespace strutwright
