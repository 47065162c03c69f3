#pragma once

#include <string>

namespace strutwright {

/// Save As: asks for a name and saves the open model under it, with the extension "stw" where the user gives none.
/// Returns the file's path; empty where the user cancelled or where saving failed, which has been shown by then.
std::string SaveTrussAs();

/// Opens a model file in Strutwright, which lies in the same folder as this program.
/// Where that can't be started a box says so.
void OpenInStrutwright(const std::string& path);

} // namespace strutwright
