#pragma once

#include <cstdlib>

namespace strutwright {

/// A number that the environment may set.
inline unsigned FromEnvironment(const char* name, unsigned otherwise) {
  const char* text = std::getenv(name);
  return text == nullptr ? otherwise : static_cast<unsigned>(std::strtoul(text, nullptr, 10));
}

} // namespace strutwright
