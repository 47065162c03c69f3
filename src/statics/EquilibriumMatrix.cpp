#include "EquilibriumMatrix.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <set>

namespace strutwright {

namespace {

/// What is left of a direction, a number of size 1, when it should be nothing.
constexpr double NothingLeft = 1e-12;
/// How much smaller than the largest of its column a pivot may be, for the sake of a short row.
constexpr double ShortRowShare = 0.1;

std::size_t Slot(int number) { return static_cast<std::size_t>(number); }

} // namespace

/// The work of elimination: the rows that have no pivot yet, and how many of them each column is in.
class EquilibriumMatrix::Elimination {
 public:
  Elimination(EquilibriumMatrix& result, const std::vector<SparseColumn>& columns)
      : Result(result), Entries(Slot(result.Rows)), RowsOf(columns.size()), Value(columns.size(), 0),
        Present(columns.size(), 0), Taken(Slot(result.Rows), 0) {
    for (int column = 0; column < result.Columns; ++column) {
      for (const auto& [row, value] : columns[Slot(column)]) {
        if (value == 0) continue;
        Entries[Slot(row)].emplace_back(column, value);
        RowsOf[Slot(column)].push_back(row);
      }
      Emptiest.emplace(Count(column), column);
    }
  }

  void Run() {
    while (!Emptiest.empty()) {
      const int column = Emptiest.begin()->second;
      Emptiest.erase(Emptiest.begin());
      const int row = PivotRow(column);
      if (row < 0) DropColumn(column);
      if (row >= 0) TakePivot(row, column);
    }
    for (int row = 0; row < Result.Rows; ++row) {
      if (Taken[Slot(row)] == 0) Result.RowsLeft.push_back(row);
    }
  }

 private:
  std::size_t Count(int column) const { return RowsOf[Slot(column)].size(); }

  double ValueAt(int row, int column) const {
    for (const auto& [at, value] : Entries[Slot(row)]) {
      if (at == column) return value;
    }
    return 0;
  }

  /// The shortest row whose entry is not much smaller than the largest of the column; none where all are nothing.
  int PivotRow(int column) const {
    double largest = 0;
    for (const int row : RowsOf[Slot(column)]) largest = std::max(largest, std::abs(ValueAt(row, column)));
    int best = -1;
    if (largest <= NothingLeft) return best;
    for (const int row : RowsOf[Slot(column)]) {
      if (std::abs(ValueAt(row, column)) < ShortRowShare * largest) continue;
      if (best < 0 || Entries[Slot(row)].size() < Entries[Slot(best)].size()) best = row;
    }
    return best;
  }

  void EraseEntry(int row, int column) {
    std::erase_if(Entries[Slot(row)], [column](const auto& entry) { return entry.first == column; });
  }

  void DropColumn(int column) {
    for (const int row : RowsOf[Slot(column)]) EraseEntry(row, column);
  }

  void TakePivot(int row, int column) {
    Pivot pivot{row, column, ValueAt(row, column), {}, {}};
    EraseEntry(row, column);
    pivot.right = std::move(Entries[Slot(row)]);
    Taken[Slot(row)] = 1;
    for (const auto& [at, value] : pivot.right) Leave(row, at);
    for (const int other : RowsOf[Slot(column)]) {
      if (other == row) continue;
      const double factor = ValueAt(other, column) / pivot.value;
      EraseEntry(other, column);
      Subtract(factor, pivot, other);
      pivot.below.emplace_back(other, factor);
    }
    Result.Pivots.push_back(std::move(pivot));
  }

  void Subtract(double factor, const Pivot& pivot, int row) {
    auto& entries = Entries[Slot(row)];
    for (const auto& [at, value] : pivot.right) {
      Value[Slot(at)] = factor * value;
      Present[Slot(at)] = 1;
    }
    for (auto& [at, value] : entries) {
      value -= Value[Slot(at)];
      Present[Slot(at)] = 0;
      Value[Slot(at)] = 0;
    }
    for (const auto& [at, value] : pivot.right) {
      if (Present[Slot(at)] != 0) Join(row, at, -Value[Slot(at)]);
      Present[Slot(at)] = 0;
      Value[Slot(at)] = 0;
    }
  }

  void Leave(int row, int column) {
    Emptiest.erase({Count(column), column});
    std::erase(RowsOf[Slot(column)], row);
    Emptiest.emplace(Count(column), column);
  }

  void Join(int row, int column, double value) {
    Entries[Slot(row)].emplace_back(column, value);
    Emptiest.erase({Count(column), column});
    RowsOf[Slot(column)].push_back(row);
    Emptiest.emplace(Count(column), column);
  }

  EquilibriumMatrix& Result;
  std::vector<std::vector<std::pair<int, double>>> Entries; ///< of each row, without columns that had their turn
  std::vector<std::vector<int>> RowsOf;                     ///< of each column, without rows that have a pivot
  std::vector<double> Value;                                ///< one row spread out
  std::vector<char> Present;
  std::vector<char> Taken;                        ///< rows that have a pivot
  std::set<std::pair<std::size_t, int>> Emptiest; ///< columns that had no turn yet, by their number of rows
};

EquilibriumMatrix::EquilibriumMatrix(int rows, const std::vector<SparseColumn>& columns)
    : Rows(rows), Columns(static_cast<int>(columns.size())) {
  Elimination(*this, columns).Run();
}

std::vector<int> EquilibriumMatrix::PivotColumns() const {
  std::vector<int> columns;
  for (const Pivot& pivot : Pivots) columns.push_back(pivot.column);
  return columns;
}

std::vector<double> EquilibriumMatrix::Solve(std::vector<double> b) const {
  for (const Pivot& pivot : Pivots) {
    for (const auto& [row, factor] : pivot.below) b[Slot(row)] -= factor * b[Slot(pivot.row)];
  }
  std::vector<double> F(Slot(Columns), 0);
  for (auto pivot = Pivots.rbegin(); pivot != Pivots.rend(); ++pivot) {
    double sum = b[Slot(pivot->row)];
    for (const auto& [column, value] : pivot->right) sum -= value * F[Slot(column)];
    F[Slot(pivot->column)] = sum / pivot->value;
  }
  return F;
}

void EquilibriumMatrix::AddFromBelow(std::vector<double>& y) const {
  for (auto pivot = Pivots.rbegin(); pivot != Pivots.rend(); ++pivot) {
    for (const auto& [row, factor] : pivot->below) y[Slot(pivot->row)] -= factor * y[Slot(row)];
  }
}

std::vector<double> EquilibriumMatrix::SolveTransposed(std::vector<double> c) const {
  std::vector<double> y(Slot(Rows), 0);
  for (const Pivot& pivot : Pivots) {
    const double z = c[Slot(pivot.column)] / pivot.value;
    for (const auto& [column, value] : pivot.right) c[Slot(column)] -= value * z;
    y[Slot(pivot.row)] = z;
  }
  AddFromBelow(y);
  return y;
}

std::vector<double> EquilibriumMatrix::NullVector(int freeRow) const {
  std::vector<double> y(Slot(Rows), 0);
  y[Slot(freeRow)] = 1;
  AddFromBelow(y);
  return y;
}

} // namespace strutwright
