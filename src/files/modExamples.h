#pragma once

#include <string>
#include <vector>

namespace strutwright {

/// The paths of the example models that came with the program, in alphabetical order; none where there are none.
std::vector<std::string> ExampleModels();

/// Opens an example as a model that has no file yet: Save asks for a name, so that the example stays what it is.
void OpenExample(const std::string& path);

} // namespace strutwright
