#pragma once

#include <string>

namespace strutwright {

/// Save As: asks for a name and saves the open model under it, with the extension "stw" where the user gives none.
/// Returns the file's path; empty where the user cancelled or where saving failed, which has been told by then.
std::string SaveTrussAs();

} // namespace strutwright
