#pragma once

#include <stdexcept>
#include <string>

namespace strutwright {

/// What was to be imported can't be a model.  what() says why, as the rest of a sentence that may begin with the line.
class ImportError : public std::runtime_error {
 public:
  ImportError(int atLine, const std::string& reason) : std::runtime_error(reason), line(atLine) {}

  /// The reason, after the line that is at fault where there is one.
  std::string Sentence() const {
    return line > 0 ? "Line " + std::to_string(line) + ": " + what() : std::string(what());
  }

  int line; ///< of the text, from 1; 0 where it is not one line's fault
};

} // namespace strutwright
