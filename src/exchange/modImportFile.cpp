#include "modImportFile.h"

#include "ImportError.h"
#include "ModelEvents.h"
#include "Platform.h"
#include "modImport.h"
#include "modModelStore.h"
#include "modNumberText.h"

#include <algorithm>
#include <array>
#include <functional>
#include <optional>
#include <utility>

namespace strutwright {

namespace {

std::string Counted(int count, const std::string& one) {
  return std::to_string(count) + " " + one + (count == 1 ? "" : "s");
}

int CountNodes(const StoredModel& model, const std::function<bool(int)>& isCounted) {
  int count = 0;
  for (int n = 1; n <= model.nodeCount; ++n) count += isCounted(n) ? 1 : 0;
  return count;
}

float TypedNumber(const std::string& text, const std::string& layer) {
  if (const auto value = CellNumber(text)) return *value;
  throw ImportError(0, Quoted(text) + " is no number: type E and A of the layer " + Quoted(layer) +
                           ", or leave both empty");
}

/// Cells show seven digits; an imported number keeps those behind them.
void KeepEveryDigit(const FieldTable& table, int count, int lastField, Grid& grid) {
  for (int row = 1; row <= count; ++row) {
    for (int field = 1; field <= lastField; ++field) {
      const float value = table(row, field);
      if (NumericValue(grid.Text(row, field)) != value) grid.SetText(row, field, ShortestText(value));
    }
  }
}

} // namespace

bool IsNameToImport(const std::string& path) {
  static constexpr std::array endings{".dxf", ".csv", ".txt", ".tsv", ".json"};
  const std::string small = InSmallLetters(path);
  return std::any_of(endings.begin(), endings.end(), [&](const char* ending) { return small.ends_with(ending); });
}

std::string ReadFileToImport(const std::string& path) {
  const FileKind kind = Files().Kind(path);
  if (kind == FileKind::Folder || kind == FileKind::Special) throw FileError("It is no file");
  if (!Files().Read(path, MaxImportBytes, 1).empty()) throw FileError("It has more than 64 MB");
  std::string text = Files().Read(path, 0, MaxImportBytes);
  if (text.find('\0') != std::string::npos && !CanBeImported(text)) {
    throw FileError("It holds no text; File > Open opens model files");
  }
  return text;
}

std::string ContentsOf(const StoredModel& model) {
  const int supports = CountNodes(model, [&](int n) { return model.nodes(n, NodeSupport) != 0; });
  const int loaded =
      CountNodes(model, [&](int n) { return model.nodes(n, NodeForceX) != 0 || model.nodes(n, NodeForceY) != 0; });
  return Counted(model.nodeCount, "node") + ", " + Counted(model.memberCount, "member") + ", " +
         Counted(supports, "support") + ", " + Counted(loaded, "loaded node");
}

double ToleranceOf(const std::string& millimetres) {
  constexpr float least = 0.001F;
  constexpr float most = 1e6F;
  const std::optional<float> value = NumericValue(millimetres);
  if (!value || *value < least || *value > most) {
    throw ImportError(0, "The tolerance is no number from 0.001 to 1000000: type one in mm, such as 1");
  }
  return static_cast<double>(*value) / 1000;
}

LayerTable LayersTyped(const std::vector<TypedLayer>& typed) {
  LayerTable table;
  for (const TypedLayer& each : typed) {
    if (TrimBlanks(each.E).empty() && TrimBlanks(each.A).empty()) continue;
    table[InSmallLetters(each.layer)] = {TypedNumber(each.E, each.layer), TypedNumber(each.A, each.layer)};
  }
  return table;
}

void ReplaceModel(StoredModel model) {
  EndAnalysis(); // or its results would be drawn on the new model
  model.capacity = GridCapacity;
  TakeModel(std::move(model));
  CopyModelToGrids();
  KeepEveryDigit(NodeTable, NodeCount, NodeSupport, GrJoints);
  KeepEveryDigit(MemberTable, MemberCount, MemberPS, GrMembers);
  ModelEvents().ModelReplaced();
}

} // namespace strutwright
