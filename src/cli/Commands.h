#pragma once

#include "Output.h"
#include "Picture.h"
#include "modCheckAnswer.h"
#include "modDrawnTruss.h"
#include "modInfluence.h"
#include "modTrain.h"

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace strutwright {

// The commands of strutwright-cli.  Each returns the exit status; results go to `out`, messages to `err`.
// A file to read may be a model, a table, JSON or DXF, which the content shows; "-" is `in`.

/// What to analyse, and what to make of it.
struct AnalyseRequest {
  std::vector<std::string> models;
  OutputFormat format = OutputFormat::Text;
  bool check = false; ///< also judge each answer; csv has no place for it, the exit status has
  PictureRequest picture;
  std::string report;         ///< where to write the report, .pdf or .html; none is written where it is empty
  int processes = 1;          ///< that share the models
  bool showsProgress = false; ///< whether `err` is a terminal, which gets a line of how many are done
  std::string working = {};   ///< where to write the worked solution, .pdf, .html or .tex; none where it is empty
};

/// What judges the answer in the tables.
using AnswerJudge = std::function<CheckReport(AnalysisOutcome)>;

/// For each file what Open and Run Analysis do in the window; prints the results, in the order of the files, and makes
/// the picture, the report and the worked solution asked for.
int AnalyseModels(const AnalyseRequest& request, std::istream& in, std::ostream& out, std::ostream& err,
                  const AnswerJudge& judge = CheckAnswer);

enum class ShowFormat { AsText, AsCsv, AsJson, AsDxf, AsTikz };

/// Which model to show, and how.
struct ShowRequest {
  std::string model;
  ShowFormat format = ShowFormat::AsText;
  float deflectionScale = 100; ///< of the deflected shape in DXF; 0 for none
};

/// Prints the input tables of a model, or its drawing.
int ShowModel(const ShowRequest& request, std::istream& in, std::ostream& out, std::ostream& err);

/// What to build a model from, and where to put it.
struct MakeRequest {
  std::string input;
  std::string output;
  std::string layers; ///< file with E and A by layer; none where it is empty
  DrawingOptions drawing;
};

/// Builds a model file; as output, "-" is `out`.  A bad line of the input is named, and then nothing is written.
int MakeModel(const MakeRequest& request, std::istream& in, std::ostream& out, std::ostream& err);

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
