#pragma once

#include "modModelFile.h"

#include <string>

namespace strutwright {

/// Sets LoadsScale so that the largest load of the open model has an arrow of a tenth of the model's extents.
/// A model without loads leaves it as it is.
void ScaleLoadsToModel();

/// What a truss has, in words: "16 nodes, 29 members, statically determinate".
std::string TrussSummary(const StoredModel& model);

} // namespace strutwright
