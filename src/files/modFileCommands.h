#pragma once

#include <string>

namespace strutwright {

/// Opens a model file: its model becomes the open one and stands in the data grids.
/// Values that the file does not hold, or that are not finite, are read as zero and told to the user.
/// A file that can't be read shows "Unkown error while opening file " and its name; the open model then stays,
/// and CurrentFileName is emptied.
/// Returns whether the model was opened; `reason`, where given, takes the description of the failure.
bool openModel(const std::string& fileName, std::string* reason = nullptr);

} // namespace strutwright
