#pragma once

#include <string>

namespace strutwright {

/// The desktop's register of file types: keys with one default value each, as Windows keeps them under its file
/// classes.  Components of a key are separated by "\".
class FileTypeRegistry {
 public:
  virtual ~FileTypeRegistry() = default;

  /// Gives a key, created with those above it as needed, its default value.  What fails is not told.
  virtual void SetDefault(const std::string& key, const std::string& value) = 0;

  /// Called after the last key of a file type: puts it into force.  What fails is not told.
  virtual void Announce() = 0;
};

} // namespace strutwright
