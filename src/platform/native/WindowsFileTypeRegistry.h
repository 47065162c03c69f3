#pragma once

#include "FileTypeRegistry.h"

namespace strutwright {

/// The file classes of Windows' registry, for everybody who uses the machine.
class WindowsFileTypeRegistry : public FileTypeRegistry {
 public:
  void SetDefault(const std::string& key, const std::string& value) override;
  void Announce() override;
};

} // namespace strutwright
