#pragma once

#include "Paper.h"

namespace strutwright {

/// The desktop's print dialog over the active window.
class QtPrinters : public Printers {
 public:
  bool Print(const PaperDocument& document) override;
};

} // namespace strutwright
