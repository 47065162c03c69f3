#include "modOptions.h"

#include "AnalysisState.h"
#include "DisplayState.h"
#include "EditingState.h"
#include "RecentFiles.h"
#include "ViewEvents.h"
#include "WorkbenchState.h"
#include "modDrawing.h"
#include "modGrids.h"
#include "modModelRendering.h"
#include "modModelStore.h"
#include "modNumberText.h"
#include "modRecentFiles.h"
#include "modRedraw.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

namespace strutwright {

namespace {

constexpr float CapacityLimit = 5000;

void TakeNumber(const std::string& text, float& setting) { setting = NumericValue(text).value_or(setting); }

void TakeGridAndSnap() {
  TakeNumber(TheOptions.xSpaceTxt, GridSpacingX);
  TakeNumber(TheOptions.ySpaceTxt, GridSpacingY);
  TakeNumber(TheOptions.snapRtxt, PickRadius);
  StartNodeNumber = IntegerValue(TheOptions.snapSNtxt).value_or(StartNodeNumber);
}

void ShowGridAndSnap() {
  TheOptions.xSpaceTxt = NumberText(GridSpacingX);
  TheOptions.ySpaceTxt = NumberText(GridSpacingY);
  TheOptions.snapRtxt = NumberText(PickRadius);
  TheOptions.snapSNtxt = std::to_string(StartNodeNumber);
}

/// The data rows of a grid up to the last one that holds a text.
class KeptRows {
 public:
  explicit KeptRows(Grid& grid) : Kept(grid) {
    for (int row = 1; row < grid.RowCount(); ++row) Take(row);
    while (!Texts.empty() && IsEmpty(Texts.back())) Texts.pop_back();
  }

  /// Writes them where they stood, in a grid that has at least so many rows.
  void PutBack() const {
    if (Texts.empty()) return;
    const int count = static_cast<int>(Texts.size());
    if (Kept.RowCount() <= count) Kept.SetRowCount(count + 1);
    for (int row = 1; row <= count; ++row) {
      for (int column = 1; column < Kept.ColumnCount(); ++column) Kept.SetText(row, column, At(row, column));
    }
    NumberRows(Kept);
  }

 private:
  void Take(int row) {
    std::vector<std::string>& texts = Texts.emplace_back();
    for (int column = 1; column < Kept.ColumnCount(); ++column) texts.push_back(Kept.Text(row, column));
  }

  static bool IsEmpty(const std::vector<std::string>& texts) {
    return std::all_of(texts.begin(), texts.end(), [](const std::string& text) { return text.empty(); });
  }

  const std::string& At(int row, int column) const {
    return Texts.at(static_cast<std::size_t>(row - 1)).at(static_cast<std::size_t>(column - 1));
  }

  Grid& Kept;
  std::vector<std::vector<std::string>> Texts;
};

} // namespace

void TakeOptions() {
  TheOptions = {};
  TheRecentFiles.txtMaxFiles = RecentFiles{}.txtMaxFiles;
  TakeGridAndSnap();
  ChooseGridLineStyle(TheOptions.optGridline);
  ChangeCapacity(TheOptions.maxTxt);
  TheOptions.capacityChanged = false;
}

void FillOptions() {
  ShowGridAndSnap();
  TheOptions.maxTxt = std::to_string(GridCapacity);
  TheRecentFiles.txtMaxFiles = std::to_string(MAX_FILES);
  TheOptions.optGridline = GridLineStyle == 0 ? 0 : 1;
  TheOptions.capacityChanged = false;
}

void ChooseGridLineStyle(int index) {
  TheOptions.optGridline = index;
  GridLineStyle = static_cast<std::int16_t>(index);
}

void ChangeCapacity(const std::string& text) {
  TheOptions.maxTxt = text;
  const std::optional<std::int16_t> capacity = IntegerValue(text);
  TheOptions.capacityChanged = capacity.has_value() && NumericValue(text) < CapacityLimit;
  if (TheOptions.capacityChanged) GridCapacity = *capacity;
}

void LayOutForCapacity() {
  const KeptRows joints(GrJoints);
  const KeptRows members(GrMembers);
  const KeptRows jointResults(jResGr);
  const KeptRows memberResults(mResGr);
  initGrids();
  joints.PutBack();
  members.PutBack();
  if (AnalysisDone == FlagFalse) return;
  jointResults.PutBack();
  memberResults.PutBack();
}

void ApplyOptions() {
  TakeGridAndSnap();
  ShowGridAndSnap();
  if (TheDisplay.Layers.grid && DisplaySurface != nullptr) {
    TryDrawing([] { DrawGrid(*DisplaySurface, GridOfDisplay()); });
  }
  if (TheOptions.capacityChanged) LayOutForCapacity();
  ViewEvents().ViewChanged();
  applyMaxFiles();
}

} // namespace strutwright
