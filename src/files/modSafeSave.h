#pragma once

#include <string>

namespace strutwright {

/// Makes `bytes` the beginning of the file and keeps what the old file held beyond them, as writing over it without
/// truncation would.
/// The complete new content is written beside the target, flushed and put in place in one step, so that a full disk
/// or a kill at any moment leaves the old file whole.  Symbolic links are followed; mode and, where allowed, owner
/// are kept.  A file with more than one name (hard links) is overwritten instead, after its whole new content has been
/// put beside it; that file goes when the work is done and stays where overwriting has failed for good, which the error
/// then says.  Only where the folder can't take a second file or won't let it replace the first, and for devices and
/// pipes, is the target itself written.
/// Throws FileError; the old file is then as it was, unless it had to be written itself.
void SaveBytes(const std::string& path, const std::string& bytes);

/// Makes `bytes` the whole file, as safely; only devices and pipes are written themselves.  A folder that can't take a
/// second file therefore refuses, on purpose: what the old file held beyond the new end could not be taken away.
/// Throws FileError; the old file is then as it was.
void SaveWholeFile(const std::string& path, const std::string& bytes);

} // namespace strutwright
