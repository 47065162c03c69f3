#pragma once

#include "DesktopTexts.h"
#include "FileSystem.h"
#include "FileTypeRegistry.h"
#include "NativePlaces.h"

#include <functional>
#include <map>
#include <string>

namespace strutwright {

/// Registers file types with a free desktop, for this user: the type in the shared MIME database, its icon, a desktop
/// entry that opens a file with "--open", and that as the default application.  What is right already is not written
/// again, and what the user has chosen stays.
class DesktopFileTypes : public FileTypeRegistry {
 public:
  /// Renews the desktop's own indexes over what is below a data folder; must not wait for them.
  using RenewIndexes = std::function<void(const std::string& dataFolder)>;

  DesktopFileTypes(FileSystem& files, DesktopPlaces places, RenewIndexes renew);

  /// A package has registered the type for everybody when it has brought a description and a desktop entry, for
  /// whatever copy of the program; an installation for this user when the entry is of the very program that asks.  An
  /// entry that this user has hides those for everybody.
  bool IsInstalled(const std::string& typeClass, const std::string& extension, const std::string& program) override;
  void SetDefault(const std::string& key, const std::string& value) override { Keys[key] = value; }
  void Announce() override;

 private:
  std::string Value(const std::string& key) const;
  DesktopFileType TypeOf(const std::string& extension, const std::string& typeClass) const;
  void Register(const DesktopFileType& type);
  bool PutDescriptions(const DesktopFileType& type);
  bool PutIcon(const DesktopFileType& type);
  void PutDefaultApplication(const DesktopFileType& type);
  bool TryPut(const std::string& path, const std::function<std::string(const std::string& old)>& change);
  bool Put(const std::string& path, const std::function<std::string(const std::string& old)>& change);
  std::string Text(const std::string& path);
  std::string InDataFolder(const std::string& path) const { return Places.dataHome + "/" + path; }

  FileSystem& Files;
  DesktopPlaces Places;
  RenewIndexes Renew;
  std::map<std::string, std::string> Keys;
};

/// Starts the desktop's own tools that renew its indexes, as far as they are there, and returns at once.  They end with
/// themselves or are ended after half a minute each.
void StartIndexTools(const std::string& dataFolder);

} // namespace strutwright
