#pragma once

#include "FileSystem.h"

#include <string>

namespace strutwright {

/// Puts a file with this content beside `target`, under a name of its own, and returns its path.
/// existed: whether there is a target; its mode and, where allowed, owner are taken then.
/// wait: until the disk has the content.
/// Throws FileError; there is no file then.
std::string PutNewFileBeside(FileSystem& files, const std::string& target, const std::string& content, bool existed,
                             bool wait = true);

/// Removes a file that is not wanted any more; whether that works changes nothing for the user.
void Discard(FileSystem& files, const std::string& path);

/// Puts a new file with this content in the place of `target` in one step: whatever fails, and whenever the program is
/// killed, the old file is whole.  An existing target's mode and, where allowed, owner are kept.
/// existed: whether there is a target.  wait: until the disk has the new file; without that, a power cut may take both.
/// Throws FileError; nothing has changed then, but for a system that took the old file away before it failed: the new
/// one then lies beside it, and the message names it.
void ReplaceByNewFile(FileSystem& files, const std::string& target, const std::string& content, bool existed,
                      bool wait = true);

} // namespace strutwright
