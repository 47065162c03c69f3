#pragma once

#include "MemberMatrix.h"
#include "StiffnessMatrix.h"
#include "modModelStore.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace strutwright {

/// Codes of ReportAnalysisFailure.
inline constexpr int EmptyModelCheck = 0;
inline constexpr int UnstableCheck = 2;

/// The freedoms of node n, as indices of the arrays below.
constexpr std::size_t XFreedom(int n) { return static_cast<std::size_t>(2 * n - 1); }
constexpr std::size_t YFreedom(int n) { return static_cast<std::size_t>(2 * n); }

/// The working arrays and results of the analysis.  Freedom 2n-1 is x and 2n is y of node n; entry 0 is not used.
struct AnalysisState {
  std::int16_t DofCount = 0;          ///< 2 * NodeCount
  StiffnessMatrix GlobalStiffness;    ///< (1..DofCount, 1..DofCount), kN/mm, supports imposed
  MemberMatrix MemberStiffnessBuffer; ///< one member's matrix in global axes, kN/mm
  std::vector<float> LoadVector;      ///< (0..DofCount), kN
  std::vector<std::int16_t> FixedDof; ///< (0..DofCount), 1 marks a restrained freedom
  std::vector<float> Displacements;   ///< (0..DofCount), mm
  std::vector<float> Reactions;       ///< (0..DofCount), kN, meaningful at restrained freedoms
  std::optional<int> FailedCheck;     ///< code of the last reported failure; empty since an analysis began
};

inline AnalysisState TheAnalysis;
inline auto& DofCount = TheAnalysis.DofCount;
inline auto& GlobalStiffness = TheAnalysis.GlobalStiffness;
inline auto& MemberStiffnessBuffer = TheAnalysis.MemberStiffnessBuffer;
inline auto& LoadVector = TheAnalysis.LoadVector;
inline auto& FixedDof = TheAnalysis.FixedDof;
inline auto& Displacements = TheAnalysis.Displacements;
inline auto& Reactions = TheAnalysis.Reactions;
inline auto& FailedCheck = TheAnalysis.FailedCheck;

} // namespace strutwright
