#pragma once

#include <string>

namespace strutwright {

/// Asks for a name and writes the model as the grids hold it, in the form that the name's ending says: ".dxf", with the
/// deflected shape as large as the display shows it where an analysis is done, ".csv", ".json", or ".tex" for the
/// drawing as the display shows it.  Another ending is refused with a message.  What a drawing can't carry is shown
/// afterwards. A failure shows "Error while saving file ", the name and the reason; an older file is then as it was.
/// model: the path of its file, or its name.
void ExportModel(const std::string& model);

} // namespace strutwright
