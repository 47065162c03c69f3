#include "ViewMatrix.h"

#include "Ensure.h"

#include <algorithm>

namespace strutwright {

ViewMatrix::ViewMatrix(int last) : Rows(static_cast<std::size_t>(last) + 1) {}

float ViewMatrix::operator()(int row, int column) const {
  Check(row, column);
  const Row& stored = Rows[static_cast<std::size_t>(row)];
  const auto place = std::lower_bound(stored.begin(), stored.end(), column,
                                      [](const Entry& entry, int sought) { return entry.column < sought; });
  return place != stored.end() && place->column == column ? place->value : 0.0F;
}

void ViewMatrix::Put(int row, int column, float value) {
  Check(row, column);
  Row& stored = Rows[static_cast<std::size_t>(row)];
  const auto place = Find(stored, column);
  if (place != stored.end() && place->column == column) {
    place->value = value;
  } else {
    stored.insert(place, {column, value});
  }
}

void ViewMatrix::ClearFreedom(int d) {
  Check(d, d);
  Row& cleared = Rows[static_cast<std::size_t>(d)];
  for (const Entry& entry : cleared) {
    if (entry.column != d) Erase(Rows[static_cast<std::size_t>(entry.column)], d);
  }
  cleared.assign(1, {d, 1.0F});
}

std::size_t ViewMatrix::StoredCount() const {
  std::size_t count = 0;
  for (const Row& row : Rows) count += row.size();
  return count;
}

TiledMatrix ViewMatrix::InTiles() const {
  TiledMatrix tiles(Last());
  for (int row = 1; row <= Last(); ++row) {
    for (const Entry& entry : Rows[static_cast<std::size_t>(row)]) tiles(row, entry.column) = entry.value;
  }
  return tiles;
}

Matrix ViewMatrix::InFull() const {
  Matrix full(Last(), Last() + 1);
  for (int row = 1; row <= Last(); ++row) {
    for (const Entry& entry : Rows[static_cast<std::size_t>(row)]) full(row, entry.column) = entry.value;
  }
  return full;
}

void ViewMatrix::Check(int row, int column) const {
  Ensure(row >= 1 && row <= Last() && column >= 1 && column <= Last(), "an entry of K is named by its freedoms");
}

ViewMatrix::Row::iterator ViewMatrix::Find(Row& row, int column) {
  return std::lower_bound(row.begin(), row.end(), column,
                          [](const Entry& entry, int sought) { return entry.column < sought; });
}

void ViewMatrix::Erase(Row& row, int column) {
  const auto place = Find(row, column);
  Ensure(place != row.end() && place->column == column, "what is stored of K is symmetric");
  row.erase(place);
}

} // namespace strutwright
