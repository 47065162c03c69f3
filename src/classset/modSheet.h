#pragma once

#include "WorkedDocument.h"
#include "modClassSet.h"

#include <string>
#include <vector>

namespace strutwright {

// What is printed of a variant.

/// The drawing of a model with its loads and supports, without results.  The model must be in the tables when it is
/// drawn.
WorkedPicture ProblemPicture(const StoredModel& model);

/// The tables of nodes and members: what the drawing does not show.
std::vector<WorkedTable> DataTables(const StoredModel& model);

/// "Class set of bridge.stw, seed 7".
std::string SetName(const ClassPlan& plan);

/// A student's sheet: drawing, data, questions with units and signs, and room to write.
WorkedDocument SheetOf(const ClassPlan& plan, const ClassVariant& variant, const WorkedPicture& picture);

} // namespace strutwright
