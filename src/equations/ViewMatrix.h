#pragma once

#include "Matrix.h"
#include "TiledMatrix.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace strutwright {

/// A square matrix of 32-bit floats indexed 1..Last(), of which only what was put in takes memory: the global stiffness
/// matrix of a large truss is nearly all zeros.  The pattern of what is stored must be symmetric, as that of K is.
class ViewMatrix {
 public:
  /// All zero.
  explicit ViewMatrix(int last);

  int Last() const { return static_cast<int>(Rows.size()) - 1; }

  /// An entry; 0 where nothing was put.
  float operator()(int row, int column) const;

  void Put(int row, int column, float value);

  /// The row and the column of a restrained freedom zero, 1 on the diagonal.
  void ClearFreedom(int d);

  /// How many entries take memory.
  std::size_t StoredCount() const;

  /// The same for the solver, with a right-hand side of zeros.
  TiledMatrix InTiles() const;

  /// The same as a matrix in full, (0..Last(), 0..Last() + 1), with a last column of zeros for a right-hand side.
  Matrix InFull() const;

 private:
  struct Entry {
    int column;
    float value;
  };
  using Row = std::vector<Entry>; ///< by ascending column

  void Check(int row, int column) const;
  static Row::iterator Find(Row& row, int column);
  static void Erase(Row& row, int column);

  std::vector<Row> Rows; ///< row 0 is not used
};

} // namespace strutwright
