#include "modModelFile.h"

#include "Platform.h"
#include "modModelStore.h"
#include "modSafeSave.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <concepts>
#include <span>
#include <utility>

namespace strutwright {

namespace {

constexpr std::size_t CountsSize = 3 * sizeof(std::int16_t);
constexpr std::size_t ValueSize = sizeof(float);
constexpr std::size_t MaxRecords = 32768; // of a table, the one that is not used included

void AppendLittleEndian(std::string& bytes, std::unsigned_integral auto value) {
  for (std::size_t i = 0; i < sizeof(value); ++i) {
    bytes.push_back(static_cast<char>(static_cast<unsigned char>(std::uint64_t{value} >> (8 * i))));
  }
}

template <std::unsigned_integral Value>
Value LittleEndianAt(const std::string& bytes, std::size_t offset) {
  Value value = 0;
  for (std::size_t i = sizeof(Value); i-- > 0;) {
    value = static_cast<Value>((value << 8) | static_cast<unsigned char>(bytes[offset + i]));
  }
  return value;
}

void AppendCount(std::string& bytes, std::int16_t count) {
  AppendLittleEndian(bytes, static_cast<std::uint16_t>(count));
}

void AppendTable(std::string& bytes, const FieldTable& table) {
  for (const float value : table.InOrder()) AppendLittleEndian(bytes, std::bit_cast<std::uint32_t>(value));
}

std::int16_t CountAt(const std::string& bytes, std::size_t index) {
  return static_cast<std::int16_t>(LittleEndianAt<std::uint16_t>(bytes, index * sizeof(std::int16_t)));
}

std::size_t ValueCount(const FieldTable& table) { return table.InOrder().size(); }

std::string Bytes(const std::array<std::int16_t, 3>& counts, const FieldTable& nodes, const FieldTable& members) {
  std::string bytes;
  bytes.reserve(CountsSize + ValueSize * (ValueCount(nodes) + ValueCount(members)));
  for (const std::int16_t count : counts) AppendCount(bytes, count);
  AppendTable(bytes, nodes);
  AppendTable(bytes, members);
  return bytes;
}

/// The three counts, checked, with tables of zeros to match.
StoredModel ReadCounts(const std::string& bytes) {
  if (bytes.size() < CountsSize) throw FileError("The file is too short for a model");
  StoredModel model;
  model.capacity = CountAt(bytes, 0);
  model.nodeCount = CountAt(bytes, 1);
  model.memberCount = CountAt(bytes, 2);
  if (model.nodeCount < 0 || model.memberCount < 0) throw FileError("The file gives a negative number of records");
  model.nodes.Recreate(model.nodeCount);
  model.members.Recreate(model.memberCount);
  model.promisedValues = ValueCount(model.nodes) + ValueCount(model.members);
  return model;
}

/// Fills a table from the values that follow those already counted in the model.
void ReadTable(const std::string& bytes, StoredModel& model, FieldTable& table) {
  for (float& value : table.InOrder()) {
    const std::size_t offset = CountsSize + model.presentValues * ValueSize;
    if (offset + ValueSize > bytes.size()) return;
    ++model.presentValues;
    value = std::bit_cast<float>(LittleEndianAt<std::uint32_t>(bytes, offset));
    if (std::isfinite(value)) continue;
    value = 0.0F;
    ++model.notFiniteValues;
  }
}

} // namespace

StoredModel ModelInTables() { return {GridCapacity, NodeCount, MemberCount, NodeTable, MemberTable}; }

std::string WriteModel(const StoredModel& model) {
  return Bytes({model.capacity, model.nodeCount, model.memberCount}, model.nodes, model.members);
}

std::string ModelInGrids() {
  const ModelTables model = ReadGrids();
  const auto nodes = static_cast<std::int16_t>(model.nodes.Count());
  const auto members = static_cast<std::int16_t>(model.members.Count());
  return Bytes({GridCapacity, nodes, members}, model.nodes, model.members);
}

StoredModel ReadModel(const std::string& bytes) {
  StoredModel model = ReadCounts(bytes);
  ReadTable(bytes, model, model.nodes);
  ReadTable(bytes, model, model.members);
  return model;
}

void TakeModel(StoredModel model) {
  GridCapacity = model.capacity;
  NodeCount = model.nodeCount;
  MemberCount = model.memberCount;
  NodeTable = std::move(model.nodes);
  MemberTable = std::move(model.members);
}

void SaveModelFile(const std::string& path) { SaveBytes(path, WriteModel()); }

StoredModel LoadModelFile(const std::string& path) {
  // The largest model that can be opened; of a larger file, such as a video, the rest is not read.
  constexpr std::size_t MaxBytes = CountsSize + ValueSize * MaxRecords * (6 + 10);
  return ReadModel(Files().Read(path, 0, MaxBytes));
}

} // namespace strutwright
