#pragma once

#include "TiledMatrix.h"

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace strutwright {

/// Which tiles may hold a zero with a minus sign.  Such a zero is what is left of a number too small for a float; it
/// can lose its sign by a product of zero, so that these tiles are looked at even where nothing else happens.
class NegativeZeros {
 public:
  explicit NegativeZeros(const TiledMatrix& K)
      : WordsOfGroups(static_cast<std::size_t>(K.Groups()) / 64 + 1),
        InColumn(static_cast<std::size_t>(K.TileColumnCount())), ColumnBits(static_cast<std::size_t>(K.Words())) {}

  void Note(int group, int column) {
    if (IsNoted(group, column)) return;
    ColumnBits[static_cast<std::size_t>(column / 64)] |= std::uint64_t{1} << (column % 64);
    Tiles& tiles = InColumn[static_cast<std::size_t>(column)];
    tiles.bits.resize(WordsOfGroups);
    tiles.bits[static_cast<std::size_t>(group / 64)] |= std::uint64_t{1} << (group % 64);
    tiles.groups.push_back(group);
  }

  bool IsNoted(int group, int column) const {
    const Tiles& tiles = InColumn[static_cast<std::size_t>(column)];
    return !tiles.groups.empty() && (tiles.bits[static_cast<std::size_t>(group / 64)] >> (group % 64) & 1U) != 0;
  }

  /// The columns with such tiles: bit b for tile column 64 word + b.
  std::uint64_t Columns(int word) const { return ColumnBits[static_cast<std::size_t>(word)]; }

  /// Forgets the tiles of a column and gives their groups.
  std::vector<int> Take(int column) {
    ColumnBits[static_cast<std::size_t>(column / 64)] &= ~(std::uint64_t{1} << (column % 64));
    return std::exchange(InColumn[static_cast<std::size_t>(column)], {}).groups;
  }

 private:
  /// Of one column, twice: in the order in which they were noted, and as bit b of word w for group 64 w + b.
  struct Tiles {
    std::vector<int> groups;
    std::vector<std::uint64_t> bits;
  };

  std::size_t WordsOfGroups;
  std::vector<Tiles> InColumn;
  std::vector<std::uint64_t> ColumnBits;
};

} // namespace strutwright
