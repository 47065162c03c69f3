#include "DesktopFileTypes.h"

#include "NewFile.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

namespace strutwright {

namespace fs = std::filesystem;

namespace {

/// "strutwright" of "Strutwright": safe in the name of a file.
std::string FileNameOf(std::string program) {
  std::transform(program.begin(), program.end(), program.begin(), [](unsigned char character) {
    return std::isalnum(character) == 0 ? '-' : static_cast<char>(std::tolower(character));
  });
  return program;
}

/// "Strutwright" of "Strutwright.File".
std::string ProgramOf(const std::string& typeClass) { return typeClass.substr(0, typeClass.find('.')); }

std::string WithoutArgument(const std::string& command) {
  constexpr std::string_view Argument = " %1";
  return command.ends_with(Argument) ? command.substr(0, command.size() - Argument.size()) : command;
}

} // namespace

DesktopFileTypes::DesktopFileTypes(FileSystem& files, DesktopPlaces places, RenewIndexes renew)
    : Files(files), Places(std::move(places)), Renew(std::move(renew)) {}

std::string DesktopFileTypes::Value(const std::string& key) const {
  const auto found = Keys.find(key);
  return found == Keys.end() ? std::string() : found->second;
}

DesktopFileType DesktopFileTypes::TypeOf(const std::string& extension, const std::string& typeClass) const {
  const std::string program = ProgramOf(typeClass);
  return {.program = program,
          .name = FileNameOf(program),
          .title = Value(typeClass),
          .extension = extension,
          .command = WithoutArgument(Value(typeClass + "\\shell\\open\\command")),
          .icon = Value(typeClass + "\\DefaultIcon")};
}

void DesktopFileTypes::Announce() {
  for (const auto& [key, value] : Keys) {
    if (key.starts_with('.')) Register(TypeOf(key, value));
  }
  Keys.clear();
}

void DesktopFileTypes::Register(const DesktopFileType& type) {
  // An index that is not there was never made or was given up half way: the tools get another chance.
  std::error_code error;
  const bool indexed = fs::exists(InDataFolder("mime/" + type.MimeType() + ".xml"), error);
  if (PutDescriptions(type) || !indexed) Renew(Places.dataHome);
  PutDefaultApplication(type);
}

bool DesktopFileTypes::IsInstalled(const std::string& typeClass, const std::string& /*extension*/,
                                   const std::string& program) {
  const std::string name = FileNameOf(ProgramOf(typeClass));
  const fs::path entry = "applications/" + name + ".desktop";
  std::error_code error;
  const auto brings = [&](const fs::path& folder) {
    return fs::exists(folder / entry, error) && fs::exists(folder / "mime/packages" / (name + ".xml"), error);
  };
  if (!fs::exists(fs::path(Places.dataHome) / entry, error)) {
    return std::any_of(Places.dataFolders.begin(), Places.dataFolders.end(), brings);
  }
  const fs::path installed = fs::path(Places.dataHome) / "../bin" / fs::path(program).filename();
  return brings(Places.dataHome) && fs::equivalent(installed, program, error);
}

bool DesktopFileTypes::PutDescriptions(const DesktopFileType& type) {
  const bool mime = TryPut(InDataFolder("mime/packages/" + type.name + ".xml"),
                           [&](const std::string&) { return MimePackage(type); });
  const bool entry = TryPut(InDataFolder("applications/" + type.name + ".desktop"),
                            [&](const std::string&) { return DesktopEntry(type); });
  const bool icon = PutIcon(type);
  return mime || entry || icon;
}

bool DesktopFileTypes::PutIcon(const DesktopFileType& type) {
  if (!type.icon.ends_with(".svg")) return false;
  const auto copy = [&](const std::string&) { return Text(type.icon); };
  const std::string folder = InDataFolder("icons/hicolor/scalable/");
  const bool program = TryPut(folder + "apps/" + type.name + ".svg", copy);
  const bool file = TryPut(folder + "mimetypes/application-x-" + type.name + ".svg", copy);
  return program || file;
}

void DesktopFileTypes::PutDefaultApplication(const DesktopFileType& type) {
  TryPut(Places.configHome + "/mimeapps.list", [&](const std::string& list) {
    return WithDefaultApplication(list, type.MimeType(), type.name + ".desktop");
  });
}

/// A desktop that takes no file type must not keep anybody from the program.
bool DesktopFileTypes::TryPut(const std::string& path,
                              const std::function<std::string(const std::string& old)>& change) {
  try {
    return Put(path, change);
  } catch (const FileError&) {
    return false;
  }
}

/// Puts a changed text in the place of a file's in one step; false where it is the same.
bool DesktopFileTypes::Put(const std::string& path, const std::function<std::string(const std::string& old)>& change) {
  const bool isThere = Files.Kind(path) != FileKind::Missing;
  const std::string old = isThere ? Text(path) : std::string();
  const std::string fresh = change(old);
  if (isThere && fresh == old) return false;
  Files.CreateFolder(fs::path(path).parent_path().string());
  // What is new, the next start writes again if a power cut takes it.
  ReplaceByNewFile(Files, Files.FollowLinks(path), fresh, isThere, isThere);
  return true;
}

std::string DesktopFileTypes::Text(const std::string& path) { return Files.Read(path, 0, SIZE_MAX); }

} // namespace strutwright
