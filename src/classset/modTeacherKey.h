#pragma once

#include "WorkedDocument.h"
#include "modClassSet.h"

#include <vector>

namespace strutwright {

/// The teacher's key of a whole class: of each variant what was varied, the answers and how they are found by hand, or
/// where equilibrium alone does not lead to them, by the stiffness method's displacements and forces.
/// Uses the tables of the model; what they hold must be kept before.
WorkedDocument TeacherKey(const ClassPlan& plan, const std::vector<ClassVariant>& variants);

} // namespace strutwright
