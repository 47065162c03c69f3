#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace strutwright {

/// A matrix with every entry, (0..rows, 0..columns), for the analysis as it is written down.
class FullMatrix {
 public:
  FullMatrix(int rows, int columns)
      : Width(static_cast<std::size_t>(columns) + 1), Values((static_cast<std::size_t>(rows) + 1) * Width) {}

  float& operator()(int row, int column) { return Values[At(row, column)]; }
  float operator()(int row, int column) const { return Values[At(row, column)]; }

 private:
  std::size_t At(int row, int column) const {
    return static_cast<std::size_t>(row) * Width + static_cast<std::size_t>(column);
  }

  std::size_t Width;
  std::vector<float> Values;
};

// The steps of docs/method.md, 3 and 5, one by one and with nothing left out: what everything faster is compared with.

/// K of the model in the tables, (0..n, 0..n + 1) with n = DofCount.
FullMatrix AssembleLiterally();

void RestrainLiterally(FullMatrix& K, const std::vector<std::int16_t>& fixed, int n);

/// Solves K D = P; false where the equations are unstable, and D is untouched.
bool SolveLiterally(FullMatrix& K, std::vector<float>& D, const std::vector<float>& P, int n);

} // namespace strutwright
