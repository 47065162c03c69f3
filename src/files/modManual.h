#pragma once

#include <string>

namespace strutwright {

/// The path of a page of the user manual that came with the program, such as "index"; empty where there is none.
std::string ManualPage(const std::string& name);

/// Shows a page of the manual in the desktop's browser.  Where there is none, a box says where it would be.
void OpenManualPage(const std::string& name);

} // namespace strutwright
