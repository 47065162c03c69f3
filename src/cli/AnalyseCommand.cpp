#include "AnalyseModel.h"
#include "AnalysisState.h"
#include "CommandLine.h"
#include "Commands.h"
#include "EditingState.h"
#include "FileSystem.h"
#include "ModelSession.h"
#include "Picture.h"
#include "modAnalysis.h"
#include "modCheckAnswer.h"
#include "modCheckText.h"
#include "modGrids.h"
#include "modMember.h"
#include "modModelStore.h"
#include "modNumberText.h"
#include "modPlaces.h"
#include "modReportFiles.h"
#include "modRunAnalysis.h"
#include "modWorkedFiles.h"
#include "modWorkedTruss.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <istream>
#include <limits>
#include <optional>
#include <ostream>
#include <utility>

namespace strutwright {

namespace {

enum class Result { Ok, Unstable, Failed, Unreadable };

std::string ResultName(Result result) {
  if (result == Result::Ok) return "ok";
  return result == Result::Unstable ? "unstable" : "failed";
}

int StatusOf(Result result) {
  if (result == Result::Ok) return ExitOk;
  return result == Result::Unreadable ? ExitUsage : ExitFailed;
}

Result OpenAndAnalyse(ModelSession& session, std::istream& in) {
  try {
    if (!session.Open(in)) return Result::Unreadable;
    if (runAnalysis(ScratchCopy::None)) return Result::Ok;
    return FailedCheck == UnstableCheck ? Result::Unstable : Result::Failed;
  } catch (const std::exception& failure) {
    session.ShowUncaught(failure.what());
    return Result::Failed;
  }
}

std::vector<std::string> HeadingsOf(const Grid& grid) {
  std::vector<std::string> headings;
  for (int column = 0; column < grid.ColumnCount(); ++column) headings.push_back(grid.Text(0, column));
  return headings;
}

void PrintCsv(const ModelSession& session, Result result, bool nameFile, std::ostream& out) {
  if (nameFile) out << CsvRecord({"FILE", ValidText(session.File()), ResultName(result), "", ""});
  out << CsvRecord(HeadingsOf(jResGr));
  for (int n = 1; result == Result::Ok && n <= NodeCount; ++n) {
    out << CsvRecord({std::to_string(n), ShortestText(NodeDisplacement(n, "x")), ShortestText(NodeDisplacement(n, "y")),
                      ShortestText(Reactions.at(XFreedom(n))), ShortestText(Reactions.at(YFreedom(n)))});
  }
  out << CsvRecord(HeadingsOf(mResGr));
  for (int m = 1; result == Result::Ok && m <= MemberCount; ++m) {
    out << CsvRecord({std::to_string(m), ShortestText(MemberForce(m)), MemberState(m), ShortestText(MemberStress(m)),
                      ShortestText(MemberStretch(m))});
  }
}

Json JsonNode(int n) {
  return {{"node", n},
          {"x", JsonNumber(NodeTable(n, NodeX))},
          {"y", JsonNumber(NodeTable(n, NodeY))},
          {"dx", JsonNumber(NodeDisplacement(n, "x"))},
          {"dy", JsonNumber(NodeDisplacement(n, "y"))},
          {"rx", JsonNumber(Reactions.at(XFreedom(n)))},
          {"ry", JsonNumber(Reactions.at(YFreedom(n)))},
          {"support", JsonNumber(NodeTable(n, NodeSupport))}};
}

Json JsonMember(int m) {
  return {{"member", m},
          {"i", JsonNumber(MemberTable(m, MemberNodeI))},
          {"j", JsonNumber(MemberTable(m, MemberNodeJ))},
          {"length", JsonNumber(MemberTable(m, MemberFieldLength))},
          {"cos", JsonNumber(MemberTable(m, MemberFieldCos))},
          {"sin", JsonNumber(MemberTable(m, MemberFieldSin))},
          {"force", JsonNumber(MemberForce(m))},
          {"state", MemberState(m)},
          {"stress", JsonNumber(MemberStress(m))},
          {"stretch", JsonNumber(MemberStretch(m))}};
}

Json JsonMessage(const Message& message) {
  return {{"icon", IconName(message.icon)}, {"title", message.title}, {"text", message.text}};
}

/// Fewest digits that a result may have before a script is warned of it.
constexpr int FewestDigits = 2;

/// The second judgement of a model's answer, as far as it was asked for.
struct Check {
  bool wasAsked = false;
  std::optional<CheckReport> report; ///< nothing where there was no answer to judge
  std::string failure;               ///< what kept it from being judged; empty where nothing did
};

/// Judges the answer, if there is one.  Whatever goes wrong is reported, and does not keep other models from their
/// turn.
Check CheckOf(ModelSession& session, Result result, const AnalyseRequest& request, const AnswerJudge& judge) {
  Check check{request.check && result != Result::Unreadable, std::nullopt, ""};
  if (!check.wasAsked || result == Result::Failed) return check;
  try {
    check.report = judge(LastOutcome());
  } catch (const std::exception& failure) {
    check.failure = failure.what();
    session.Report("The answer could not be checked\n" + check.failure);
  }
  return check;
}

/// The status that the check adds.
int StatusOf(Result result, const Check& check) {
  if (!check.failure.empty()) return ExitFailed;
  if (result != Result::Ok || !check.report) return ExitOk;
  const bool isMisleading = !check.report->accuracy || check.report->accuracy->digits < FewestDigits;
  return isMisleading ? ExitMisleading : ExitOk;
}

Json JsonResidual(const std::optional<BalanceReport>& balance) {
  constexpr double largest = std::numeric_limits<float>::max();
  if (!balance || !(std::abs(balance->nodeResidual) <= largest)) return nullptr;
  return JsonNumber(static_cast<float>(balance->nodeResidual));
}

Json JsonCheck(const CheckReport& check) {
  const bool stable = check.stability.Stable();
  const Json zeroMembers = JsonListOf(check.zeroBars, [](const ZeroBar& bar) { return bar.member; });
  return {{"stable", stable},
          {"mechanisms", check.stability.mechanismCount},
          {"indeterminacy", check.stability.indeterminacy},
          {"digits", check.accuracy ? Json(check.accuracy->digits) : Json()},
          {"residual", JsonResidual(check.balance)},
          {"zero_members", stable ? zeroMembers : Json()},
          {"verdict", check.verdict},
          {"motions", JsonListOf(check.stability.mechanisms, [](const Mechanism& m) { return m.sentence; })},
          {"oddities", JsonListOf(check.findings, [](const Finding& f) { return f.text; })}};
}

/// The unit of every quantity that has one, by its key.
Json JsonUnits(const Check& check) {
  Json units{{"x", "m"},   {"y", "m"},       {"dx", "mm"},    {"dy", "mm"},        {"rx", "kN"},
             {"ry", "kN"}, {"length", "mm"}, {"force", "kN"}, {"stress", "N/mm2"}, {"stretch", "mm"}};
  if (check.wasAsked) units["residual"] = "kN";
  return units;
}

void PrintJson(const ModelSession& session, Result result, const Check& check, std::ostream& out) {
  Json nodes = Json::array();
  Json members = Json::array();
  for (int n = 1; result == Result::Ok && n <= NodeCount; ++n) nodes.push_back(JsonNode(n));
  for (int m = 1; result == Result::Ok && m <= MemberCount; ++m) members.push_back(JsonMember(m));
  Json values{{"version", JsonVersion},       {"file", session.File()},
              {"result", ResultName(result)}, {"messages", JsonListOf(session.Shown(), JsonMessage)},
              {"units", JsonUnits(check)},    {"nodes", std::move(nodes)},
              {"members", std::move(members)}};
  if (check.wasAsked) values["check"] = check.report ? JsonCheck(*check.report) : Json();
  PrintJsonLine(values, out);
}

void PrintText(const ModelSession& session, Result result, const Check& check, std::ostream& out) {
  out << ValidText(session.File()) << ": " << ResultName(result) << "\n\n";
  if (result == Result::Ok) {
    PrintTable(jResGr, out);
    out << '\n';
    PrintTable(mResGr, out);
    out << '\n';
  }
  if (!check.wasAsked) return;
  if (check.report) {
    out << CheckText(*check.report) << '\n';
  } else if (check.failure.empty()) {
    out << "Not checked, since the model could not be analysed\n\n";
  } else {
    out << "The answer could not be checked: " << check.failure << "\n\n";
  }
}

void Print(const ModelSession& session, Result result, const Check& check, const AnalyseRequest& request,
           std::ostream& out) {
  switch (request.format) {
  case OutputFormat::Text: return PrintText(session, result, check, out);
  case OutputFormat::Csv: return PrintCsv(session, result, request.models.size() > 1, out);
  case OutputFormat::Json: return PrintJson(session, result, check, out);
  }
}

/// The name of what is made of the session's model.  It says so where another model has taken the one to expect.
std::string NameFor(ModelSession& session, const std::string& what, const OutputNames::Name& name) {
  if (name.isNumbered) session.Report("The " + what + " is " + name.file + ", because another model's has its name");
  return name.file;
}

/// The status of making the picture, if there is something to make it of.  A failure has been reported.
int Depict(ModelSession& session, Result result, const PictureRequest& picture, const OutputNames::Name& name) {
  if (picture.file.empty() || result == Result::Unreadable) return ExitOk;
  const std::string file = NameFor(session, "picture", name);
  try {
    MakePicture(picture, file, result == Result::Ok);
  } catch (const FileError& error) {
    session.Report("Error while saving file " + file + "\n" + error.what());
    return ExitUsage;
  }
  return ExitOk;
}

/// The same of writing the report.
int Document(ModelSession& session, Result result, const AnalyseRequest& request, const OutputNames::Name& name) {
  if (request.report.empty() || result == Result::Unreadable) return ExitOk;
  if (result != Result::Ok) {
    session.Report("No report is written, because there are no results");
    return ExitOk;
  }
  const std::string file = NameFor(session, "report", name);
  try {
    EnsureApplication();
    WriteReport(MakeReport(ValidText(LastComponent(session.File())), request.picture.style), file);
  } catch (const FileError& error) {
    session.Report("Error while saving file " + file + "\n" + error.what());
    return ExitUsage;
  }
  return ExitOk;
}

/// The same of writing the worked solution, which says itself what keeps a truss from being solved.
int WriteWorking(ModelSession& session, Result result, const AnalyseRequest& request, const OutputNames::Name& name) {
  if (request.working.empty() || result == Result::Unreadable) return ExitOk;
  const std::string file = NameFor(session, "worked solution", name);
  try {
    EnsureApplication();
    WriteWorked(WorkedTruss(ValidText(LastComponent(session.File()))), file);
  } catch (const FileError& error) {
    session.Report("Error while saving file " + file + "\n" + error.what());
    return ExitUsage;
  }
  return ExitOk;
}

} // namespace

std::vector<MadeFiles> NamesOfMadeFiles(const AnalyseRequest& request) {
  OutputNames names(request.models.size() > 1);
  std::vector<MadeFiles> made;
  for (const std::string& model : request.models) {
    MadeFiles files;
    if (!request.picture.file.empty()) files.picture = names.For(request.picture.file, model);
    if (!request.report.empty()) files.report = names.For(request.report, model);
    if (!request.working.empty()) files.working = names.For(request.working, model);
    made.push_back(files);
  }
  return made;
}

int AnalyseModel(const AnalyseRequest& request, const std::string& model, const MadeFiles& made, const Streams& streams,
                 const AnswerJudge& judge) {
  ModelSession session(model, streams.err);
  const Result result = OpenAndAnalyse(session, streams.in);
  const Check check = CheckOf(session, result, request, judge);
  Print(session, result, check, request, streams.out);
  streams.out.flush();
  return std::max({StatusOf(result), StatusOf(result, check), Depict(session, result, request.picture, made.picture),
                   Document(session, result, request, made.report),
                   WriteWorking(session, result, request, made.working)});
}

} // namespace strutwright
