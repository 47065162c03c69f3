#pragma once

#include "MessageBoxes.h"

#include <stdexcept>

namespace strutwright {

/// Shows nothing: a benchmark's models are sound.
class SilentBoxes : public MessageBoxes {
 public:
  void Show(const Message& message) override { throw std::runtime_error(message.text); }
  bool Ask(const Message& question) override { throw std::runtime_error(question.text); }
};

} // namespace strutwright
