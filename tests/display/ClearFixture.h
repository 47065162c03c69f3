#pragma once

#include "ClearPalette.h"
#include "DisplayFixture.h"
#include "modAnalysis.h"
#include "modClearDrawing.h"

#include <algorithm>
#include <string>
#include <vector>

namespace strutwright {

/// Draws models clear on a recording surface of 800 by 600 pixels, whose letters are 0.6 of their height wide.
class ClearFixture : public DisplayFixture {
 protected:
  ClearFixture() {
    settings.layers = {false, false, false, false, false};
    settings.legend = false;
  }

  /// The window shows x from 0 at the left border and y from 0 at the lower one, so many pixels a metre.
  void Draw(double pixelsPerMetre = 100) {
    surface.window = {-1, static_cast<float>(1 - surface.height / pixelsPerMetre),
                      static_cast<float>(surface.width / pixelsPerMetre),
                      static_cast<float>(surface.height / pixelsPerMetre)};
    DrawHere();
  }

  void DrawHere() {
    surface.Forget();
    outcome = DrawClear(surface, ViewOf(surface, surface.window), settings, memory);
  }

  /// A model with its results.
  static void Analyse(const ModelData& model) {
    SetTables(model);
    ASSERT_EQ(AnalyseTruss(), AnalysisEnd::Done);
  }

  std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const PixelLabel& label : surface.pixelTexts) texts.push_back(label.text);
    return texts;
  }

  /// The label of a text; without it a test ends here.
  PixelLabel LabelOf(const std::string& text) const {
    const auto found = std::find_if(surface.pixelTexts.begin(), surface.pixelTexts.end(),
                                    [&](const PixelLabel& label) { return label.text == text; });
    EXPECT_NE(found, surface.pixelTexts.end()) << text;
    return found == surface.pixelTexts.end() ? PixelLabel{} : *found;
  }

  std::vector<RecordingSurface::PixelLineInk> LinesOf(Colour colour) const {
    std::vector<RecordingSurface::PixelLineInk> lines;
    for (const auto& line : surface.pixelLines) {
      if (line.look.colour == colour) lines.push_back(line);
    }
    return lines;
  }

  const ClearScene& Scene() const { return memory.Last(); }

  ClearSettings settings;
  ClearMemory memory;
  ClearOutcome outcome;
};

} // namespace strutwright
