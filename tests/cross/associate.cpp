// Registers a file type on Windows, unless an installer has done so, which gives the status 3.
// Usage: associate TITLE CLASS EXTENSION COMMAND ICON

#include "CAssociate.h"
#include "Platform.h"
#include "WindowsFileTypeRegistry.h"

#include <cstdio>

int main(int argc, char** argv) {
  if (argc != 6) return 2;
  strutwright::WindowsFileTypeRegistry types;
  strutwright::ThePlatform().fileTypes = &types;
  strutwright::CAssociate type;
  type.Title = argv[1];
  type.Class = argv[2];
  type.Extension = argv[3];
  type.AppCommand = argv[4];
  type.DefaultIcon = argv[5];
  if (types.IsInstalled(type.Class, type.Extension, type.AppCommand)) return 3;
  try {
    type.Associate();
  } catch (const strutwright::AssociateError& error) {
    std::printf("%d %s: %s\n", error.number, error.source.c_str(), error.what());
    return 1;
  }
  return 0;
}
