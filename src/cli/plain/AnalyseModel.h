#pragma once

#include "PlainCommands.h"

#include <cstddef>
#include <iosfwd>

namespace strutwright {

/// What a command reads and writes.
struct Streams {
  std::istream& in;
  std::ostream& out;
  std::ostream& err;
};

/// Opens, analyses and prints the model k of a request, from 0, and does what else is done with it; returns the exit
/// status that it asks for.
int AnalyseModel(const AnalyseRequest& request, const AnalysisExtras& extras, std::size_t k, const Streams& streams);

} // namespace strutwright
