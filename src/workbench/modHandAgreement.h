#pragma once

#include "modHandSolution.h"

#include <string>

namespace strutwright {

/// How many digits of the largest force the forces and reactions found by hand share with the results in the tables,
/// 0 to 7, which is what the tables hold.  The solution must know all forces, and the tables must hold results.
int DigitsShared(const HandTruss& truss, const HandSolution& solution);

/// The same in a sentence: "Joints by hand and stiffness agree to 6 digits of the largest force."
std::string AgreementSentence(const HandTruss& truss, const HandSolution& solution);

/// That sentence on the model in the tables.  Empty where it has no results, where its forces are not all known from
/// equilibrium, and where a member is left out or has no rigidity.
std::string HandAgreementText();

} // namespace strutwright
