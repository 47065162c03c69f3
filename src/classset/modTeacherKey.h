#pragma once

#include "WorkedDocument.h"
#include "modClassSet.h"

#include <cstddef>
#include <functional>
#include <vector>

namespace strutwright {

/// The teacher's key of a whole class: of each variant, on a page of its own, what was varied, the answers and how they
/// are found: by hand, and where equilibrium alone does not lead to them by the stiffness method.  That is worked in
/// full for a truss of up to MaxWorkedNodes nodes; the displacements of a larger determinate one stand in tables.
/// The open model stays.  done: is told after each variant how many are done.
/// Throws WorkCancelled.
WorkedDocument TeacherKey(
    const ClassPlan& plan, const std::vector<ClassVariant>& variants,
    const std::function<void(std::size_t)>& done = [](std::size_t /*count*/) {});

} // namespace strutwright
