#pragma once

#include "Commands.h"
#include "OutputNames.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace strutwright {

/// What a command reads and writes.
struct Streams {
  std::istream& in;
  std::ostream& out;
  std::ostream& err;
};

/// The names of the files that are made of one model.
struct MadeFiles {
  OutputNames::Name picture;
  OutputNames::Name report;
  OutputNames::Name working;
};

/// Those of each model, in their order.
std::vector<MadeFiles> NamesOfMadeFiles(const AnalyseRequest& request);

/// Opens, analyses and prints one of the models of a request; returns the exit status that it asks for.
int AnalyseModel(const AnalyseRequest& request, const std::string& model, const MadeFiles& made, const Streams& streams,
                 const AnswerJudge& judge);

} // namespace strutwright
