#pragma once

#include "AnswerFiles.h"
#include "AnswerJudge.h"
#include "Output.h"
#include "Picture.h"
#include "PlainCommands.h"
#include "modInfluence.h"
#include "modTrain.h"

#include <iosfwd>
#include <optional>
#include <string>

namespace strutwright {

// The commands that only the whole program has.  Each returns the exit status; results go to `out`, messages to `err`.
// A file to read may be a model, a table, JSON or DXF, which the content shows; "-" is `in`.

/// An analysis with what only the whole program makes of it.
struct WholeAnalyseRequest {
  AnalyseRequest plain;
  bool check = false; ///< also judge each answer; csv has no place for it, the exit status has
  FilesRequest files;
};

/// Analyses and prints as AnalyseModels does; also judges each answer and makes the files asked for.
int AnalyseWholly(const WholeAnalyseRequest& request, std::istream& in, std::ostream& out, std::ostream& err,
                  const AnswerJudge& judge = CheckAnswer);

/// Which influence line to compute, and what to make of it.
struct InfluenceRequest {
  std::string model;
  std::string path; ///< as it was typed
  Quantity quantity;
  std::optional<std::string> train; ///< as it was typed
  OutputFormat format = OutputFormat::Text;
  PictureRequest picture; ///< its layers play no part
};

/// Takes the text of --member, --reaction or --displacement, such as "7" or "3:x".  Returns whether it is one;
/// otherwise nothing changes.
bool ChooseQuantity(Quantity& quantity, QuantityKind kind, const std::string& text);

/// Prints the influence line of a model and, of a train, the extremes; makes the picture asked for.
int ShowInfluence(const InfluenceRequest& request, std::istream& in, std::ostream& out, std::ostream& err);

/// Prints what equilibrium alone shows of a model: how determinate it is, the solution by hand, the members without
/// force and the force diagram.  csv has no form for it and is printed as text.
int PrintStatics(const std::string& file, OutputFormat format, std::istream& in, std::ostream& out, std::ostream& err);

} // namespace strutwright
