#pragma once

#include "TiledMatrix.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace strutwright {

/// Which tiles may hold a zero with a minus sign.  Such a zero is what is left of a number too small for a float; it
/// can lose its sign by a product of zero, so that these tiles are looked at even where nothing else happens.
class NegativeZeros {
 public:
  explicit NegativeZeros(const TiledMatrix& K)
      : GroupCount(static_cast<std::size_t>(K.Groups())), GroupsOf(static_cast<std::size_t>(K.RightHandSide()) + 1),
        Noted(GroupsOf.size() * GroupCount / 64 + 1), ColumnBits(static_cast<std::size_t>(K.Words())) {}

  void Note(int group, int column) {
    if (IsNoted(group, column)) return;
    ColumnBits[static_cast<std::size_t>(column / 64)] |= std::uint64_t{1} << (column % 64);
    Word(group, column) |= Bit(group, column);
    GroupsOf[static_cast<std::size_t>(column)].push_back(group);
  }

  bool IsNoted(int group, int column) { return (Word(group, column) & Bit(group, column)) != 0; }

  /// The columns with such tiles: bit b for tile column 64 word + b.
  std::uint64_t Columns(int word) const { return ColumnBits[static_cast<std::size_t>(word)]; }

  /// Forgets the tiles of a column and gives their groups.
  std::vector<int> Take(int column) {
    std::vector<int> groups;
    groups.swap(GroupsOf[static_cast<std::size_t>(column)]);
    ColumnBits[static_cast<std::size_t>(column / 64)] &= ~(std::uint64_t{1} << (column % 64));
    for (const int group : groups) Word(group, column) &= ~Bit(group, column);
    return groups;
  }

 private:
  std::size_t Index(int group, int column) const {
    return static_cast<std::size_t>(column) * GroupCount + static_cast<std::size_t>(group);
  }
  std::uint64_t& Word(int group, int column) { return Noted[Index(group, column) / 64]; }
  std::uint64_t Bit(int group, int column) const { return std::uint64_t{1} << (Index(group, column) % 64); }

  std::size_t GroupCount;
  std::vector<std::vector<int>> GroupsOf; ///< to each tile column
  std::vector<std::uint64_t> Noted;
  std::vector<std::uint64_t> ColumnBits;
};

} // namespace strutwright
