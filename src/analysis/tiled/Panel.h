#pragma once

#include "Kernel.h"
#include "TiledMatrix.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace strutwright {

/// What came of solving equations.
enum class Solution {
  Found,
  Unstable, ///< a diagonal entry is below the tolerance; no displacement was written
  NotFinite ///< a value is no finite number: only the literal routines show what becomes of it
};

/// The factors of a group of rows for the pivots of a panel: 4 to each pivot.
struct alignas(64) GroupFactors {
  std::array<double, std::size_t{TileRows} * PanelWidth> values;
};

/// Elimination inside up to 64 columns and the right-hand side: the pivots are chosen here and the factors come from
/// here.  It works on a copy of the columns that holds the groups with something in them only, column after column.
/// Rows of a panel are counted from 0: first those of its pivots, then the others in their order.
class Panel {
 public:
  /// Two rows, counted from 0 over all equations, that have changed places.
  struct Exchange {
    int one;
    int other;
  };

  /// Copies the columns first.. of K, counted from 0, and its right-hand side; first is a multiple of 64.
  void Load(const TiledMatrix& K, int first);

  /// Eliminates; Solution::Found when all went well.  tolerance: of pivots, as SolveTiled has it.
  Solution Eliminate(float tolerance, const Kernel& kernel);

  /// Puts the pivot rows and the right-hand side back into K and takes the panel's columns of all other rows out of it.
  void Store(TiledMatrix& K);

  int First() const { return FirstColumn; }
  int PivotCount() const { return Pivots; }

  /// What was exchanged, in order: the columns of K behind the panel's are still to follow.
  const std::vector<Exchange>& Exchanges() const { return Exchanged; }

  /// The groups of K that the panel's rows are: OwnGroups() with its pivots and then those below that hold something.
  const std::vector<int>& Groups() const { return GroupList; }
  int OwnGroups() const { return (Pivots + TileRows - 1) / TileRows; }

  /// The factors of the group Groups()[index], and bit j set where one of its factors for pivot j is not zero.
  /// A pivot row has factors only for the pivots before it.  Where a bit is not set, the factors are not there.
  const double* Factors(std::size_t index) const { return FactorsOf[index].values.data(); }
  std::uint64_t FactorBits(std::size_t index) const { return BitsOf[index]; }

  /// The other way round, bit `index` of the words of pivot j set where the group has a factor for it that is not zero.
  const std::uint64_t* GroupBits(int j) const { return &BitsOfPivot[static_cast<std::size_t>(j) * GroupWords()]; }
  std::size_t GroupWords() const { return (GroupList.size() + 63) / 64; }

  /// All factors of row r of a group, the zeros with their signs; a step of FactorStep() leads to the next pivot's.
  const double* RowFactors(std::size_t index, int r) const { return FactorColumn(0) + TileRows * index + r; }
  std::ptrdiff_t FactorStep() const { return static_cast<std::ptrdiff_t>(RowCount); }

  /// The factors of a row that holds +0 in all columns, one after another: zeros with the signs of the pivots.
  const double* FactorsOfNothing() const { return Nothing.data(); }
  bool HasNegativePivot() const { return NegativePivot; }

 private:
  float* Column(int c) { return &Columns[static_cast<std::size_t>(c) * RowCount]; }
  const float* Column(int c) const { return &Columns[static_cast<std::size_t>(c) * RowCount]; }
  double* FactorColumn(int j) { return &FactorColumns[static_cast<std::size_t>(j) * RowCount]; }
  const double* FactorColumn(int j) const { return &FactorColumns[static_cast<std::size_t>(j) * RowCount]; }
  int RowOfK(std::size_t row) const;
  void ListGroups(const TiledMatrix& K);
  void LoadTile(const float* tile, std::size_t index, int quarter);
  void LoadRightHandSide(const std::vector<float>& P);
  void GiveZerosTheirSigns(int c);
  bool LosesSign(int c, std::size_t row) const;
  Solution ChoosePivot(int j, float tolerance);
  void ExchangeRows(int j, std::size_t other);
  void ComputeFactors(int j);
  void UpdateColumnsAfter(int j, const Kernel& kernel);
  void GatherFactors();
  void StoreTile(TiledMatrix& K, std::size_t index, int quarter) const;
  void StoreRightHandSide(std::vector<float>& P);
  void GiveOtherRowsTheirSigns(std::vector<float>& P);

  int FirstColumn = 0;
  int Pivots = 0;
  bool NegativePivot = false;
  bool MinusZeroInP = true; ///< the right-hand side may hold -0 in rows whose turn has not come
  std::size_t RowCount = 0;
  std::size_t FactorEnd = 0; ///< from this row on the pivot at work has no factor other than zero
  std::vector<int> GroupList;
  std::vector<float> Columns;        ///< PanelWidth columns of RowCount; the right-hand side follows the last in use
  std::vector<double> FactorColumns; ///< PanelWidth columns alike; of column j only rows j + 1.. are used
  std::vector<Exchange> Exchanged;
  std::vector<GroupFactors> FactorsOf;
  std::vector<std::uint64_t> BitsOf;
  std::vector<std::uint64_t> BitsOfPivot;
  std::array<double, PanelWidth> Nothing{};
};

/// True when an entry of -0 would have become +0 by the pivots before number `count`, of which only those have been
/// carried out whose product is not zero.  factors, pivotRowEntries: of the entry's row and column, so far apart.
/// A zero minus a zero product shows in its sign; this is the only thing that skipping such products could change.
bool LosesMinusSign(const double* factors, std::ptrdiff_t factorStep, const double* pivotRowEntries,
                    std::ptrdiff_t entryStep, int count);

} // namespace strutwright
