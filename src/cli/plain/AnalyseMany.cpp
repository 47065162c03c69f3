#include "AnalyseModel.h"
#include "ProgressLine.h"
#include "WorkerProcesses.h"

#include <algorithm>
#include <istream>
#include <optional>
#include <ostream>
#include <sstream>
#include <string>

namespace strutwright {

namespace {

/// What came of one model, as one text: the status, how long the results are, the results and the messages.
std::string Packed(int status, const std::string& results, const std::string& messages) {
  return std::to_string(status) + " " + std::to_string(results.size()) + " " + results + messages;
}

/// Prints what was packed and returns the status.
int Unpack(const std::string& packed, const Streams& streams) {
  std::istringstream text(packed);
  int status = ExitOk;
  std::size_t size = 0;
  text >> status >> size;
  const auto begin = static_cast<std::size_t>(text.tellg()) + 1;
  streams.out << packed.substr(begin, size) << std::flush;
  streams.err << packed.substr(begin + size) << std::flush;
  return status;
}

int AnalyseOneByOne(const AnalyseRequest& request, const AnalysisExtras& extras, const Streams& streams) {
  ProgressLine progress(streams.err, request.models.size(), request.showsProgress);
  int status = ExitOk;
  for (std::size_t k = 0; k < request.models.size(); ++k) {
    progress.Clear();
    status = std::max(status, AnalyseModel(request, extras, k, streams));
    progress.Show(k + 1);
  }
  return status;
}

int AnalyseAtOnce(const AnalyseRequest& request, const AnalysisExtras& extras, const Streams& streams) {
  ProgressLine progress(streams.err, request.models.size(), request.showsProgress);
  int status = ExitOk;
  SharedWork shared{.count = request.models.size(), .work = {}, .done = {}};
  shared.work = [&](std::size_t k) {
    std::ostringstream results;
    std::ostringstream messages;
    const int of = AnalyseModel(request, extras, k, {streams.in, results, messages});
    return Packed(of, results.str(), messages.str());
  };
  shared.done = [&](std::size_t k, const std::optional<std::string>& answer) {
    progress.Clear();
    if (answer) {
      status = std::max(status, Unpack(*answer, streams));
    } else {
      streams.err << ValidText(request.models[k]) << ": The analysis ended unexpectedly\n";
      status = std::max<int>(status, ExitFailed);
    }
    progress.Show(k + 1);
  };
  ShareWork(shared, request.processes);
  return status;
}

} // namespace

int AnalyseModels(const AnalyseRequest& request, const AnalysisExtras& extras, std::istream& in, std::ostream& out,
                  std::ostream& err) {
  const Streams streams{in, out, err};
  out.flush();
  const bool isShared = request.processes > 1 && request.models.size() > 1;
  return isShared ? AnalyseAtOnce(request, extras, streams) : AnalyseOneByOne(request, extras, streams);
}

} // namespace strutwright
