// Any bytes as another program's file, a table, JSON or DXF: read, or refused with a sentence; what was read can be
// written as a table and as JSON, and comes back the same.

#include "Ensure.h"
#include "ImportError.h"
#include "QuietPlatform.h"
#include "modImport.h"
#include "modModelJson.h"
#include "modModelStore.h"
#include "modTables.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

using namespace strutwright;

namespace {

/// Crossings of thousands of lines would leave the fuzzer no time for other inputs.
constexpr std::size_t MaxSplitBytes = 4000;

void CheckFinite(const FieldTable& table) {
  for (const float value : table.InOrder()) Ensure(std::isfinite(value), "a value that was read is finite");
}

void CheckComesBack(const std::string& text, const std::string& name, const StoredModel& model) {
  const StoredModel again = ImportText(text, name, {}).model;
  Ensure(again.nodes == model.nodes && again.members == model.members, "what was written reads back");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QuietPlatform platform;
  const std::string text(data, data + size);
  DrawingOptions options;
  options.split = size < MaxSplitBytes && size % 2 == 1;
  StoredModel model;
  try {
    model = ImportText(text, "truss.csv", options).model;
  } catch (const ImportError& refusal) {
    Ensure(!refusal.Sentence().empty(), "a refusal says why");
    return 0;
  }
  CheckFinite(model.nodes);
  CheckFinite(model.members);
  TakeModel(model);
  CheckComesBack(ModelToCsv(), "truss.csv", model);
  CheckComesBack(ModelToJson("truss.json"), "truss.json", model);
  return 0;
}
