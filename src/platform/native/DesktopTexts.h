#pragma once

#include <string>

namespace strutwright {

/// A file type as the files of a free desktop describe it.
struct DesktopFileType {
  std::string program;   ///< the program's name for people: "Strutwright"
  std::string name;      ///< the same for file names: "strutwright"
  std::string title;     ///< the type's name for people
  std::string extension; ///< with its point in front
  std::string command;   ///< full path of the executable
  std::string icon;      ///< full path of an icon file

  /// "application/x-strutwright"
  std::string MimeType() const { return "application/x-" + name; }
};

/// The package for the shared MIME database that gives files with the extension this type.
std::string MimePackage(const DesktopFileType& type);

/// The desktop entry that opens files of the type with the command.
std::string DesktopEntry(const DesktopFileType& type);

/// What starts the executable at a path in an Exec line, quoted where it needs to be.
std::string ExecCommand(const std::string& path);

/// A list of default applications (mimeapps.list) in which this one opens the MIME type; every other line stays.
/// Where the list names an application for the type already, that is the user's choice, and the list stays as it is.
std::string WithDefaultApplication(const std::string& list, const std::string& mimeType, const std::string& entry);

} // namespace strutwright
