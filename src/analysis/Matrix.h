#pragma once

#include "Ensure.h"

#include <cstddef>
#include <vector>

namespace strutwright {

/// A matrix of 32-bit floats indexed (row 0..LastRow, column 0..LastColumn), stored row after row.
/// Row and column 0 exist and are not used, so that indices are those of the equations.
class Matrix {
 public:
  Matrix() = default;
  Matrix(int lastRow, int lastColumn) { Recreate(lastRow, lastColumn); }

  /// Re-creates the matrix, all zero.
  void Recreate(int lastRow, int lastColumn) {
    Ensure(lastRow >= 0 && lastColumn >= 0, "a matrix is re-created with no negative bound");
    Last = {lastRow, lastColumn};
    Values.assign(static_cast<std::size_t>(lastRow + 1) * static_cast<std::size_t>(lastColumn + 1), 0.0F);
  }

  int LastRow() const { return Last.row; }
  int LastColumn() const { return Last.column; }

  float& operator()(int row, int column) { return Values[Index(row, column)]; }
  float operator()(int row, int column) const { return Values[Index(row, column)]; }

  /// The LastColumn() + 1 entries of a row, one after another in memory.
  float* Row(int row) { return &Values[Index(row, 0)]; }
  const float* Row(int row) const { return &Values[Index(row, 0)]; }

  bool operator==(const Matrix&) const = default;

 private:
  struct Bounds {
    int row = 0;
    int column = 0;
    bool operator==(const Bounds&) const = default;
  };

  std::size_t Index(int row, int column) const {
    Ensure(row >= 0 && row <= Last.row && column >= 0 && column <= Last.column,
           "a matrix entry is named inside its bounds");
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(Last.column + 1) + static_cast<std::size_t>(column);
  }

  Bounds Last;
  std::vector<float> Values = std::vector<float>(1, 0.0F);
};

} // namespace strutwright
