#pragma once

#include "FileSystem.h"
#include "FileTypeRegistry.h"

#include <memory>

namespace strutwright {

/// The register of file types that this system has, for this user.  files: must outlive it.
std::unique_ptr<FileTypeRegistry> MakeFileTypeRegistry(FileSystem& files);

} // namespace strutwright
