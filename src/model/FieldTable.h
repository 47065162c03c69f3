#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace strutwright {

/// A table of 32-bit floats indexed (entity, field): one record a node or a member.
/// Entity 0 exists and is not used by the analysis.  In memory the entity varies fastest, field by field,
/// which is the order of the model file.
class FieldTable {
 public:
  /// A table with record 0 only, all zero.
  explicit FieldTable(int fields) : Fields(fields), Values(static_cast<std::size_t>(fields), 0.0F) {}

  /// Re-creates the table as records 0..count, all zero.
  void Recreate(int count);

  /// The last record's number.
  int Count() const { return LastRecord; }
  int FieldCount() const { return Fields; }

  /// Value of a field.  entity: 0..Count(), field: 0..FieldCount()-1; anything else throws std::out_of_range.
  float& operator()(int entity, int field) { return Values[Index(entity, field)]; }
  float operator()(int entity, int field) const { return Values[Index(entity, field)]; }

  /// All values in memory order, (Count() + 1) * FieldCount() of them.
  std::span<float> InOrder() { return Values; }
  std::span<const float> InOrder() const { return Values; }

  bool operator==(const FieldTable&) const = default;

 private:
  std::size_t Index(int entity, int field) const {
    if (entity < 0 || entity > LastRecord || field < 0 || field >= Fields) ThrowOutOfRange(entity, field);
    return static_cast<std::size_t>(field) * static_cast<std::size_t>(LastRecord + 1) +
           static_cast<std::size_t>(entity);
  }
  [[noreturn]] static void ThrowOutOfRange(int entity, int field);

  int Fields = 0;
  int LastRecord = 0;
  std::vector<float> Values;
};

} // namespace strutwright
