#include "NewFile.h"

namespace strutwright {

namespace {

/// Whether there surely is no such file.
bool IsGone(FileSystem& files, const std::string& path) {
  try {
    return files.Kind(path) == FileKind::Missing;
  } catch (const FileError&) {
    return false;
  }
}

} // namespace

void Discard(FileSystem& files, const std::string& path) {
  try {
    files.Remove(path);
  } catch (const FileError&) {
    return;
  }
}

std::string PutNewFileBeside(FileSystem& files, const std::string& target, const std::string& content, bool existed,
                             bool wait) {
  std::string fresh = files.CreateBeside(target);
  try {
    // The mode comes first: nobody may read, even for a moment, what is not theirs.
    if (existed) files.CopyMode(target, fresh);
    files.Write(fresh, content);
    if (wait) files.Flush(fresh);
  } catch (...) {
    Discard(files, fresh);
    throw;
  }
  return fresh;
}

void ReplaceByNewFile(FileSystem& files, const std::string& target, const std::string& content, bool existed,
                      bool wait) {
  const std::string fresh = PutNewFileBeside(files, target, content, existed, wait);
  try {
    files.Replace(fresh, target);
  } catch (const FileError& error) {
    // Windows may have taken the old file away before it failed: what lies beside it is then all there is.
    if (existed && IsGone(files, target)) {
      throw FileError(std::string(error.what()) + "\nThe whole content is in " + fresh);
    }
    Discard(files, fresh);
    throw;
  } catch (...) {
    Discard(files, fresh);
    throw;
  }
}

} // namespace strutwright
