#include "Panel.h"

#include "FloatBits.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <utility>

namespace strutwright {

namespace {

constexpr int PanelTiles = PanelWidth / TileColumns;

/// The largest size among `count` entries, as bits: they are in the order of the sizes, what is not finite at the end.
std::uint32_t LargestSize(const float* x, std::size_t count) {
  std::int32_t largest = 0;
  for (std::size_t i = 0; i < count; ++i) {
    largest = std::max(largest, static_cast<std::int32_t>(BitsOfFloat(x[i]) & ~NegativeZeroBits));
  }
  return static_cast<std::uint32_t>(largest);
}

bool HasNegativeZero(const float* x, std::size_t count) {
  std::uint32_t found = 0;
  for (std::size_t i = 0; i < count; ++i) found |= BitsOfFloat(x[i]) == NegativeZeroBits ? 1U : 0U;
  return found != 0;
}

/// Whether the entries of a group's rows in one column are all +0.
bool IsNothing(const float* entries) {
  static_assert(TileRows == 4);
  std::array<std::uint64_t, 2> bits{};
  std::memcpy(bits.data(), entries, sizeof bits);
  return (bits[0] | bits[1]) == 0;
}

} // namespace

void Panel::Load(const TiledMatrix& K, int first) {
  FirstColumn = first;
  Pivots = std::min(PanelWidth, K.Freedoms() - first);
  NegativePivot = false;
  Exchanged.clear();
  ListGroups(K);
  RowCount = GroupList.size() * TileRows;
  Columns.resize(RowCount * (PanelWidth + 1));
  FactorColumns.resize(RowCount * PanelWidth);
  for (std::size_t index = 0; index < GroupList.size(); ++index) {
    for (int quarter = 0; quarter < PanelTiles; ++quarter) {
      LoadTile(K.Find(GroupList[index], first / TileColumns + quarter), index, quarter);
    }
  }
  LoadRightHandSide(K.RightHandSide());
}

void Panel::ListGroups(const TiledMatrix& K) {
  const int column = FirstColumn / TileColumns;
  const int firstBelow = FirstColumn / TileRows + OwnGroups();
  GroupList.clear();
  for (int group = FirstColumn / TileRows; group < firstBelow; ++group) GroupList.push_back(group);
  int last = 0;
  for (int quarter = 0; quarter < PanelTiles; ++quarter) last = std::max(last, K.LastGroup(column + quarter));
  for (int group = firstBelow; group <= last; ++group) {
    if ((K.Stored(column / 64, group) >> (column % 64) & 0xFU) != 0) GroupList.push_back(group);
  }
}

void Panel::LoadTile(const float* tile, std::size_t index, int quarter) {
  for (int c = 0; c < TileColumns; ++c) {
    float* to = Column(TileColumns * quarter + c) + TileRows * index;
    for (int r = 0; r < TileRows; ++r) to[r] = tile == nullptr ? 0.0F : tile[TileColumns * r + c];
  }
}

void Panel::LoadRightHandSide(const std::vector<float>& P) {
  float* column = Column(Pivots);
  for (std::size_t row = 0; row < RowCount; ++row) column[row] = P[static_cast<std::size_t>(RowOfK(row))];
}

int Panel::RowOfK(std::size_t row) const {
  return TileRows * GroupList[row / TileRows] + static_cast<int>(row % TileRows);
}

Solution Panel::Eliminate(float tolerance, const Kernel& kernel) {
  for (int j = 0; j < Pivots; ++j) {
    GiveZerosTheirSigns(j);
    const Solution verdict = ChoosePivot(j, tolerance);
    if (verdict != Solution::Found) return verdict;
    ComputeFactors(j);
    UpdateColumnsAfter(j, kernel);
  }
  GiveZerosTheirSigns(Pivots);
  GatherFactors();
  return Solution::Found;
}

void Panel::GiveZerosTheirSigns(int c) {
  float* column = Column(c);
  if (!HasNegativeZero(column, RowCount)) return;
  // From the top, because the signs of the pivot rows' entries decide about those below.
  for (std::size_t row = 0; row < RowCount; ++row) {
    if (BitsOfFloat(column[row]) == NegativeZeroBits && LosesSign(c, row)) column[row] = 0.0F;
  }
}

bool Panel::LosesSign(int c, std::size_t row) const {
  std::array<double, PanelWidth> entries{};
  for (int j = 0; j < c; ++j) entries[static_cast<std::size_t>(j)] = static_cast<double>(Column(c)[j]);
  const int count = static_cast<int>(std::min(row, static_cast<std::size_t>(c)));
  return LosesMinusSign(FactorColumn(0) + row, static_cast<std::ptrdiff_t>(RowCount), entries.data(), 1, count);
}

// The row from j on with the largest entry; of equal ones the upper.
Solution Panel::ChoosePivot(int j, float tolerance) {
  const float* column = Column(j);
  const auto from = static_cast<std::size_t>(j);
  const std::uint32_t largest = LargestSize(column + from, RowCount - from);
  if (largest >= InfinityBits || LargestSize(column, from) >= InfinityBits) return Solution::NotFinite;
  // Elimination changes this entry no more, so that the stability check need not wait.
  if (tolerance > std::bit_cast<float>(largest)) return Solution::Unstable;
  const float* pivot = std::find_if(column + from, column + RowCount, [largest](float entry) {
    return (BitsOfFloat(entry) & ~NegativeZeroBits) == largest;
  });
  if (pivot != column + from) ExchangeRows(j, static_cast<std::size_t>(pivot - column));
  return Solution::Found;
}

void Panel::ExchangeRows(int j, std::size_t other) {
  const auto one = static_cast<std::size_t>(j);
  for (int c = 0; c <= Pivots; ++c) std::swap(Column(c)[one], Column(c)[other]);
  for (int before = 0; before < j; ++before) std::swap(FactorColumn(before)[one], FactorColumn(before)[other]);
  Exchanged.push_back({RowOfK(one), RowOfK(other)});
}

void Panel::ComputeFactors(int j) {
  const float* column = Column(j);
  double* factors = FactorColumn(j);
  const auto pivot = static_cast<double>(column[j]);
  const double zero = std::copysign(0.0, pivot);
  NegativePivot |= pivot < 0;
  Nothing[static_cast<std::size_t>(j)] = zero;
  // Group by group, as most hold only +0 and divisions take long.  The rows above j get factors that nobody asks for.
  for (auto row = static_cast<std::size_t>(j / TileRows * TileRows); row < RowCount; row += TileRows) {
    const bool nothing = IsNothing(column + row);
    if (!nothing) FactorEnd = row + TileRows;
    for (std::size_t r = row; r < row + TileRows; ++r) {
      factors[r] = nothing ? zero : static_cast<double>(column[r]) / pivot;
    }
  }
}

void Panel::UpdateColumnsAfter(int j, const Kernel& kernel) {
  // Most entries of the pivot row are zero, so that all that counts is how soon the next one is looked at.
  float* entry = Column(j) + j;
  const auto below = static_cast<std::size_t>(j) + 1;
  if (FactorEnd <= below) return;
  for (int c = j + 1; c <= Pivots; ++c) {
    entry += RowCount;
    if (*entry == 0.0F) continue;
    kernel.UpdateColumn(entry + 1, FactorColumn(j) + below, static_cast<double>(*entry), FactorEnd - below);
  }
}

void Panel::GatherFactors() {
  if (FactorsOf.size() < GroupList.size()) FactorsOf.resize(GroupList.size());
  BitsOf.assign(GroupList.size(), 0);
  BitsOfPivot.assign(GroupWords() * PanelWidth, 0);
  for (int j = 0; j < Pivots; ++j) {
    // Pivot j has no factors in the groups above its own.
    for (auto index = static_cast<std::size_t>(j / TileRows); index < GroupList.size(); ++index) {
      const double* from = FactorColumn(j) + TileRows * index;
      if (from[0] == 0.0 && from[1] == 0.0 && from[2] == 0.0 && from[3] == 0.0) continue;
      double* to = &FactorsOf[index].values[static_cast<std::size_t>(TileRows * j)];
      for (int r = 0; r < TileRows; ++r) to[r] = from[r];
      BitsOf[index] |= std::uint64_t{1} << j;
      BitsOfPivot[static_cast<std::size_t>(j) * GroupWords() + index / 64] |= std::uint64_t{1} << (index % 64);
    }
  }
}

void Panel::Store(TiledMatrix& K) {
  for (std::size_t index = 0; index < GroupList.size(); ++index) {
    for (int quarter = 0; quarter < PanelTiles; ++quarter) {
      K.Drop(GroupList[index], FirstColumn / TileColumns + quarter);
      const bool hasPivotRows = index < static_cast<std::size_t>(OwnGroups());
      const bool belowDiagonal = TileColumns * (quarter + 1) <= TileRows * static_cast<int>(index);
      if (hasPivotRows && !belowDiagonal) StoreTile(K, index, quarter);
    }
  }
  StoreRightHandSide(K.RightHandSide());
}

// Elimination fills entries that were not stored before: a tile is there for back substitution as soon as one of its
// entries on or right of the diagonal is not zero.
void Panel::StoreTile(TiledMatrix& K, std::size_t index, int quarter) const {
  alignas(64) std::array<float, TileSize> tile{};
  const int firstRow = TileRows * static_cast<int>(index);
  std::uint32_t some = 0;
  for (int c = 0; c < std::min(TileColumns, Pivots - TileColumns * quarter); ++c) {
    const int column = TileColumns * quarter + c;
    const float* from = Column(column) + firstRow;
    if (IsNothing(from)) continue;
    for (int r = 0; r < std::min(TileRows, column - firstRow + 1); ++r) {
      tile[static_cast<std::size_t>(TileColumns * r + c)] = from[r];
      some |= BitsOfFloat(from[r]) & ~NegativeZeroBits;
    }
  }
  if (some == 0) return;
  std::copy(tile.begin(), tile.end(), K.Make(GroupList[index], FirstColumn / TileColumns + quarter));
}

void Panel::StoreRightHandSide(std::vector<float>& P) {
  if (MinusZeroInP) GiveOtherRowsTheirSigns(P);
  const float* column = Column(Pivots);
  for (std::size_t row = 0; row < RowCount; ++row) P[static_cast<std::size_t>(RowOfK(row))] = column[row];
  const auto below = static_cast<std::size_t>(Pivots);
  MinusZeroInP |= HasNegativeZero(column + below, RowCount - below);
}

/// The rows that hold nothing in the panel's columns get products of zero only, all of them the same.
void Panel::GiveOtherRowsTheirSigns(std::vector<float>& P) {
  std::array<double, PanelWidth> entries{};
  std::copy_n(Column(Pivots), Pivots, entries.begin());
  if (!LosesMinusSign(Nothing.data(), 1, entries.data(), 1, Pivots)) return;
  std::replace(P.begin() + FirstColumn, P.end(), -0.0F, 0.0F);
  MinusZeroInP = false;
}

bool LosesMinusSign(const double* factors, std::ptrdiff_t factorStep, const double* pivotRowEntries,
                    std::ptrdiff_t entryStep, int count) {
  for (std::ptrdiff_t j = count - 1; j >= 0; --j) {
    const double f = factors[j * factorStep];
    const double u = pivotRowEntries[j * entryStep];
    if (f != 0.0 && u != 0.0) return false; // the entry became -0 by this product or after it
    if (std::signbit(f) != std::signbit(u)) return true;
  }
  return false;
}

} // namespace strutwright
