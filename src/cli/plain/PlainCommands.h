#pragma once

#include "ExitStatus.h"
#include "Output.h"
#include "modDrawnTruss.h"

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace strutwright {

class ModelSession;

// The commands that need neither pictures nor the check of the answer, and so start fast.  Each returns the exit
// status; results go to `out`, messages to `err`.
// A file to read may be a model, a table, JSON or DXF, which the content shows; "-" is `in`.

/// What to analyse, and how to print the results.
struct AnalyseRequest {
  std::vector<std::string> models;
  OutputFormat format = OutputFormat::Text;
  int processes = 1;          ///< that share the models
  bool showsProgress = false; ///< whether `err` is a terminal, which gets a line of how many are done
};

/// What came of a model.
enum class Result { Ok, Unstable, Failed, Unreadable };

/// What is printed behind the results of a model.
struct Judgement {
  std::string text;
  Json json{};         ///< under "check"; residuals in it are in kN
  int status = ExitOk; ///< the exit status that it asks for
};

/// What else is done with each model, once it is analysed.  What is empty is not done.
struct AnalysisExtras {
  std::function<std::optional<Judgement>(ModelSession&, Result)> judge;
  /// Makes files of a model, which has this place among the models, from 0; returns the exit status.
  std::function<int(ModelSession&, Result, std::size_t)> makeFiles;
};

/// For each file what Open and Run Analysis do in the window; prints the results, in the order of the files.
int AnalyseModels(const AnalyseRequest& request, const AnalysisExtras& extras, std::istream& in, std::ostream& out,
                  std::ostream& err);

enum class ShowFormat { AsText, AsCsv, AsJson, AsDxf, AsTikz };

/// Which model to show, and how.
struct ShowRequest {
  std::string model;
  ShowFormat format = ShowFormat::AsText;
  float deflectionScale = 100; ///< of the deflected shape in DXF; 0 for none
};

/// Prints the input tables of a model, or its drawing.
/// tikz: gives the drawing for LaTeX.
int ShowModel(const ShowRequest& request, const std::function<std::string()>& tikz, std::istream& in, std::ostream& out,
              std::ostream& err);

/// What to build a model from, and where to put it.
struct MakeRequest {
  std::string input;
  std::string output;
  std::string layers; ///< file with E and A by layer; none where it is empty
  DrawingOptions drawing;
};

/// Builds a model file; as output, "-" is `out`.  A bad line of the input is named, and then nothing is written.
int MakeModel(const MakeRequest& request, std::istream& in, std::ostream& out, std::ostream& err);

} // namespace strutwright
