#pragma once

#include "modClassSet.h"

#include <string>
#include <vector>

namespace strutwright {

/// A line of the key.
struct KeyEntry {
  std::string student;
  std::string question;
  std::string answer;
  double tolerance = 0; ///< absolute
  std::string unit;
};

/// The key as comma-separated values with the columns student,question,answer,tolerance,unit.
std::string KeyCsv(const std::vector<ClassVariant>& variants);

/// Reads a key, with commas, semicolons or tabs.  Throws ClassFault for what is no key.
std::vector<KeyEntry> ReadKey(const std::string& text);

} // namespace strutwright
