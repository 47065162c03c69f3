#pragma once

#include "EquationsState.h"
#include "modMember.h"

#include <optional>
#include <vector>

namespace strutwright {

// What the steps of the equations view do to a page.  No message is shown, and the view's own page is no other than
// any.

void EmptyPageMatrix(EquationPage& page);
void EmptyPage(EquationPage& page);

/// Lays the page out for the model in the tables, with its load vector.
void LayOutPage(EquationPage& page);

/// The share of a member that was taken in turn.
struct NextShare {
  std::vector<MemberFault> faults;  ///< what is wrong with the member
  std::optional<MemberShare> share; ///< nothing when the member names no two nodes
};

/// Takes the next member in turn, the first one with a new matrix; its share has not been added yet.
/// Nothing where all have been added.
std::optional<NextShare> TakeNextMember(EquationPage& page);

/// Makes the matrix of all members; returns those at fault.  Member 1 is the next to add.
std::vector<MemberAtFault> MakeWholeMatrix(EquationPage& page);

/// Restrains the supported freedoms, besides those that were restrained before.
void RestrictPage(EquationPage& page);

/// Loads without those at restrained freedoms, as they are solved for.
std::vector<float> LoadsToSolve(const EquationPage& page);

/// The displacements in mm; nothing when the equations can't be solved.  Throws WorkCancelled.
FreedomValues SolutionOf(const EquationPage& page);

/// Computes the member forces, or the reactions and before them the forces, from the displacements of the page.
void FindMemberForces(EquationPage& page);
void FindReactions(EquationPage& page);

/// Brings the page up to the model in the tables and keeps its stage.  Nothing changes where the freedoms are others or
/// there is no model to show.
void BringUpToModel(EquationPage& page);

} // namespace strutwright
