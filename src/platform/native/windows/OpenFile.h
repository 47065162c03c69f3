#pragma once

#include <cstddef>
#include <string>

#include <windows.h>

namespace strutwright {

/// The attributes of a file or folder, or of the link that stands there; INVALID_FILE_ATTRIBUTES where there is none.
DWORD AttributesOf(const std::string& path);

/// Whether a path names a folder.
bool IsFolder(const std::string& path);

/// An open file that closes itself.  No other program is kept from it.
class OpenFile {
 public:
  /// access: GENERIC_READ and the like.  how: OPEN_EXISTING and the like.  flags: of the file, none as a rule.
  /// Throws FileError.
  OpenFile(const std::string& path, DWORD access, DWORD how, DWORD flags = 0);
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() { CloseHandle(Handle); }

  /// Each throws FileError.
  void GoTo(std::size_t offset) const;
  std::size_t ReadSome(char* buffer, std::size_t size) const; ///< once; gives the number of bytes, 0 at the end
  void WriteAll(const std::string& bytes) const;
  BY_HANDLE_FILE_INFORMATION Information() const;

  const HANDLE Handle;
};

/// What the system knows of an existing file or folder, links followed.  Throws FileError.
BY_HANDLE_FILE_INFORMATION InformationOf(const std::string& path);

} // namespace strutwright
