#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace strutwright {

/// A tile is 4 rows by 16 columns of 32-bit floats, row after row.  The rows 4g..4g+3, counted from 0, are group g.
inline constexpr int TileRows = 4;
inline constexpr int TileColumns = 16;
inline constexpr int TileSize = TileRows * TileColumns;

/// Row r, 0..3, of a tile.
inline float* TileRow(float* tile, std::ptrdiff_t r) { return tile + TileColumns * r; }
inline const float* TileRow(const float* tile, std::ptrdiff_t r) { return tile + TileColumns * r; }

/// The equations of an analysis, K beside P.  Of K only tiles that hold something are stored; an entry that is not
/// stored is +0.
class TiledMatrix {
 public:
  /// Equations for n freedoms, all zero.
  explicit TiledMatrix(int n);

  /// n
  int Freedoms() const { return Size; }

  /// Entry (row, column): row 1..n, column 1..n + 1, the last being P.  Stores the tile of an entry of K.
  float& operator()(int row, int column);

  // What follows counts rows, groups and tile columns from 0.  The columns of K that are left over stay zero.

  int Groups() const { return GroupCount; }
  int TileColumnCount() const { return static_cast<int>(LastGroups.size()); }

  /// P, an entry to each row of each group.
  std::vector<float>& RightHandSide() { return P; }
  const std::vector<float>& RightHandSide() const { return P; }

  /// The tile, or nothing where it is not stored.
  float* Find(int group, int column) {
    return IsStored(group, column) ? TileAt(Places[PlaceNumber(group, column)]) : nullptr;
  }
  const float* Find(int group, int column) const {
    return IsStored(group, column) ? TileAt(Places[PlaceNumber(group, column)]) : nullptr;
  }

  /// The tile, which is stored from now on.
  float* Make(int group, int column);

  /// Gives up a tile: its entries are +0 again.
  void Drop(int group, int column);

  /// Which tiles of a group are stored: bit b of word w for tile column 64 w + b.
  int Words() const { return WordCount; }
  std::uint64_t Stored(int word, int group) const { return StoredBits[WordNumber(word, group)]; }

  /// No group after this one has ever had a tile in the column.
  int LastGroup(int column) const { return LastGroups[static_cast<std::size_t>(column)]; }

  /// Exchanges two rows of K in tile columns column.. and after.
  /// exchanged: is called with each tile column where one of the two rows held something.
  template <typename Exchanged>
  void ExchangeRows(int one, int other, int column, Exchanged exchanged);

 private:
  static constexpr int TilesPerChunk = 128;
  struct alignas(64) Tile {
    std::array<float, TileSize> values;
  };
  std::size_t WordNumber(int word, int group) const {
    return static_cast<std::size_t>(group) * static_cast<std::size_t>(WordCount) + static_cast<std::size_t>(word);
  }
  /// Where the number of a tile's place among the chunks stands.
  std::size_t PlaceNumber(int group, int column) const {
    return static_cast<std::size_t>(group) * LastGroups.size() + static_cast<std::size_t>(column);
  }
  bool IsStored(int group, int column) const { return (Stored(column / 64, group) >> (column % 64) & 1U) != 0; }
  float* TileAt(std::uint32_t place) const {
    return Chunks[place / TilesPerChunk][place % TilesPerChunk].values.data();
  }
  std::uint32_t NewPlace();
  void ExchangeRowsOfTile(int one, int other, int column);

  int Size = 0;
  int GroupCount = 0;
  int WordCount = 0;
  std::vector<float> P;
  std::vector<std::uint64_t> StoredBits; ///< group after group
  std::vector<int> LastGroups;           ///< to each tile column
  std::vector<std::uint32_t> Places;     ///< group after group; of tiles that are stored
  std::vector<std::unique_ptr<Tile[]>> Chunks;
  std::uint32_t PlacesUsed = 0;
  std::vector<std::uint32_t> FreePlaces;
};

template <typename Exchanged>
void TiledMatrix::ExchangeRows(int one, int other, int column, Exchanged exchanged) {
  for (int word = column / 64; word < WordCount; ++word) {
    std::uint64_t bits = Stored(word, one / TileRows) | Stored(word, other / TileRows);
    if (word == column / 64) bits &= ~std::uint64_t{0} << (column % 64);
    for (; bits != 0; bits &= bits - 1) {
      const int each = 64 * word + std::countr_zero(bits);
      ExchangeRowsOfTile(one, other, each);
      exchanged(each);
    }
  }
}

} // namespace strutwright
