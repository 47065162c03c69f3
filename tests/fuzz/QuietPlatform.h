#pragma once

#include "FakePlatform.h"
#include "Platform.h"

#include <cstddef>

namespace strutwright {

/// A platform of stand-ins for one input, outside any test.
struct QuietPlatform {
  QuietPlatform() {
    ThePlatform().messages = &messages;
    ThePlatform().clipboard = &clipboard;
  }
  ~QuietPlatform() { ThePlatform() = {}; }
  QuietPlatform(const QuietPlatform&) = delete;
  QuietPlatform& operator=(const QuietPlatform&) = delete;

  std::size_t BoxCount() const { return messages.shown.size(); }

  FakeMessageBoxes messages;
  FakeClipboard clipboard;
};

} // namespace strutwright
