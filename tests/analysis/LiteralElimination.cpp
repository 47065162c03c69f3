#include "LiteralElimination.h"

#include "AnalysisState.h"
#include "modMember.h"
#include "modModelStore.h"

#include <cmath>
#include <utility>

namespace strutwright {

namespace {

int PivotRow(const FullMatrix& K, int p, int n) {
  int pivotRow = p;
  float best = std::abs(K(p, p));
  for (int r = p + 1; r <= n; ++r) {
    if (best < std::abs(K(r, p))) {
      pivotRow = r;
      best = std::abs(K(r, p));
    }
  }
  return pivotRow;
}

void EliminateLiterally(FullMatrix& K, int p, int n) {
  for (int r = p + 1; r <= n && K(p, p) != 0.0F; ++r) {
    const double factor = static_cast<double>(K(r, p)) / static_cast<double>(K(p, p));
    float* row = &K(r, 0);
    const float* pivotRow = &K(p, 0);
    for (int c = p + 1; c <= n + 1; ++c) {
      row[c] = static_cast<float>(static_cast<double>(row[c]) - static_cast<double>(pivotRow[c]) * factor);
    }
  }
}

} // namespace

FullMatrix AssembleLiterally() {
  FullMatrix K(DofCount, DofCount + 1);
  MemberMatrix k;
  for (int m = 1; m <= MemberCount; ++m) {
    MemberStiffness(k, m);
    const int i = RoundNodeNumber(MemberTable(m, MemberNodeI));
    const int j = RoundNodeNumber(MemberTable(m, MemberNodeJ));
    if (i <= 0 || j <= 0) continue;
    const auto freedom = [i, j](int p) { return p < 3 ? 2 * i - 2 + p : 2 * j - 2 + (p - 2); };
    for (int p = 1; p <= 4; ++p) {
      for (int q = 1; q <= 4; ++q) {
        float& entry = K(freedom(p), freedom(q));
        entry = static_cast<float>(static_cast<double>(entry) + static_cast<double>(k(p, q)));
      }
    }
  }
  return K;
}

void RestrainLiterally(FullMatrix& K, const std::vector<std::int16_t>& fixed, int n) {
  for (int d = 1; d <= n; ++d) {
    if (fixed.at(static_cast<std::size_t>(d)) != 1) continue;
    for (int c = 1; c <= n; ++c) K(d, c) = K(c, d) = 0.0F;
    K(d, d) = 1.0F;
  }
}

bool SolveLiterally(FullMatrix& K, std::vector<float>& D, const std::vector<float>& P, int n) {
  for (int i = 1; i <= n; ++i) K(i, n + 1) = P.at(static_cast<std::size_t>(i));
  for (int p = 1; p < n; ++p) {
    const int other = PivotRow(K, p, n);
    for (int c = p; other != p && c <= n + 1; ++c) std::swap(K(p, c), K(other, c));
    EliminateLiterally(K, p, n);
  }
  for (int i = 1; i <= n; ++i) {
    if (0.0001F > std::abs(K(i, i))) return false;
  }
  for (int r = n; r >= 1; --r) {
    double sum = 0.0;
    for (int c = r + 1; c <= n; ++c) sum += static_cast<double>(K(r, c)) * static_cast<double>(K(c, n + 1));
    const double rest = r == n ? static_cast<double>(K(r, n + 1)) : static_cast<double>(K(r, n + 1)) - sum;
    K(r, n + 1) = static_cast<float>(rest / static_cast<double>(K(r, r)));
  }
  for (int i = 1; i <= n; ++i) D.at(static_cast<std::size_t>(i)) = K(i, n + 1);
  return true;
}

} // namespace strutwright
