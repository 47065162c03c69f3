#pragma once

#include <stdexcept>
#include <string>

namespace strutwright {

/// What was asked of a class set can't be done.  what() says why in one sentence, without a full stop.
class ClassFault : public std::runtime_error {
 public:
  explicit ClassFault(const std::string& sentence) : std::runtime_error(sentence) {}
};

} // namespace strutwright
