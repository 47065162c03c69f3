#pragma once

namespace strutwright {

// The direct stiffness method one step at a time, on arrays of the equations view's own: neither the model nor the
// results of the last analysis change.  Each step takes the model from the grids as they are now and lays the view out
// anew when its labels do not fit that model.  A model that can't be shown is reported, and the press changes nothing.

/// "Show Force": lays the view out and shows the load vector.
void StepShowForces();

/// "Add Member": adds the next member to the view's matrix, or clears it when there is no further one.
/// The first member is added to zeros.  An ignored member adds its predecessor's matrix, as in an analysis.
void StepAddMember();

/// "Show Global K": assembles the whole matrix; the next member to add is the first again.
void StepShowGlobalK();

/// "Restrict DOFs": clears the rows and columns of supported freedoms, with 1 on the diagonal.
void StepRestrict();

/// "Solve": solves the view's equations and shows the displacements.  The matrix stays, so that it can be looked at and
/// solved again.  After Restrict, loads at restrained freedoms are left out, so that supports do not move.
/// A failure has been reported and leaves the displacements shown before; cancelling changes nothing.
void StepSolve();

/// "Member Forces": finds the force of every member from the displacements that the view shows.
/// "Reactions": finds what the supports do to the truss; where the member forces are not known yet, it finds them too.
/// Before Solve nothing happens.
void StepMemberForces();
void StepReactions();
bool CanFindForces();

/// Undoes the last press, exactly.  Without one nothing happens.
void StepBack();
bool CanStepBack();

/// Brings what the view shows up to the model in the tables and keeps its stage: the same members are added, the same
/// freedoms restrained and the equations solved where they were.  Shows no message.  A model with other freedoms, or
/// one that can't be shown, leaves the view as it is; the next press lays it out anew.
void FollowModel();

/// Empties every number of the view and forgets its past; the labels stay.  For a model that has just been read.
void ResetEquations();

} // namespace strutwright
