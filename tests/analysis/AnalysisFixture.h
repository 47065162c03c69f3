#pragma once

#include "AnalysisState.h"
#include "EventsTest.h"
#include "ModelBuilder.h"
#include "modMember.h"
#include "modModelStore.h"

#include <array>
#include <cstddef>
#include <ostream>
#include <vector>

namespace strutwright {

/// The state of a program that has just started, and short ways to set tables and read matrices.
class AnalysisFixture : public EventsTest {
 protected:
  AnalysisFixture() {
    ResetModel();
    TheAnalysis = AnalysisState{};
  }

  /// Two nodes and one member 1 from the first to the second, E 200 and A 1000.
  static void SetBar(float dx, float dy, float PS = 0) { SetTables({{{0, 0}, {dx, dy}}, {{1, 2, 200, 1000, PS}}}); }

  /// Zeroed displacements for every freedom of the model.
  static void ClearDisplacements() { Displacements.assign(2 * static_cast<std::size_t>(NodeCount) + 1, 0.0F); }

  /// Entries 1.. of a vector that is used from 1 on.
  template <typename Number>
  static std::vector<Number> Used(const std::vector<Number>& values) {
    return {values.begin() + 1, values.end()};
  }

  /// Entries (1..4, 1..4), row after row.
  static std::vector<float> Used4(const MemberMatrix& k) {
    std::vector<float> entries;
    for (int row = 1; row <= 4; ++row) {
      for (int column = 1; column <= 4; ++column) entries.push_back(k(row, column));
    }
    return entries;
  }
};

/// A matrix from its rows.
template <std::size_t N>
StiffnessMatrix MatrixOf(const std::array<std::array<float, N>, N>& rows) {
  StiffnessMatrix K(static_cast<int>(N));
  for (std::size_t r = 0; r < N; ++r) {
    for (std::size_t c = 0; c < N; ++c) K.Set(static_cast<int>(r) + 1, static_cast<int>(c) + 1, rows[r][c]);
  }
  return K;
}

/// So that a failing test names the fault.
inline void PrintTo(const MemberAtFault& atFault, std::ostream* out) {
  *out << "member " << atFault.member << ", fault " << static_cast<int>(atFault.fault);
}

} // namespace strutwright
