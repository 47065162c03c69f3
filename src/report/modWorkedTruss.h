#pragma once

#include "WorkedDocument.h"

#include <string>

namespace strutwright {

/// The truss in the tables in the clear style, without results, as a picture of a worked solution.
WorkedPicture PictureOfTruss();

/// The worked solution of the truss in the tables with its picture.  name: what a user calls it.
/// Throws WorkCancelled.
WorkedDocument WorkedTruss(const std::string& name);

/// Tools > Worked Solution: takes the model from the grids, asks for a name and saves its worked solution there.
/// A model without nodes or members is reported.
void SaveWorkedTruss(const std::string& name);

} // namespace strutwright
