#pragma once

#include "SettingsStore.h"

#include <QSettings>

namespace strutwright {

/// Settings in one file, which is replaced as a whole once the event loop is reached again, and at the end.
/// Copies of the program that run at once share it: each writes the keys that it has changed, and sees the others' keys
/// when it starts and after Refresh.
class QtSettingsStore : public SettingsStore {
 public:
  /// The file of this program: its executable's name, without folder and extension, and ".ini", in the place where the
  /// desktop keeps its user's settings.
  QtSettingsStore();

  /// file: its full path; need not exist.
  explicit QtSettingsStore(const QString& file);

  void Refresh() override;
  std::string Get(const std::string& section, const std::string& key, const std::string& fallback) override;
  void Save(const std::string& section, const std::string& key, const std::string& text) override;
  void Delete(const std::string& section, const std::string& key) override;

 private:
  QSettings File;
};

} // namespace strutwright
