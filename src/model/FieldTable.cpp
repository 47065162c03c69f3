#include "FieldTable.h"

#include "Ensure.h"

#include <stdexcept>

namespace strutwright {

void FieldTable::Recreate(int count) {
  Ensure(count >= 0, "a table is re-created with no negative count");
  LastRecord = count;
  Values.assign(static_cast<std::size_t>(Fields) * static_cast<std::size_t>(count + 1), 0.0F);
}

void FieldTable::ThrowOutOfRange(int entity, int field) {
  throw std::out_of_range("table index " + std::to_string(entity) + "," + std::to_string(field));
}

} // namespace strutwright
