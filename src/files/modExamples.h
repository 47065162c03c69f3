#pragma once

#include <string>
#include <vector>

namespace strutwright {

/// A model that came with the program.
struct Example {
  std::string path;
  std::string title; ///< what people call it; the file's name where the index says nothing of it
  std::string tip;   ///< what it shows; empty where the index says nothing of it
};

/// The examples that came with the program; none where there are none.  Those that index.txt beside them names come
/// first, in its order, which is that of a course, the others after them in alphabetical order.
/// A line of the index is "name | title | tip", name without ".stw"; lines of models that are not there, and lines of
/// another form, count for nothing.
std::vector<Example> Examples();

/// Opens an example as a model that has no file yet: Save asks for a name, so that the example stays what it is.
void OpenExample(const std::string& path);

} // namespace strutwright
