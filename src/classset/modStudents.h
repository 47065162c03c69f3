#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace strutwright {

inline constexpr std::size_t MostStudents = 1000;

/// The names in the first column of a list: comma-, semicolon- or tab-separated values, or a name a line.  A first line
/// that is a heading ("student", "name" and the like) is none of them; lines without any text are passed over.
/// Throws ClassFault for a name that is blank, there twice or can't be that of a folder, and where there is no name.
std::vector<std::string> ReadStudents(const std::string& list);

/// "student-01" and so on.  Throws ClassFault where there would be none or too many.
std::vector<std::string> NumberedStudents(int count);

} // namespace strutwright
