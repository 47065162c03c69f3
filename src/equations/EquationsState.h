#pragma once

#include "MemberMatrix.h"
#include "ModelAsEntered.h"
#include "ViewStiffness.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace strutwright {

/// What a press of a button in the equations view did.
enum class EquationStep {
  None,
  ShowForces,
  AddMember,
  ClearStiffness,
  ShowGlobalK,
  Restrict,
  Solve,
  SolveFailed,
  MemberForces,
  SupportReactions
};

/// One number for each freedom: (0..n), entry 0 not used.  Nothing when its column is empty.
using FreedomValues = std::shared_ptr<const std::vector<float>>;

/// What the equations view shows at a time.  Copies are cheap: the large parts are shared.
struct EquationPage {
  std::int16_t memberIndex = 0;  ///< the member that was added last; 0 before the first
  std::int16_t viewDofCount = 0; ///< 2 per node, as the grids are laid out for
  std::string addMemberCaption = "Add Member 1";
  std::shared_ptr<ViewStiffness> viewStiffness; ///< kN/mm; nothing when it is empty, and its cells with it
  bool allAdded = false;                        ///< viewStiffness holds every member that there was
  FreedomValues loads;                          ///< as shown, kN
  FreedomFlags fixed;                           ///< restrained since viewStiffness was made; nothing before Restrict
  FreedomValues displacements;                  ///< as shown, mm
  FreedomValues memberForces;                   ///< (0..members), kN, of those displacements; nothing before that step
  FreedomValues reactions;                      ///< kN, of those forces; nothing before that step
  MemberMatrix memberStiffness;                 ///< one member's matrix; an ignored member leaves its predecessor's
  int matrixOf = 0;                             ///< whose matrix that is; 0: nobody's, all zero
  std::shared_ptr<const ModelAsEntered> madeOf; ///< the model of the last step; nothing before the first
  EquationStep lastStep = EquationStep::None;
  int lastMember = 0;            ///< the member that the last step added; 0 when it was no such step
  MemberFreedoms lastFreedoms{}; ///< where it was added, indices 1..4; zeros where it was not
  int shownMember = 0;           ///< the member that was last added to this matrix; 0: none, or all at once
};

/// A page as it was before a press.
struct PastPage {
  EquationPage page;
  bool shareAdded = false; ///< the press added to the page's own matrix
};

/// The equations view: what it shows, and what it showed before each press.
struct EquationsState {
  EquationPage page;
  std::vector<PastPage> past;
};

inline EquationsState TheEquations;

} // namespace strutwright
