#pragma once

#include "Matrix.h"
#include "TiledMatrix.h"

#include <array>
#include <optional>
#include <string>

namespace strutwright {

// One member m, 1..MemberCount (16-bit), from node i to node j.  Its nodes must lie in 0..NodeCount, otherwise the
// table access throws std::out_of_range; AnalyseTruss checks that first.  What a user can cause is shown in a message
// box.

/// Distance of the member's nodes, in m.  Source: docs/method.md, 1.
float MemberLength(int m);

/// Cosine and sine of the direction from node i to node j.  Source: docs/method.md, 1.
/// m <= 0 shows a message and gives 0.  The length must not be zero: that is not tested here.
float MemberCos(int m);
float MemberSin(int m);

/// Fills k, the member's 4 x 4 matrix in kN/mm (indices 1..4: x and y at i, x and y at j), and the member's fields
/// for length (mm), cosine and sine.  Source: docs/method.md, 2.
/// E or A below zero or no length show a message and leave both untouched: k keeps what it held before.
/// Returns whether k is this member's matrix now.
bool MemberStiffness(Matrix& k, int m);

/// The global freedoms of the member's local ones 1..4, x and y at i, x and y at j; entry 0 is not used.
/// A node number of zero or less shows a message and gives nothing.
std::optional<std::array<int, 5>> MemberFreedoms(int m);

/// Adds k to K at the member's four freedoms.  Source: docs/method.md, 3.
/// K: (0..n, 0..n or more).  A node number of zero or less shows a message and adds nothing.
void AddMemberToGlobal(int m, const Matrix& k, Matrix& K);
void AddMemberToGlobal(int m, const Matrix& k, TiledMatrix& K);

/// Computes the member's axial force in kN, tension positive, from Displacements and stores it in its field.
/// E, A or the stored length not above zero give 0.  Source: docs/method.md, 6.
void ComputeMemberForce(int m);

/// The stored axial force, kN, tension positive.
float MemberForce(int m);

/// "T" in tension, "C" in compression, "Zero Bar" for less than 0.0001 kN in size; for a force of exactly that size
/// the text is empty, on purpose.
std::string MemberState(int m);

/// Stress in N/mm2, tension positive; 0 where the area is not above zero.
float MemberStress(int m);

/// True when E and A are above zero, so that the member can stretch.
bool MemberCanStretch(int m);

/// Elongation in mm.  E or A not above zero show a message and give 0.
float MemberStretch(int m);

} // namespace strutwright
