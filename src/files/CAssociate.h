#pragma once

#include <stdexcept>
#include <string>

namespace strutwright {

/// A property that Associate needs is empty.  what() is the description.
class AssociateError : public std::runtime_error {
 public:
  AssociateError(int errorNumber, const std::string& description)
      : std::runtime_error(description), number(errorNumber) {}

  int number; ///< 922: Title, 926: Class, 930: AppCommand
  std::string source = "Associate Class";
};

/// Registers a file type with the desktop, so that its files open in a program.
class CAssociate {
 public:
  std::string Title;       ///< the type's name for people
  std::string Class;       ///< the type's name for programs
  std::string Extension;   ///< with its point in front; not checked
  std::string AppCommand;  ///< full path of the program's executable
  std::string DefaultIcon; ///< full path of an icon file

  /// Writes the type's name, extension, open command and icon.
  /// Throws AssociateError, and then nothing is written; a single write that the desktop refused is not reported.
  void Associate() const;

 private:
  void Validate() const;
};

} // namespace strutwright
