#include "TiledSolver.h"

#include "FloatBits.h"
#include "NegativeZeros.h"
#include "TiledBackSubstitution.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace strutwright {

namespace {

bool IsNegativeZero(float x) { return BitsOfFloat(x) == NegativeZeroBits; }

/// One tile column of a panel's pivot rows, as elimination leaves it.
struct PivotRows {
  alignas(64) std::array<double, std::size_t{PanelWidth} * TileColumns> entries{};
  std::array<bool, PanelWidth / TileRows> isClear{}; ///< a group of rows holds +0 only
  std::uint64_t bits = 0;                            ///< bit j set where row j holds something other than zero
  bool minus = false;                                ///< an entry, or a zero, has a minus sign
  bool finite = true;

  double* Row(std::ptrdiff_t j) { return entries.data() + TileColumns * j; }
  const double* Row(std::ptrdiff_t j) const { return entries.data() + TileColumns * j; }

  void Clear(int group) {
    if (isClear[static_cast<std::size_t>(group)]) return;
    std::fill_n(Row(std::ptrdiff_t{TileRows} * group), TileSize, 0.0);
    isClear[static_cast<std::size_t>(group)] = true;
  }
};

class Elimination {
 public:
  Elimination(TiledMatrix& equations, float pivotTolerance, const Kernel& inner, LongWork& progress)
      : K(equations), tolerance(pivotTolerance), kernel(inner), work(progress), negativeZeros(equations) {}

  Solution Run() {
    for (int first = 0; first < K.Freedoms(); first += PanelWidth) {
      const Solution verdict = EliminatePanel(first);
      if (verdict != Solution::Found) return verdict;
    }
    return Solution::Found;
  }

 private:
  Solution EliminatePanel(int first);
  void FollowExchanges();
  void NoteGroups();
  Solution UpdateColumnsRight();
  bool UpdateColumn(int column);
  bool FinishPivotRows(int column);
  void FinishPivotRow(float* row, int j);
  void KeepPivotRow(float* row, int j);
  void GivePivotZerosTheirSigns(float* row, int j);
  void UpdateTilesBelow(int column);
  void UpdateTile(int column, std::size_t index);
  void UpdateUntouchedZeros(int column, int group);
  bool MayLoseSigns(int index) const;
  bool GiveZerosTheirSigns(float* tile, int index) const;

  int ColumnAfter() const { return (panel.First() + PanelWidth) / TileColumns; }

