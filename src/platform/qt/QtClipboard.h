#pragma once

#include "Clipboard.h"

namespace strutwright {

/// The clipboard of the desktop.
class QtClipboard : public Clipboard {
 public:
  std::string Text() override;
  void SetText(const std::string& text, const std::string& html) override;
};

} // namespace strutwright
