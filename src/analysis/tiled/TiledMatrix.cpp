#include "TiledMatrix.h"

#include "Ensure.h"

#include <algorithm>
#include <bit>

namespace strutwright {

namespace {

std::size_t AsSize(int number) { return static_cast<std::size_t>(number); }

int Upward(int number, int unit) { return (number + unit - 1) / unit; }

bool IsEmptyRow(const float* row) {
  // -0 is something: only +0 may go unstored.
  return std::all_of(row, row + TileColumns, [](float value) { return std::bit_cast<std::uint32_t>(value) == 0; });
}

} // namespace

TiledMatrix::TiledMatrix(int n)
    : Size(n), GroupCount(Upward(n, TileRows)), WordCount(Upward(n, 64 * TileColumns)),
      P(AsSize(GroupCount * TileRows)), Blocks(BlockNumber(WordCount, 0)),
      LastGroups(AsSize(Upward(n, 64) * (64 / TileColumns)), -1) {
  Ensure(n >= 1, "equations are made for at least one freedom");
}

float& TiledMatrix::operator()(int row, int column) {
  Ensure(row >= 1 && row <= Size && column >= 1 && column <= Size + 1,
         "an entry of the equations is named inside their bounds");
  if (column > Size) return P[AsSize(row - 1)];
  float* tile = Make((row - 1) / TileRows, (column - 1) / TileColumns);
  return TileRow(tile, (row - 1) % TileRows)[(column - 1) % TileColumns];
}

void TiledMatrix::Restrain(int d) {
  const int group = (d - 1) / TileRows;
  for (int word = 0; word < WordCount; ++word) {
    for (std::uint64_t bits = Stored(word, group); bits != 0; bits &= bits - 1) {
      const int column = 64 * word + std::countr_zero(bits);
      float* row = TileRow(Find(group, column), (d - 1) % TileRows);
      for (int c = 0; c < TileColumns; ++c) {
        if (row[c] == 0.0F) continue;
        (*this)(TileColumns * column + c + 1, d) = 0.0F;
        row[c] = 0.0F;
      }
    }
  }
  (*this)(d, d) = 1.0F;
}

std::vector<TiledMatrix::Entry> TiledMatrix::Entries() const {
  std::vector<Entry> entries;
  entries.reserve(AsSize(16) * PlacesUsed);
  for (int group = 0; group < GroupCount; ++group) {
    for (int word = 0; word < WordCount; ++word) {
      for (std::uint64_t bits = Stored(word, group); bits != 0; bits &= bits - 1) {
        const int column = 64 * word + std::countr_zero(bits);
        const float* tile = Find(group, column);
        for (int at = 0; at < TileSize; ++at) {
          if (tile[at] == 0.0F) continue;
          entries.push_back(
              {TileRows * group + at / TileColumns + 1, TileColumns * column + at % TileColumns + 1, tile[at]});
        }
      }
    }
  }
  return entries;
}

float* TiledMatrix::Make(int group, int column) {
  if (float* tile = Find(group, column)) return tile;
  Block& block = MakeBlock(column / 64, group);
  std::uint32_t& places = block.placesOf[InBlock(group)][InBlock(column) / ColumnsOfPlaces];
  if (places == 0) {
    places = static_cast<std::uint32_t>(PlacePool.size());
    PlacePool.emplace_back();
  }
  LastGroups[AsSize(column)] = std::max(LastGroups[AsSize(column)], group);
  const std::uint32_t place = NewPlace();
  PlacePool[places][AsSize(column % ColumnsOfPlaces)] = place;
  block.stored[InBlock(group)] |= std::uint64_t{1} << (column % 64);
  float* tile = TileAt(place);
  std::fill_n(tile, TileSize, 0.0F);
  return tile;
}

void TiledMatrix::Drop(int group, int column) {
  if (!IsStored(group, column)) return;
  FreePlaces.push_back(PlaceOf(group, column));
  Blocks[BlockNumber(column / 64, group)]->stored[InBlock(group)] &= ~(std::uint64_t{1} << (column % 64));
}

TiledMatrix::Block& TiledMatrix::MakeBlock(int word, int group) {
  std::unique_ptr<Block>& block = Blocks[BlockNumber(word, group)];
  if (!block) block = std::make_unique<Block>();
  return *block;
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
