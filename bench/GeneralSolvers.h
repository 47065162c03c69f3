#pragma once

#include <functional>
#include <string>
#include <vector>

namespace strutwright {

/// Equations as a general solver takes them.
struct GeneralEquations {
  /// Numbered from 1.
  struct Entry {
    int row = 0;
    int column = 0;
    float value = 0;
  };

  int freedoms = 0;
  std::vector<Entry> entries;
  std::vector<float> rightHandSide; ///< (0..freedoms), entry 0 is not used
};

/// Another way to solve them, in double precision, from the numbers to the solution.
struct GeneralSolver {
  std::string name;
  std::function<bool(const GeneralEquations&)> suits;
  std::function<void(const GeneralEquations&)> solve;
};

/// Those that were found when this was built: a sparse one of Eigen, a banded one of LAPACK.
std::vector<GeneralSolver> GeneralSolvers();

} // namespace strutwright
