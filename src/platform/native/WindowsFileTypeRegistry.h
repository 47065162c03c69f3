#pragma once

#include "FileTypeRegistry.h"

namespace strutwright {

/// The file classes of Windows' registry.  They are read as Windows has them in force, for everybody and for this user,
/// and written for this user, which takes no administrator.
class WindowsFileTypeRegistry : public FileTypeRegistry {
 public:
  /// An installer's open command passes the file with "--open".
  bool IsInstalled(const std::string& typeClass, const std::string& extension, const std::string& program) override;
  void SetDefault(const std::string& key, const std::string& value) override;
  void Announce() override;
};

} // namespace strutwright
