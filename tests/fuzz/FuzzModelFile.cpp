// Any bytes as a model file: read, or refused; what was read is written and read back to the same model, and its
// numbers pass through the texts of the grids.

#include "Ensure.h"
#include "FakePlatform.h"
#include "FileSystem.h"
#include "modModelFile.h"
#include "modModelStore.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

using namespace strutwright;

namespace {

void CheckValues(const FieldTable& table) {
  for (const float value : table.InOrder()) Ensure(std::isfinite(value), "a value that was read is finite");
}

void CheckRoundTrip(const StoredModel& model) {
  TakeModel(model);
  const StoredModel again = ReadModel(WriteModel());
  Ensure(again.nodes == model.nodes && again.members == model.members, "what was written reads back");
  Ensure(again.presentValues == again.promisedValues, "what was written is complete");
}

/// Copying many rows cell by cell would leave the fuzzer no time for other inputs.
bool IsSmall(const StoredModel& model) { return model.nodeCount < 200 && model.memberCount < 200; }

void CheckGrids() {
  GrJoints.SetColumnCount(6);
  GrMembers.SetColumnCount(6);
  const std::int16_t nodes = NodeCount;
  const std::int16_t members = MemberCount;
  CopyModelToGrids();
  RebuildModelFromGrids();
  Ensure(NodeCount == nodes && MemberCount == members, "every row of an opened model counts");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    const StoredModel model = ReadModel(std::string(data, data + size));
    CheckValues(model.nodes);
    CheckValues(model.members);
    CheckRoundTrip(model);
    if (IsSmall(model)) CheckGrids();
  } catch (const FileError&) {
    return 0; // refused
  }
  return 0;
}
