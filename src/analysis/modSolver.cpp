#include "modSolver.h"

#include "AnalysisState.h"
#include "Ensure.h"
#include "LongWork.h"
#include "TiledSolver.h"
#include "modAnalysis.h"
#include "modRenumbering.h"

#include <cmath>
#include <cstddef>
#include <string>
#include <utility>

namespace strutwright {

namespace {

constexpr const char* SolvingText = "Solving the equations";
constexpr const char* RenumberingHint = " (Tools > Renumber Nodes Along the Span makes this faster)";

/// The row from p on with the largest entry of column p; of equal ones the upper.
int FindPivotRow(const Matrix& K, int p, int n) {
  int pivotRow = p;
  float best = std::abs(K(p, p));
  for (int r = p + 1; r <= n; ++r) {
    const float candidate = std::abs(K(r, p));
    if (best < candidate) {
      pivotRow = r;
      best = candidate;
    }
  }
  return pivotRow;
}

/// Exchanges what elimination still reads of two rows: columns p..n + 1.
void ExchangeRows(Matrix& K, int p, int other, int n) {
  float* upper = K.Row(p);
  float* lower = K.Row(other);
  for (int c = p; c <= n + 1; ++c) std::swap(upper[c], lower[c]);
}

void GiveUpUnstable(std::int16_t& ok) {
  ReportAnalysisFailure(UnstableCheck);
  ok = FlagFalse;
}

} // namespace

void SolveEquations(Matrix& K, std::vector<float>& D, const std::vector<float>& P, std::int16_t n, std::int16_t& ok) {
  for (int i = 1; i <= n; ++i) K(i, n + 1) = P.at(static_cast<std::size_t>(i));
  LongWork work(SolvingText);
  for (std::int16_t p = 1; p < n; ++p) {
    work.Done(ShareOfElimination(p, n));
    const int pivotRow = FindPivotRow(K, p, n);
    if (pivotRow != p) ExchangeRows(K, p, pivotRow, n);
    EliminateColumn(K, p, n);
  }
  if (!IsStable(K, n)) {
    GiveUpUnstable(ok);
    return;
  }
  BackSubstitute(K, n);
  for (int i = 1; i <= n; ++i) D.at(static_cast<std::size_t>(i)) = K(i, n + 1);
}

void SolveEquations(TiledMatrix& K, std::vector<float>& D, const std::vector<float>& P, std::int16_t n,
                    std::int16_t& ok, const std::function<Matrix()>& inFull) {
  for (int i = 1; i <= n; ++i) K(i, n + 1) = P.at(static_cast<std::size_t>(i));
  Solution verdict = Solution::Found;
  {
    LongWork work(RenumberingWouldHelp() ? std::string(SolvingText) + RenumberingHint : SolvingText);
    verdict = SolveTiled(K, D, Kernels().front(), work);
  }
  if (verdict == Solution::Unstable) GiveUpUnstable(ok);
  if (verdict != Solution::NotFinite) return;
  GlobalStiffness = inFull();
  SolveEquations(GlobalStiffness, D, P, n, ok);
}

// Step p leaves (n - p)^2 entries to change, so that the work ahead goes with the cube.
double ShareOfElimination(int p, int n) {
  const double ahead = static_cast<double>(n - p) / n;
  return 1 - ahead * ahead * ahead;
}

void EliminateColumn(Matrix& K, std::int16_t p, std::int16_t n) {
  Ensure(K.LastRow() >= n && K.LastColumn() > n, "the matrix has the right-hand side beside its columns");
  const float* pivotRow = K.Row(p);
  const float pivot = pivotRow[p];
  if (pivot == 0.0F) return;
  // K(r, c) -= K(p, c) f, f = K(r, p) / K(p, p), rounded to a float each time.   Checked: two equations by hand.
  for (int r = p + 1; r <= n; ++r) {
    float* row = K.Row(r);
    const double factor = static_cast<double>(row[p]) / static_cast<double>(pivot);
    for (int c = p + 1; c <= n + 1; ++c) {
      row[c] = static_cast<float>(static_cast<double>(row[c]) - static_cast<double>(pivotRow[c]) * factor);
    }
  }
}

bool IsStable(const Matrix& K, std::int16_t n) {
  for (int i = 1; i <= n; ++i) {
    if (PivotTolerance > std::abs(K(i, i))) return false;
  }
  return true;
}

void BackSubstitute(Matrix& K, std::int16_t n) {
  K(n, n + 1) = static_cast<float>(static_cast<double>(K(n, n + 1)) / static_cast<double>(K(n, n)));
  // D(r) = (P(r) - sum of K(r, c) D(c) over c > r) / K(r, r).
  for (int r = n - 1; r >= 1; --r) {
    const float* row = K.Row(r);
    double sum = 0.0;
    for (int c = r + 1; c <= n; ++c) sum += static_cast<double>(row[c]) * static_cast<double>(K(c, n + 1));
    K(r, n + 1) = static_cast<float>((static_cast<double>(row[n + 1]) - sum) / static_cast<double>(row[r]));
  }
}

} // namespace strutwright
