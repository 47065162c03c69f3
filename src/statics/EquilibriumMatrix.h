#pragma once

#include <utility>
#include <vector>

namespace strutwright {

/// One column of a sparse matrix: pairs of row and value.
using SparseColumn = std::vector<std::pair<int, double>>;

/// Equilibrium equations A F = b, a row for each equation and a column for each unknown force, eliminated with pivots
/// from the emptiest column.  The joints that a hand would take first come out first, without any fill.
class EquilibriumMatrix {
 public:
  /// Eliminates.  A column that is, but for rounding, a combination of those before it gets no pivot.
  EquilibriumMatrix(int rows, const std::vector<SparseColumn>& columns);

  int Rank() const { return static_cast<int>(Pivots.size()); }

  /// The columns that got a pivot; together they are independent.
  std::vector<int> PivotColumns() const;

  /// The rows that got none: combinations of the others.
  const std::vector<int>& FreeRows() const { return RowsLeft; }

  /// F of A F = b, zero in columns without pivot.  b: as many as rows.
  std::vector<double> Solve(std::vector<double> b) const;

  /// y of A' y = c for the columns with pivots, zero in rows without.  c: as many as columns.
  std::vector<double> SolveTransposed(std::vector<double> c) const;

  /// y of A' y = 0 with 1 in that row of FreeRows.
  std::vector<double> NullVector(int freeRow) const;

 private:
  struct Pivot {
    int row = 0;
    int column = 0;
    double value = 0;
    std::vector<std::pair<int, double>> right; ///< the rest of its row: column and value
    std::vector<std::pair<int, double>> below; ///< the rows that lost a multiple of it: row and factor
  };
  class Elimination;

  void AddFromBelow(std::vector<double>& y) const;

  int Rows = 0;
  int Columns = 0;
  std::vector<Pivot> Pivots;
  std::vector<int> RowsLeft;
};

} // namespace strutwright
