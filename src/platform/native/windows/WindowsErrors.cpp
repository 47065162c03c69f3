#include "WindowsErrors.h"

#include "WideText.h"

#include <algorithm>
#include <array>
#include <string>
#include <system_error>

#include <windows.h>

namespace strutwright {

namespace {

constexpr const char* HeldByAnother = "Another program holds the file open: close it there and try again";

struct Meaning {
  unsigned long code;
  std::errc reason;
};

constexpr std::array Meanings{
    Meaning{ERROR_FILE_NOT_FOUND, std::errc::no_such_file_or_directory},
    Meaning{ERROR_PATH_NOT_FOUND, std::errc::no_such_file_or_directory},
    Meaning{ERROR_INVALID_DRIVE, std::errc::no_such_file_or_directory},
    Meaning{ERROR_BAD_NETPATH, std::errc::no_such_file_or_directory},
    Meaning{ERROR_BAD_NET_NAME, std::errc::no_such_file_or_directory},
    Meaning{ERROR_ACCESS_DENIED, std::errc::permission_denied},
    Meaning{ERROR_NETWORK_ACCESS_DENIED, std::errc::permission_denied},
    Meaning{ERROR_WRITE_PROTECT, std::errc::read_only_file_system},
    Meaning{ERROR_SHARING_VIOLATION, std::errc::device_or_resource_busy},
    Meaning{ERROR_LOCK_VIOLATION, std::errc::device_or_resource_busy},
    Meaning{ERROR_USER_MAPPED_FILE, std::errc::device_or_resource_busy},
    Meaning{ERROR_FILE_EXISTS, std::errc::file_exists},
    Meaning{ERROR_ALREADY_EXISTS, std::errc::file_exists},
    Meaning{ERROR_DISK_FULL, std::errc::no_space_on_device},
    Meaning{ERROR_HANDLE_DISK_FULL, std::errc::no_space_on_device},
    Meaning{ERROR_FILENAME_EXCED_RANGE, std::errc::filename_too_long},
    Meaning{ERROR_BUFFER_OVERFLOW, std::errc::filename_too_long},
    Meaning{ERROR_DIRECTORY, std::errc::not_a_directory},
    Meaning{ERROR_DIR_NOT_EMPTY, std::errc::directory_not_empty},
    Meaning{ERROR_NOT_SAME_DEVICE, std::errc::cross_device_link},
};

/// Windows' own text, without the end of line that it has.
std::string SystemText(unsigned long code) {
  std::array<wchar_t, 512> text{};
  const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code, 0,
                                      text.data(), static_cast<DWORD>(text.size()), nullptr);
  std::string message = Utf8Text({text.data(), length});
  message.erase(message.find_last_not_of(". \r\n") + 1);
  return message.empty() ? "Windows reports the error " + std::to_string(code) : message;
}

FileError Described(const std::string& text, std::error_code code) {
  FileError error(text);
  error.code = code;
  return error;
}

} // namespace

FileError WindowsError(unsigned long code) {
  const auto* const found =
      std::find_if(Meanings.begin(), Meanings.end(), [code](const Meaning& each) { return each.code == code; });
  if (found == Meanings.end()) {
    return Described(SystemText(code), {static_cast<int>(code), std::system_category()});
  }
  const std::error_code reason = std::make_error_code(found->reason);
  return found->reason == std::errc::device_or_resource_busy ? Described(HeldByAnother, reason) : FileError(reason);
}

void ThrowWindowsError() { throw WindowsError(GetLastError()); }

} // namespace strutwright
