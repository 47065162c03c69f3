#pragma once

#include "StiffnessMatrix.h"
#include "modMember.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace strutwright {

/// Most nodes that can be analysed: their freedoms are counted in 16 bits.
inline constexpr std::int16_t MaxAnalysedNodes = 16383;

/// Support codes that hold one direction; any other but 0 holds both.
inline constexpr float RestrainedInY = 1.0F;
inline constexpr float RestrainedInX = 2.0F;

/// How an analysis ended.  All but Done leave forces and reactions as they are; Unstable alone comes after the arrays
/// were made.
enum class AnalysisEnd { Done, TooManyNodes, NoNodes, UnknownNode, Unstable };

/// What the command that runs an analysis is asked on the way.
struct AnalysisReports {
  /// Takes the members that are ignored, in the order in which they were met, before the equations are solved.
  std::function<void(const std::vector<MemberAtFault>&)> membersAtFault = [](const auto&) {};
  /// Gives the text for the status bar, once solving has lasted so long that it is shown.
  std::function<std::string()> solvingText = [] { return std::string(); };
};

/// Analyses the model in the tables: displacements, member fields 6 to 9 and reactions.  Source: docs/method.md.
AnalysisEnd AnalyseTruss(const AnalysisReports& reports = {});

/// A member that names a node outside 0..NodeCount.
struct UnknownNode {
  int member = 0;
  float node = 0; ///< rounded
};

/// The first such member; nothing where there is none.  Node 0 is left to AddMemberToGlobal.
std::optional<UnknownNode> FindUnknownNode();

/// Creates the working arrays afresh for DofCount freedoms, all zero.
void AllocateAnalysisArrays();

/// Re-creates K for the model, in kN/mm, and adds every member's matrix to it; returns the members at fault.
/// A member that MemberStiffness ignores adds its predecessor's matrix at its own freedoms, on purpose; the first
/// member's predecessor is a matrix of zeros.  Source: docs/method.md, 3.
std::vector<MemberAtFault> AssembleGlobalStiffness(StiffnessMatrix& K);

/// Writes the applied loads into P (0..DofCount, kN) and adds what the prestress of the members exerts on the nodes.
/// Loads of zero are not written: P should come in zeroed.  Source: docs/method.md, 4.
void BuildLoadVector(std::vector<float>& P);

/// Imposes the supports: R of a restrained freedom becomes its load with the opposite sign, its load zero, `fixed` 1,
/// its row and column zero with 1 on the diagonal.  All vectors: (0..DofCount).  Source: docs/method.md, 5.
void ApplySupports(StiffnessMatrix& K, std::vector<float>& P, std::vector<float>& R, std::vector<std::int16_t>& fixed);

/// The two halves of ApplySupports: what knows no matrix, and what follows from `fixed` for K.
void RestrainSupports(std::vector<float>& P, std::vector<float>& R, std::vector<std::int16_t>& fixed);
void RestrainEquations(StiffnessMatrix& K, const std::vector<std::int16_t>& fixed);

/// What one member adds to one reaction.
struct ReactionShare {
  std::size_t freedom = 0; ///< 1..n
  double sign = 0;         ///< 1 where the member ends, -1 where it starts
  double along = 0;        ///< its cosine or sine
  double share = 0;        ///< kN
};

/// What a member adds to the reactions of the supported nodes at its ends, in the order in which it is added.
/// force: kN.  Entries of free directions of such nodes are among them.  Source: docs/method.md, 7.
std::vector<ReactionShare> ReactionSharesOf(int m, float force, const MemberAxis& axis);

/// Adds it to the reactions, (0..n), rounded to a float.
void AddReactionShare(const ReactionShare& share, std::vector<float>& R);

/// Adds the member forces at supported nodes to Reactions, in kN.  The entries of free directions of such nodes
/// accumulate too and mean nothing.  Source: docs/method.md, 7.
void ComputeReactions();

/// Displacement of node n in mm: in x when direction is "x", otherwise in y.
float NodeDisplacement(int n, std::string_view direction);

} // namespace strutwright
