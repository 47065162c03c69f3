#include "TiledMatrix.h"

#include "Ensure.h"
#include "FloatBits.h"

#include <algorithm>

namespace strutwright {

namespace {

std::size_t AsSize(int number) { return static_cast<std::size_t>(number); }

int Upward(int number, int unit) { return (number + unit - 1) / unit; }

bool IsEmptyRow(const float* row) {
  // -0 is something: only +0 may go unstored.
  return std::all_of(row, row + TileColumns, [](float value) { return BitsOfFloat(value) == 0; });
}

} // namespace

TiledMatrix::TiledMatrix(int n)
    : Size(n), GroupCount(Upward(n, TileRows)), WordCount(Upward(n, 64 * TileColumns)),
      P(AsSize(GroupCount * TileRows)), StoredBits(AsSize(GroupCount) * AsSize(WordCount)),
      LastGroups(AsSize(Upward(n, 64) * (64 / TileColumns)), -1), Places(AsSize(GroupCount) * LastGroups.size()) {
  Ensure(n >= 1, "equations are made for at least one freedom");
}

float& TiledMatrix::operator()(int row, int column) {
  Ensure(row >= 1 && row <= Size && column >= 1 && column <= Size + 1,
         "an entry of the equations is named inside their bounds");
  if (column > Size) return P[AsSize(row - 1)];
  float* tile = Make((row - 1) / TileRows, (column - 1) / TileColumns);
  return TileRow(tile, (row - 1) % TileRows)[(column - 1) % TileColumns];
}

float* TiledMatrix::Make(int group, int column) {
  if (float* tile = Find(group, column)) return tile;
  LastGroups[AsSize(column)] = std::max(LastGroups[AsSize(column)], group);
  const std::uint32_t place = NewPlace();
  Places[PlaceNumber(group, column)] = place;
  StoredBits[WordNumber(column / 64, group)] |= std::uint64_t{1} << (column % 64);
  float* tile = TileAt(place);
  std::fill_n(tile, TileSize, 0.0F);
  return tile;
}

void TiledMatrix::Drop(int group, int column) {
  if (!IsStored(group, column)) return;
  FreePlaces.push_back(Places[PlaceNumber(group, column)]);
  StoredBits[WordNumber(column / 64, group)] &= ~(std::uint64_t{1} << (column % 64));
}

std::uint32_t TiledMatrix::NewPlace() {
  if (!FreePlaces.empty()) {
    const std::uint32_t place = FreePlaces.back();
    FreePlaces.pop_back();
    return place;
  }
  if (PlacesUsed == Chunks.size() * TilesPerChunk) {
    Chunks.push_back(std::make_unique_for_overwrite<Tile[]>(TilesPerChunk));
  }
  return PlacesUsed++;
}

void TiledMatrix::ExchangeRowsOfTile(int one, int other, int column) {
  const auto rowOf = [column, this](int row) {
    float* tile = Find(row / TileRows, column);
    return tile == nullptr ? nullptr : TileRow(tile, row % TileRows);
  };
  float* upper = rowOf(one);
  float* lower = rowOf(other);
  if (upper == nullptr && IsEmptyRow(lower)) return;
  if (lower == nullptr && IsEmptyRow(upper)) return;
  if (upper == nullptr) upper = TileRow(Make(one / TileRows, column), one % TileRows);
  if (lower == nullptr) lower = TileRow(Make(other / TileRows, column), other % TileRows);
  std::swap_ranges(upper, upper + TileColumns, lower);
}

} // namespace strutwright
