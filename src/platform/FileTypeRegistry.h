#pragma once

#include <string>

namespace strutwright {

/// The desktop's register of file types: keys with one default value each, as Windows keeps them under its file
/// classes.  Components of a key are separated by "\".
class FileTypeRegistry {
 public:
  virtual ~FileTypeRegistry() = default;

  /// Whether an installer or a package has registered a file type, which then stays as it is.
  /// typeClass: the type's name for programs.  extension: with its point.  program: the full path of the one that asks.
  virtual bool IsInstalled(const std::string& typeClass, const std::string& extension, const std::string& program) = 0;

  /// Gives a key, created with those above it as needed, its default value.  A failure is not reported.
  virtual void SetDefault(const std::string& key, const std::string& value) = 0;

  /// Called after the last key of a file type: puts it into force.  A failure is not reported.
  virtual void Announce() = 0;
};

} // namespace strutwright
