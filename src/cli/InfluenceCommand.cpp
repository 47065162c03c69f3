#include "CommandLine.h"
#include "Commands.h"
#include "FileSystem.h"
#include "ModelSession.h"
#include "modInfluenceSheet.h"
#include "modPath.h"

#include <charconv>
#include <cstddef>
#include <optional>
#include <ostream>

#include <nlohmann/json.hpp>

namespace strutwright {

namespace {

/// What was computed.
struct Answer {
  InfluenceLine line;
  Train train;                           ///< empty where none was given
  std::optional<TrainEnvelope> envelope; ///< where a train was given
};

/// A positive number in digits.
std::optional<int> NumberIn(const std::string& text) {
  int number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (result.ec != std::errc() || result.ptr != text.data() + text.size()) return std::nullopt;
  return number;
}

void PrintCsv(const Answer& answer, std::ostream& out) {
  const InfluenceLine& line = answer.line;
  out << CsvRecord({"node", "x", "value"});
  for (std::size_t k = 0; k < line.nodes.size(); ++k) {
    out << CsvRecord({std::to_string(line.nodes[k]), PreciseText(line.x[k]), PreciseText(line.values[k])});
  }
  if (!answer.envelope) return;
  out << CsvRecord({"direction", "position", "value"});
  for (const TrainPosition& extreme : {answer.envelope->minimum, answer.envelope->maximum}) {
    out << CsvRecord({HeadingName(extreme.heading), PreciseText(extreme.position), PreciseText(extreme.value)});
  }
}

/// Keeps the order of its keys and doubles in full; the other commands have floats.
using PreciseJson = nlohmann::ordered_json;

/// The number that PreciseText writes.
PreciseJson JsonOf(double value) { return PreciseJson::parse(PreciseText(value)); }

PreciseJson JsonExtreme(const TrainPosition& extreme) {
  return {{"direction", HeadingName(extreme.heading)},
          {"position", JsonOf(extreme.position)},
          {"value", JsonOf(extreme.value)}};
}

void PrintJson(const InfluenceRequest& request, const Answer& answer, std::ostream& out) {
  const InfluenceLine& line = answer.line;
  PreciseJson path = PreciseJson::array();
  for (std::size_t k = 0; k < line.nodes.size(); ++k) {
    path.push_back({{"node", line.nodes[k]}, {"x", JsonOf(line.x[k])}, {"value", JsonOf(line.values[k])}});
  }
  PreciseJson values{{"file", request.model},
                     {"quantity", QuantityName(request.quantity)},
                     {"unit", QuantityUnit(request.quantity)},
                     {"path", path}};
  if (answer.envelope) {
    values["minimum"] = JsonExtreme(answer.envelope->minimum);
    values["maximum"] = JsonExtreme(answer.envelope->maximum);
  }
  out << values.dump(-1, ' ', false, PreciseJson::error_handler_t::replace) << '\n';
}

std::string ReadableText(double value) { return PreciseText(value, 6); }

void SetRow(Grid& grid, int row, const std::vector<std::string>& texts) {
  for (std::size_t column = 0; column < texts.size(); ++column) {
    grid.SetText(row, static_cast<int>(column), texts[column]);
  }
}

Grid TableOf(const InfluenceLine& line, const std::string& unit) {
  Grid table(static_cast<int>(line.nodes.size()) + 1, 3);
  SetRow(table, 0, {"PATH", "x(m)", unit + " per kN"});
  for (std::size_t k = 0; k < line.nodes.size(); ++k) {
    SetRow(table, static_cast<int>(k) + 1,
           {std::to_string(line.nodes[k]), ReadableText(line.x[k]), ReadableText(line.values[k])});
  }
  return table;
}

Grid TableOf(const TrainEnvelope& envelope, const std::string& unit) {
  Grid table(3, 4);
  SetRow(table, 0, {"TRAIN", "Direction", "First axle at x(m)", "Value (" + unit + ")"});
  const auto row = [&table](int number, const std::string& name, const TrainPosition& extreme) {
    SetRow(table, number,
           {name, HeadingName(extreme.heading), ReadableText(extreme.position), ReadableText(extreme.value)});
  };
  row(1, "Minimum", envelope.minimum);
  row(2, "Maximum", envelope.maximum);
  return table;
}

void PrintText(const InfluenceRequest& request, const Answer& answer, std::ostream& out) {
  const std::string unit = QuantityUnit(request.quantity);
  out << ValidText(request.model) << ": " << QuantityName(request.quantity) << " for 1 kN downward\n\n";
  PrintTable(TableOf(answer.line, unit), out);
  if (!answer.envelope) return;
  out << '\n';
  PrintTable(TableOf(*answer.envelope, unit), out);
}

void Print(const InfluenceRequest& request, const Answer& answer, std::ostream& out) {
  switch (request.format) {
  case OutputFormat::Text: return PrintText(request, answer, out);
  case OutputFormat::Csv: return PrintCsv(answer, out);
  case OutputFormat::Json: return PrintJson(request, answer, out);
  }
}

int Depict(ModelSession& session, const InfluenceRequest& request, const Answer& answer) {
  if (request.picture.file.empty()) return ExitOk;
  try {
    MakeInfluencePicture(request.picture,
                         ShapeOfInfluence(request.quantity, answer.line, answer.train, answer.envelope));
  } catch (const FileError& error) {
    session.Report("Error while saving file " + request.picture.file + "\n" + error.what());
    return ExitUsage;
  }
  return ExitOk;
}

int Refuse(ModelSession& session, const std::string& reason, ExitStatus status) {
  session.Report(reason);
  return status;
}

} // namespace

bool ChooseQuantity(Quantity& quantity, QuantityKind kind, const std::string& text) {
  const std::size_t colon = text.find(':');
  const bool ofMember = kind == QuantityKind::MemberForce;
  const std::string direction = colon == std::string::npos ? "" : text.substr(colon + 1);
  if (ofMember ? colon != std::string::npos : direction != "x" && direction != "y") return false;
  const std::optional<int> number = NumberIn(text.substr(0, colon));
  if (!number) return false;
  quantity = {kind, *number, direction == "y"};
  return true;
}

int ShowInfluence(const InfluenceRequest& request, std::istream& in, std::ostream& out, std::ostream& err) {
  ModelSession session(request.model, err);
  if (!session.Open(in)) return ExitUsage;
  const PathReading path = ReadPath(request.path);
  if (!path.fault.empty()) return Refuse(session, path.fault, ExitUsage);
  const std::string fault = QuantityFault(request.quantity);
  if (!fault.empty()) return Refuse(session, fault, ExitUsage);
  const TrainReading train = request.train ? ReadTrain(*request.train) : TrainReading{};
  if (!train.fault.empty()) return Refuse(session, train.fault, ExitUsage);
  const InfluenceLines lines;
  if (!lines.Fault().empty()) return Refuse(session, lines.Fault(), ExitFailed);
  Answer answer{lines.LineOf(request.quantity, path.nodes), train.train, std::nullopt};
  if (!answer.line.IsSure()) {
    return Refuse(session, "Rounding leaves no sure influence line of so soft a truss: check its coordinates, E and A",
                  ExitFailed);
  }
  if (!answer.train.empty()) answer.envelope = EnvelopeOf(answer.train, answer.line);
  Print(request, answer, out);
  return Depict(session, request, answer);
}

} // namespace strutwright
