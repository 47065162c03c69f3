#pragma once

#include <string>

namespace strutwright {

/// The user's settings on this desktop: texts by section and key, under the name of the program.  UTF-8.
/// Nothing throws: what can't be written is kept until the program ends.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;

  /// Takes in what other copies of the program have written meanwhile.
  virtual void Refresh() = 0;

  /// The text kept under a key; `fallback` where there is none.
  virtual std::string Get(const std::string& section, const std::string& key, const std::string& fallback) = 0;

  virtual void Save(const std::string& section, const std::string& key, const std::string& text) = 0;

  /// Forgets a key, which need not exist.
  virtual void Delete(const std::string& section, const std::string& key) = 0;
};

} // namespace strutwright
