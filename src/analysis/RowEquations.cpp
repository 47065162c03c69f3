#include "RowEquations.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace strutwright {

namespace {

bool AllFinite(const std::vector<float>& values) {
  return std::all_of(values.begin(), values.end(), [](float value) { return std::isfinite(value); });
}

} // namespace

RowEquations::RowEquations(const StiffnessMatrix& stiffness, std::vector<float> P, Envelope envelope)
    : Within(std::move(envelope)), Begin(Within.lowestRow.size()), Last(Begin.size()), RightHandSide(std::move(P)) {
  LayOutRows();
  for (int row = 1; row <= Freedoms(); ++row) {
    Last[At(row)] = Within.IsWhole() ? Freedoms() : row;
    for (const StiffnessMatrix::Entry& entry : stiffness.Row(row)) {
      K(row, entry.column) = entry.value;
      ExtendTo(row, entry.column);
    }
  }
}

void RowEquations::LayOutRows() {
  std::size_t used = 0;
  int first = 1;
  for (int row = 1; row <= Freedoms(); ++row) {
    while (LowestRow(first) < row) ++first;
    Begin[At(row)] = used - At(first); // below zero it wraps round, and back again with the column
    used += At(Within.rightmostColumn[At(row)] - first + 1);
  }
  Values.resize(used);
}

void RowEquations::ExtendTo(int row, int column) { Last[At(row)] = std::max(Last[At(row)], column); }

void RowEquations::Exchange(int one, int other, int p) {
  const int count = std::max(LastColumn(one), LastColumn(other)) - p + 1;
  std::swap_ranges(&K(one, p), &K(one, p) + count, &K(other, p));
  std::swap(P(one), P(other));
  std::swap(Last[At(one)], Last[At(other)]);
}

void RowEquations::ClearSignsOfZeroLoads(int row) {
  if (std::exchange(SignsCleared, true)) return;
  std::replace(RightHandSide.begin() + row, RightHandSide.end(), -0.0F, 0.0F);
}

bool RowEquations::CanBeTrusted() const { return Within.IsWhole() || (AllFinite(Values) && AllFinite(RightHandSide)); }

} // namespace strutwright
