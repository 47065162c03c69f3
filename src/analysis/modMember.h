#pragma once

#include "MemberMatrix.h"
#include "StiffnessMatrix.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace strutwright {

// One member m, 1..MemberCount (16-bit), from node i to node j.  Its nodes must lie in 0..NodeCount, otherwise the
// table access throws std::out_of_range; AnalyseTruss checks that first.  What a user can cause is returned, for the
// command that called to show it in the words of AnalysisTexts.h.

/// Why a member is ignored.
enum class MemberFault {
  EBelowZero,
  ABelowZero,
  NoLength,
  NoNode ///< a node number of zero or less
};

struct MemberAtFault {
  int member = 0;
  MemberFault fault{};

  bool operator==(const MemberAtFault&) const = default;
};

/// Which of a member's properties is not above zero, so that it has no elongation.
enum class StretchFault { E, A, EAndA };

/// Global freedoms of the local ones 1..4, x and y at i, x and y at j; entry 0 is not used.
using MemberFreedoms = std::array<int, 5>;

/// Distance of the member's nodes, in m.  Source: docs/method.md, 1.
float MemberLength(int m);

/// Cosine and sine of the direction from node i to node j.  Source: docs/method.md, 1.
/// m <= 0 gives 0.  The length must not be zero: that is not tested here.
float MemberCos(int m);
float MemberSin(int m);

/// Fills k with the member's matrix, and the member's fields for length (mm), cosine and sine.
/// E or A below zero or no length leave both as they were: k keeps what it held before.  Source: docs/method.md, 2.
/// Returns what is wrong with the member, in the order E, A, length; nothing when k is its matrix now.
std::vector<MemberFault> MemberStiffness(MemberMatrix& k, int m);

/// How a member lies, as its equations take it.
struct MemberAxis {
  float length = 0; ///< mm; 0 for a member that is ignored
  float c = 0;
  float s = 0;
};

/// The axis that MemberStiffness stores, without storing it.
MemberAxis AxisOf(int m);

/// The axis that is stored.
MemberAxis StoredAxis(int m);

/// Nothing for a node number of zero or less.
std::optional<MemberFreedoms> FreedomsOf(int m);

/// Adds k to K at four freedoms.  Source: docs/method.md, 3.
void AddAtFreedoms(const MemberFreedoms& freedoms, const MemberMatrix& k, StiffnessMatrix& K);

/// Adds k to K at the member's four freedoms.  False, and nothing is added, for a node number of zero or less.
bool AddMemberToGlobal(int m, const MemberMatrix& k, StiffnessMatrix& K);

/// What a member's force comes from.
struct MemberForceTerms {
  float du = 0; ///< displacement of node j less that of node i, mm
  float dv = 0;
  float force = 0; ///< kN, tension positive
};

/// The axial force by displacements D, mm, (0..n).
/// E, A or the length not above zero give 0.  Source: docs/method.md, 6.
MemberForceTerms ForceTermsOf(int m, const MemberAxis& axis, const std::vector<float>& D);

/// Computes the member's axial force in kN, tension positive, from Displacements and stores it in its field.
/// E, A or the stored length not above zero give 0.  Source: docs/method.md, 6.
void ComputeMemberForce(int m);

/// The stored axial force, kN, tension positive.
float MemberForce(int m);

/// The state of a force in kN: "T" in tension, "C" in compression, "Zero Bar" for less than 0.0001 kN in size; for a
/// force of exactly that size the text is empty, on purpose.
std::string StateOfForce(float force);
std::string MemberState(int m);

/// Stress in N/mm2, tension positive; 0 where the area is not above zero.
float MemberStress(int m);

/// What keeps the member from having an elongation; nothing when E and A are above zero.
std::optional<StretchFault> StretchFaultOf(int m);

/// Elongation in mm; 0 where E or A is not above zero.
float MemberStretch(int m);

} // namespace strutwright
