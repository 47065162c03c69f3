#include "DesktopFileTypes.h"

#include <cerrno>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace strutwright {

namespace {

/// $1: the data folder.  The shell goes on in the background and holds nothing that the program's starter waits for.
/// An icon cache is made by nobody but renewed where there is one, because it hides what is newer than itself.
constexpr const char* Script = R"(
run() { if command -v timeout; then timeout 30 "$@"; else "$@"; fi; }
{
  run update-mime-database "$1/mime"
  run update-desktop-database "$1/applications"
  if [ -e "$1/icons/hicolor/icon-theme.cache" ]; then run gtk-update-icon-cache -q -t -f "$1/icons/hicolor"; fi
} </dev/null >/dev/null 2>&1 &
)";

} // namespace

void StartIndexTools(const std::string& dataFolder) {
  const char* const arguments[] = {"sh", "-c", Script, "sh", dataFolder.c_str(), nullptr};
  posix_spawnattr_t attributes;
  if (posix_spawnattr_init(&attributes) != 0) return;
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID);
  pid_t shell = 0;
  const int failure =
      posix_spawn(&shell, "/bin/sh", nullptr, &attributes, const_cast<char* const*>(arguments), environ);
  posix_spawnattr_destroy(&attributes);
  if (failure != 0) return;
  while (waitpid(shell, nullptr, 0) < 0 && errno == EINTR) {
  }
}

} // namespace strutwright
