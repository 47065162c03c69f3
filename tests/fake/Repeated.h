#pragma once

#include <string>

namespace strutwright {

/// A text so many times in a row.
inline std::string Repeated(const std::string& text, int times) {
  std::string all;
  for (int time = 0; time < times; ++time) all += text;
  return all;
}

} // namespace strutwright
