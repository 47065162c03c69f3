#include "NativeFileTypes.h"

#include "WindowsFileTypeRegistry.h"

namespace strutwright {

std::unique_ptr<FileTypeRegistry> MakeFileTypeRegistry(FileSystem& /*files*/) {
  return std::make_unique<WindowsFileTypeRegistry>();
}

} // namespace strutwright
