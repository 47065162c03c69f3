#pragma once

#include <string>

namespace strutwright {

/// The desktop's clipboard.  Texts are UTF-8.
class Clipboard {
 public:
  virtual ~Clipboard() = default;

  /// The plain text on it; empty when it holds none.
  virtual std::string Text() = 0;

  /// Replaces what is on it.  html: the same as an HTML table, which spreadsheets prefer; empty for none.
  virtual void SetText(const std::string& text, const std::string& html) = 0;
};

} // namespace strutwright
