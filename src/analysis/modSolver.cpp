#include "modSolver.h"

#include "LongWork.h"
#include "TiledSolver.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <utility>

namespace strutwright {

namespace {

/// Updates of entries after which `work` is asked again whether to go on: a few microseconds of work.
constexpr double UpdatesBetweenReports = 4000;

/// Updates for each freedom above which tiles are faster; bench_analysis compares.
constexpr double MaxUpdatesOfRows = 1000;

void Eliminate(RowEquations& equations, LongWork& work) {
  const double all = equations.Reach().Updates();
  double done = 0;
  double reported = -UpdatesBetweenReports; // the first column is one to report
  for (int p = 1; p < equations.Freedoms(); ++p) {
    done += equations.Reach().UpdatesOf(p);
    if (done > reported + UpdatesBetweenReports) work.Done((reported = done) / all);
    BringPivotUp(equations, p);
    EliminateColumn(equations, p);
  }
}

/// No result where a value is not finite and entries were left out: zero times infinity is not zero.  The caller then
/// solves with all entries.
std::optional<SolveOutcome> SolveRows(RowEquations equations, std::vector<float>& D, LongWork& work) {
  Eliminate(equations, work);
  if (!equations.CanBeTrusted()) return std::nullopt;
  if (!IsStable(equations)) return SolveOutcome::Unstable;
  BackSubstitute(equations);
  if (!equations.CanBeTrusted()) return std::nullopt;
  for (int i = 1; i <= equations.Freedoms(); ++i) D.at(static_cast<std::size_t>(i)) = equations.P(i);
  return SolveOutcome::Solved;
}

std::optional<SolveOutcome> SolveTiles(const StiffnessMatrix& K, std::vector<float>& D, const std::vector<float>& P,
                                       LongWork& work) {
  TiledMatrix tiles(K.Freedoms());
  for (int row = 1; row <= K.Freedoms(); ++row) {
    for (const StiffnessMatrix::Entry& entry : K.Row(row)) tiles(row, entry.column) = entry.value;
    tiles(row, K.Freedoms() + 1) = P.at(static_cast<std::size_t>(row));
  }
  switch (SolveTiled(tiles, D, PivotTolerance, Kernels().front(), work)) {
  case Solution::Found: return SolveOutcome::Solved;
  case Solution::Unstable: return SolveOutcome::Unstable;
  case Solution::NotFinite: break;
  }
  return std::nullopt;
}

} // namespace

SolveOutcome SolveEquations(const StiffnessMatrix& K, std::vector<float>& D, const std::vector<float>& P,
                            LongWork& work) {
  Envelope envelope = EnvelopeOf(K);
  const bool inTiles = TilesAreFaster(envelope);
  std::optional<SolveOutcome> outcome =
      inTiles ? SolveTiles(K, D, P, work) : SolveRows({K, P, std::move(envelope)}, D, work);
  if (!outcome) outcome = SolveRows({K, P, WholeEnvelope(K.Freedoms())}, D, work);
  return outcome.value();
}

bool TilesAreFaster(const Envelope& envelope) { return envelope.Updates() > MaxUpdatesOfRows * envelope.Freedoms(); }

int BringPivotUp(RowEquations& equations, int p) {
  int pivotRow = p;
  float best = std::abs(equations.K(p, p));
  for (int r = p + 1; r <= equations.LowestRow(p); ++r) {
    const float candidate = std::abs(equations.K(r, p));
    if (best < candidate) {
      pivotRow = r;
      best = candidate;
    }
  }
  if (pivotRow != p) equations.Exchange(p, pivotRow, p);
  return pivotRow;
}

void EliminateColumn(RowEquations& equations, int p) {
  const float* pivotRow = &equations.K(p, p);
  const double pivot = pivotRow[0];
  if (pivot == 0.0) return;
  // K(r, c) -= K(p, c) f, f = K(r, p) / K(p, p), rounded to a float each time.   Checked: two equations by hand.
  for (int r = p + 1; r <= equations.LowestRow(p); ++r) {
    float* row = &equations.K(r, p);
    const double factor = static_cast<double>(row[0]) / pivot;
    if (factor != 0.0) equations.ExtendTo(r, equations.LastColumn(p));
    const int last = equations.LastColumn(r) - p;
    for (int c = 1; c <= last; ++c) {
      row[c] = static_cast<float>(static_cast<double>(row[c]) - static_cast<double>(pivotRow[c]) * factor);
    }
    equations.P(r) = static_cast<float>(equations.P(r) - equations.P(p) * factor);
  }
  // The rows below get products of zero, which can turn a load of -0 into 0.
  if (std::signbit(equations.P(p)) != std::signbit(pivot)) equations.ClearSignsOfZeroLoads(equations.LowestRow(p) + 1);
}

bool IsStable(const RowEquations& equations) {
  for (int i = 1; i <= equations.Freedoms(); ++i) {
    if (PivotTolerance > std::abs(equations.K(i, i))) return false;
  }
  return true;
}

void BackSubstitute(RowEquations& equations) {
  // D(r) = (P(r) - sum of K(r, c) D(c) over c > r) / K(r, r), and P becomes D.
  for (int r = equations.Freedoms(); r >= 1; --r) {
    const float* row = &equations.K(r, r);
    const float* D = &equations.P(r);
    double sum = 0.0;
    for (int c = 1; c <= equations.LastColumn(r) - r; ++c)
      sum += static_cast<double>(row[c]) * static_cast<double>(D[c]);
    equations.P(r) = static_cast<float>((static_cast<double>(equations.P(r)) - sum) / static_cast<double>(row[0]));
  }
}

} // namespace strutwright
