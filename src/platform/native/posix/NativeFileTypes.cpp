#include "NativeFileTypes.h"

#include "DesktopFileTypes.h"
#include "NativePlaces.h"

namespace strutwright {

std::unique_ptr<FileTypeRegistry> MakeFileTypeRegistry(FileSystem& files) {
  return std::make_unique<DesktopFileTypes>(files, UserDesktopPlaces(), StartIndexTools);
}

} // namespace strutwright
