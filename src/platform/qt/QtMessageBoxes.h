#pragma once

#include "MessageBoxes.h"

namespace strutwright {

/// Modal boxes over the active window.
class QtMessageBoxes : public MessageBoxes {
 public:
  void Show(const Message& message) override;
  bool Ask(const Message& question) override;
};

} // namespace strutwright
