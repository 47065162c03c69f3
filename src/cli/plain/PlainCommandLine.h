#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace strutwright {

/// The part of the program that starts fast: the version, and `analyse`, `show` and `make` as far as they neither draw
/// nor check.  Streams and status are those of RunCommandLine.
/// Nothing where the arguments, which are without the program's name, ask for anything else or are wrong: then nothing
/// has been read or written, and the whole program is to have them.
std::optional<int> RunPlainCommand(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out,
                                   std::ostream& err);

} // namespace strutwright
