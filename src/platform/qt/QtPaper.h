#pragma once

#include "Paper.h"

namespace strutwright {

/// Documents through Qt; needs a QGuiApplication and no screen.
class QtPaper : public Paper {
 public:
  PaperPicture Picture(int width, int height, const std::function<void(DrawingSurface&)>& draw) override;
  std::string Pdf(const PaperDocument& document) override;
};

} // namespace strutwright
