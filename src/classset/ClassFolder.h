#pragma once

#include <string>

namespace strutwright {

/// A folder that appears with all that it holds, or not at all: it is filled beside its place under another name.
class ClassFolder {
 public:
  /// Throws ClassFault where something has the folder's name already, and FileError where it can't be made.
  explicit ClassFolder(const std::string& path);
  /// Takes away what has not been finished.
  ~ClassFolder();
  ClassFolder(const ClassFolder&) = delete;
  ClassFolder& operator=(const ClassFolder&) = delete;

  /// Puts a file into it, or into a folder in it: "key.csv", "Ann/model.stw".  Throws FileError.
  void Put(const std::string& name, const std::string& bytes);

  /// Puts the folder in its place.  Throws FileError.
  void Finish();

 private:
  std::string Target;
  std::string Unfinished;
};

} // namespace strutwright
