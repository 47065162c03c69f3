#include "StiffnessMatrix.h"

#include "Ensure.h"

#include <algorithm>

namespace strutwright {

namespace {

constexpr std::size_t UsualEntries = 12; // of a row: a node and five neighbours, two each

void Accumulate(float& sum, float addend) {
  sum = static_cast<float>(static_cast<double>(sum) + static_cast<double>(addend));
}

} // namespace

StiffnessMatrix::StiffnessMatrix(int freedoms) : Rows(static_cast<std::size_t>(freedoms) + 1) {}

float StiffnessMatrix::operator()(int row, int column) const {
  Check(row, column);
  for (const Entry& entry : Rows[static_cast<std::size_t>(row)]) {
    if (entry.column == column) return entry.value;
  }
  return 0.0F;
}

void StiffnessMatrix::Add(int row, int column, float addend) {
  if (addend != 0.0F) Accumulate(Stored(row, column), addend);
}

void StiffnessMatrix::Restrain(int d) {
  Check(d, d);
  Entries& own = Rows[static_cast<std::size_t>(d)];
  for (const Entry& entry : own) {
    if (entry.column == d) continue;
    Entries& other = Rows[static_cast<std::size_t>(entry.column)];
    const auto place = Place(other, d);
    Ensure(place != other.end() && place->column == d, "what is stored of K is symmetric");
    other.erase(place);
  }
  own.assign(1, {d, 1.0F});
}

std::span<const StiffnessMatrix::Entry> StiffnessMatrix::Row(int row) const {
  Check(row, row);
  return Rows[static_cast<std::size_t>(row)];
}

std::size_t StiffnessMatrix::StoredCount() const {
  std::size_t count = 0;
  for (const Entries& row : Rows) count += row.size();
  return count;
}

bool StiffnessMatrix::operator==(const StiffnessMatrix& other) const {
  const auto isIn = [](const StiffnessMatrix& K, const StiffnessMatrix& in) {
    for (int row = 1; row <= K.Freedoms(); ++row) {
      for (const Entry& entry : K.Row(row)) {
        if (in(row, entry.column) != entry.value) return false;
      }
    }
    return true;
  };
  return Freedoms() == other.Freedoms() && isIn(*this, other) && isIn(other, *this);
}

void StiffnessMatrix::Check(int row, int column) const {
  Ensure(row >= 1 && row <= Freedoms() && column >= 1 && column <= Freedoms(),
         "an entry of K is named by its freedoms");
}

StiffnessMatrix::Entries::iterator StiffnessMatrix::Place(Entries& row, int column) {
  // A row is short: looking from its end finds the place sooner than halving does.
  auto place = row.end();
  while (place != row.begin() && (place - 1)->column >= column) --place;
  return place;
}

float& StiffnessMatrix::Stored(int row, int column) {
  Check(row, column);
  Entries& entries = Rows[static_cast<std::size_t>(row)];
  if (entries.capacity() == 0) entries.reserve(UsualEntries);
  auto place = Place(entries, column);
  if (place == entries.end() || place->column != column) place = entries.insert(place, {column, 0.0F});
  return place->value;
}

} // namespace strutwright