  alignas(64) std::array<float, TileSize> fresh{}; ///< a tile that is not stored yet
  PivotRows pivotRows;
  TiledMatrix& K;
  float tolerance;
  const Kernel& kernel;
  LongWork& work;
  NegativeZeros negativeZeros;
  Panel panel;
  std::vector<std::uint64_t> columnsAtWork; ///< tile columns where the panel's pivot rows hold something
  std::vector<int> indexOf;                 ///< of a group among the panel's groups, -1 for none
};

// Step p leaves (n - p)^2 entries to change, so that the work ahead goes with the cube.
double ShareDone(int p, int n) {
  const double ahead = static_cast<double>(n - p) / n;
  return 1 - ahead * ahead * ahead;
}

Solution Elimination::EliminatePanel(int first) {
  work.Done(ShareDone(first, K.Freedoms()));
  panel.Load(K, first);
  Solution verdict = panel.Eliminate(tolerance, kernel);
  if (verdict != Solution::Found) return verdict;
  for (int column = first / TileColumns; column < ColumnAfter(); ++column) negativeZeros.Take(column);
  FollowExchanges();
  NoteGroups();
  verdict = UpdateColumnsRight();
  if (verdict != Solution::Found) return verdict;
  panel.Store(K);
  return Solution::Found;
}

void Elimination::FollowExchanges() {
  for (const Panel::Exchange& each : panel.Exchanges()) {
    const int upper = each.one / TileRows;
    const int lower = each.other / TileRows;
    K.ExchangeRows(each.one, each.other, ColumnAfter(), [=, this](int column) {
      if (!negativeZeros.IsNoted(upper, column) && !negativeZeros.IsNoted(lower, column)) return;
      negativeZeros.Note(upper, column);
      negativeZeros.Note(lower, column);
    });
  }
}

/// Notes where the panel's groups are, and where its pivot rows hold something.
void Elimination::NoteGroups() {
  indexOf.assign(static_cast<std::size_t>(K.Groups()), -1);
  columnsAtWork.assign(static_cast<std::size_t>(K.Words()), 0);
  const std::vector<int>& groups = panel.Groups();
  for (int index = 0; index < static_cast<int>(groups.size()); ++index) {
    const int group = groups[static_cast<std::size_t>(index)];
    indexOf[static_cast<std::size_t>(group)] = index;
    if (index >= panel.OwnGroups()) continue;
    for (int word = 0; word < K.Words(); ++word) columnsAtWork[static_cast<std::size_t>(word)] |= K.Stored(word, group);
  }
}

Solution Elimination::UpdateColumnsRight() {
  for (int word = ColumnAfter() / 64; word < K.Words(); ++word) {
    std::uint64_t columns = columnsAtWork[static_cast<std::size_t>(word)] | negativeZeros.Columns(word);
    if (word == ColumnAfter() / 64) columns &= ~std::uint64_t{0} << (ColumnAfter() % 64);
    for (; columns != 0; columns &= columns - 1) {
      if (!UpdateColumn(64 * word + std::countr_zero(columns))) return Solution::NotFinite;
    }
  }
  return Solution::Found;
}

/// False when something is not finite.
bool Elimination::UpdateColumn(int column) {
  work.Done(ShareDone(panel.First(), K.Freedoms()));
  if (!FinishPivotRows(column)) return false;
  const std::vector<int> withNegativeZeros = negativeZeros.Take(column);
  UpdateTilesBelow(column);
  for (const int group : withNegativeZeros) UpdateUntouchedZeros(column, group);
  return true;
}

/// Updates the pivot rows by each other in order; false when something is not finite.
bool Elimination::FinishPivotRows(int column) {
  pivotRows.bits = 0;
  pivotRows.minus = false;
  pivotRows.finite = true;
  for (int index = 0; index < panel.OwnGroups(); ++index) {
    const int group = panel.Groups()[static_cast<std::size_t>(index)];
    const std::uint64_t before = (std::uint64_t{1} << (TileRows * index)) - 1;
    const std::uint64_t pivots = panel.FactorBits(static_cast<std::size_t>(index)) & pivotRows.bits & before;
    float* tile = pivots != 0 ? K.Make(group, column) : K.Find(group, column);
    if (tile == nullptr) {
      pivotRows.Clear(index);
      continue;
    }
    const double* factors = panel.Factors(static_cast<std::size_t>(index));
    if (pivots != 0) kernel.UpdateTile({tile, factors, pivots}, pivotRows.Row(0));
    pivotRows.isClear[static_cast<std::size_t>(index)] = false;
    for (int r = 0; r < TileRows; ++r) FinishPivotRow(TileRow(tile, r), TileRows * index + r);
  }
  return pivotRows.finite;
}

/// Updates row j of the pivot rows by those before it in its own group; then it is as it stays.
void Elimination::FinishPivotRow(float* row, int j) {
  const auto group = static_cast<std::size_t>(j / TileRows);
  const double* factors = panel.Factors(group) + j % TileRows;
  const std::uint64_t pivots = panel.FactorBits(group) & pivotRows.bits;
  for (std::ptrdiff_t before = j - j % TileRows; before < j; ++before) {
    const double f = factors[TileRows * before];
    if ((pivots >> before & 1U) == 0 || f == 0.0) continue;
    const double* u = pivotRows.Row(before);
    for (int c = 0; c < TileColumns; ++c) row[c] = static_cast<float>(static_cast<double>(row[c]) - u[c] * f);
  }
  KeepPivotRow(row, j);
}

void Elimination::KeepPivotRow(float* row, int j) {
  std::uint32_t minusZero = 0;
  for (int c = 0; c < TileColumns; ++c) minusZero |= IsNegativeZero(row[c]) ? 1U : 0U;
  if (minusZero != 0) GivePivotZerosTheirSigns(row, j);
  // One loop for each result, which the compiler turns into a few instructions for all columns.
  double* entries = pivotRows.Row(j);
  std::uint32_t some = 0;
  std::uint32_t minus = 0;
  std::uint32_t notFinite = 0;
  for (int c = 0; c < TileColumns; ++c) entries[c] = static_cast<double>(row[c]);
  for (int c = 0; c < TileColumns; ++c) minus |= BitsOfFloat(row[c]);
  for (int c = 0; c < TileColumns; ++c) some |= BitsOfFloat(row[c]) & ~NegativeZeroBits;
  for (int c = 0; c < TileColumns; ++c) {
    notFinite |= (BitsOfFloat(row[c]) & InfinityBits) == InfinityBits ? 1U : 0U;
  }
  pivotRows.finite &= notFinite == 0;
  pivotRows.bits |= std::uint64_t{some != 0 ? 1U : 0U} << j;
  pivotRows.minus |= (minus & NegativeZeroBits) != 0;
}

void Elimination::GivePivotZerosTheirSigns(float* row, int j) {
  const double* factors = panel.RowFactors(static_cast<std::size_t>(j / TileRows), j % TileRows);
  for (int c = 0; c < TileColumns; ++c) {
    if (!IsNegativeZero(row[c])) continue;
    if (LosesMinusSign(factors, panel.FactorStep(), pivotRows.Row(0) + c, TileColumns, j)) row[c] = 0.0F;
  }
}

void Elimination::UpdateTilesBelow(int column) {
  const auto own = static_cast<std::size_t>(panel.OwnGroups());
  for (std::size_t word = own / 64; word < panel.GroupWords(); ++word) {
    std::uint64_t groups = 0;
    for (std::uint64_t pivots = pivotRows.bits; pivots != 0; pivots &= pivots - 1) {
      groups |= panel.GroupBits(std::countr_zero(pivots))[word];
    }
    if (word == own / 64) groups &= ~std::uint64_t{0} << (own % 64);
    for (; groups != 0; groups &= groups - 1) {
      UpdateTile(column, 64 * word + static_cast<std::size_t>(std::countr_zero(groups)));
    }
  }
}

/// index: of the group among the panel's.
void Elimination::UpdateTile(int column, std::size_t index) {
  const int group = panel.Groups()[index];
  float* stored = K.Find(group, column);
  if (stored == nullptr) fresh.fill(0.0F);
  float* tile = stored == nullptr ? fresh.data() : stored;
  bool minusZeros =
      kernel.UpdateTile({tile, panel.Factors(index), panel.FactorBits(index) & pivotRows.bits}, pivotRows.Row(0));
  minusZeros = minusZeros && GiveZerosTheirSigns(tile, static_cast<int>(index));
  if (minusZeros) negativeZeros.Note(group, column);
  if (stored != nullptr) return;
  // Products too small for a float may have left nothing.
  if (!minusZeros && std::all_of(fresh.begin(), fresh.end(), [](float entry) { return entry == 0.0F; })) return;
  std::copy(fresh.begin(), fresh.end(), K.Make(group, column));
}

/// What becomes of -0 in a tile where no product other than zero came.
void Elimination::UpdateUntouchedZeros(int column, int group) {
  const int index = indexOf[static_cast<std::size_t>(group)];
  if (group < panel.First() / TileRows + panel.OwnGroups()) return;
  if (index >= 0 && (panel.FactorBits(static_cast<std::size_t>(index)) & pivotRows.bits) != 0) return;
  float* tile = K.Find(group, column);
  if (tile == nullptr) return;
  if (!MayLoseSigns(index) || GiveZerosTheirSigns(tile, index)) negativeZeros.Note(group, column);
}

/// False where every product is +0: nothing in the row, and no minus in the pivot rows.
bool Elimination::MayLoseSigns(int index) const { return index >= 0 || panel.HasNegativePivot() || pivotRows.minus; }

/// True when the tile then still holds a -0.  index: among the panel's groups, -1 for none.
bool Elimination::GiveZerosTheirSigns(float* tile, int index) const {
  bool left = false;
  for (int at = 0; at < TileSize; ++at) {
    if (!IsNegativeZero(tile[at])) continue;
    const double* factors = panel.FactorsOfNothing();
    if (index >= 0) factors = panel.RowFactors(static_cast<std::size_t>(index), at / TileColumns);
    const bool loses = LosesMinusSign(factors, index < 0 ? 1 : panel.FactorStep(), pivotRows.Row(0) + at % TileColumns,
                                      TileColumns, panel.PivotCount());
    if (loses) tile[at] = 0.0F;
    left |= !loses;
  }
  return left;
}

} // namespace

Solution SolveTiled(TiledMatrix& K, std::vector<float>& D, float tolerance, const Kernel& kernel, LongWork& work) {
  // On the heap, because not every system aligns what lies on the stack as the kernels need it.
  const Solution verdict = std::make_unique<Elimination>(K, tolerance, kernel, work)->Run();
  return verdict == Solution::Found ? BackSubstituteTiled(K, D) : verdict;
}

} // namespace strutwright
