#include "AnalysisState.h"
#include "CommandLine.h"
#include "Commands.h"
#include "EditingState.h"
#include "FileSystem.h"
#include "ModelSession.h"
#include "Picture.h"
#include "modAnalysis.h"
#include "modCheckAnswer.h"
#include "modGrids.h"
#include "modMember.h"
#include "modModelStore.h"
#include "modNumberText.h"
#include "modPlaces.h"
#include "modReportFiles.h"
#include "modRunAnalysis.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <limits>
#include <optional>
#include <ostream>

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

Result OpenAndAnalyse(ModelSession& session) {
  try {
    if (!session.Open()) return Result::Unreadable;
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

std::string JsonNode(int n) {
  return JsonObject({{"node", std::to_string(n)},
                     {"x", JsonNumber(NodeTable(n, NodeX))},
                     {"y", JsonNumber(NodeTable(n, NodeY))},
                     {"dx", JsonNumber(NodeDisplacement(n, "x"))},
                     {"dy", JsonNumber(NodeDisplacement(n, "y"))},
                     {"rx", JsonNumber(Reactions.at(XFreedom(n)))},
                     {"ry", JsonNumber(Reactions.at(YFreedom(n)))},
                     {"support", JsonNumber(NodeTable(n, NodeSupport))}});
}

std::string JsonMember(int m) {
  return JsonObject({{"member", std::to_string(m)},
                     {"i", JsonNumber(MemberTable(m, MemberNodeI))},
                     {"j", JsonNumber(MemberTable(m, MemberNodeJ))},
                     {"length", JsonNumber(MemberTable(m, MemberFieldLength))},
                     {"cos", JsonNumber(MemberTable(m, MemberFieldCos))},
                     {"sin", JsonNumber(MemberTable(m, MemberFieldSin))},
                     {"force", JsonNumber(MemberForce(m))},
                     {"state", JsonText(MemberState(m))},
                     {"stress", JsonNumber(MemberStress(m))},
                     {"stretch", JsonNumber(MemberStretch(m))}});
}

std::string JsonMessage(const Message& message) {
  return JsonObject({{"icon", JsonText(IconName(message.icon))},
                     {"title", JsonText(message.title)},
                     {"text", JsonText(message.text)}});
}

/// Fewest digits that a result may have before a script is warned of it.
constexpr int FewestDigits = 2;

/// The second judgement of a model's answer, as far as it was asked for.
struct Check {
  bool wasAsked = false;
  std::optional<CheckReport> report; ///< nothing where there was no answer to judge
  std::string failure;               ///< what kept it from being judged; empty where nothing did
};

/// Judges the answer, if there is one.  Whatever goes wrong is told, and does not keep other models from their turn.
Check CheckOf(ModelSession& session, Result result, const AnalyseRequest& request, const AnswerJudge& judge) {
  Check check{request.check && result != Result::Unreadable, std::nullopt, ""};
  if (!check.wasAsked || result == Result::Failed) return check;
  try {
    check.report = judge(LastOutcome());
  } catch (const std::exception& failure) {
    check.failure = failure.what();
    session.Tell("The answer could not be checked\n" + check.failure);
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

template <typename Item, typename Text>
std::string JsonListOf(const std::vector<Item>& items, const Text& text) {
  std::vector<std::string> values;
  for (const Item& item : items) values.push_back(text(item));
  return JsonList(values);
}

std::string JsonResidual(const std::optional<BalanceReport>& balance) {
  constexpr double largest = std::numeric_limits<float>::max();
  if (!balance || !(std::abs(balance->nodeResidual) <= largest)) return "null";
  return JsonNumber(static_cast<float>(balance->nodeResidual));
}

std::string JsonCheck(const CheckReport& check) {
  const bool stable = check.stability.Stable();
  const std::string zeroMembers =
      JsonListOf(check.zeroBars, [](const ZeroBar& bar) { return std::to_string(bar.member); });
  return JsonObject(
      {{"stable", stable ? "true" : "false"},
       {"mechanisms", std::to_string(check.stability.mechanismCount)},
       {"indeterminacy", std::to_string(check.stability.indeterminacy)},
       {"digits", check.accuracy ? std::to_string(check.accuracy->digits) : "null"},
       {"residual", JsonResidual(check.balance)},
       {"zero_members", stable ? zeroMembers : "null"},
       {"verdict", JsonText(check.verdict)},
       {"motions", JsonListOf(check.stability.mechanisms, [](const Mechanism& m) { return JsonText(m.sentence); })},
       {"oddities", JsonListOf(check.findings, [](const Finding& f) { return JsonText(f.text); })}});
}

void PrintJson(const ModelSession& session, Result result, const Check& check, std::ostream& out) {
  std::vector<std::string> messages;
  std::vector<std::string> nodes;
  std::vector<std::string> members;
  for (const Message& message : session.Shown()) messages.push_back(JsonMessage(message));
  for (int n = 1; result == Result::Ok && n <= NodeCount; ++n) nodes.push_back(JsonNode(n));
  for (int m = 1; result == Result::Ok && m <= MemberCount; ++m) members.push_back(JsonMember(m));
  std::vector<std::pair<std::string_view, std::string>> values{{"file", JsonText(session.File())},
                                                               {"result", JsonText(ResultName(result))},
                                                               {"messages", JsonList(messages)},
                                                               {"nodes", JsonList(nodes)},
                                                               {"members", JsonList(members)}};
  if (check.wasAsked) values.emplace_back("check", check.report ? JsonCheck(*check.report) : "null");
  out << JsonObject(values) << '\n';
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

/// The status of making the picture, if there is something to make it of.  A failure has been told.
int Depict(ModelSession& session, Result result, const PictureRequest& picture, bool several) {
  if (picture.file.empty() || result == Result::Unreadable) return ExitOk;
  const std::string file = FileFor(picture.file, session.File(), several);
  try {
    MakePicture(picture, file, result == Result::Ok);
  } catch (const FileError& error) {
    session.Tell("Error while saving file " + file + "\n" + error.what());
    return ExitUsage;
  }
  return ExitOk;
}

/// The same of writing the report.
int Document(ModelSession& session, Result result, const AnalyseRequest& request) {
  if (request.report.empty() || result == Result::Unreadable) return ExitOk;
  if (result != Result::Ok) {
    session.Tell("No report is written, because there are no results");
    return ExitOk;
  }
  const std::string file = FileFor(request.report, session.File(), request.models.size() > 1);
  try {
    EnsureApplication();
    WriteReport(MakeReport(ValidText(LastComponent(session.File()))), file);
  } catch (const FileError& error) {
    session.Tell("Error while saving file " + file + "\n" + error.what());
    return ExitUsage;
  }
  return ExitOk;
}

} // namespace

int AnalyseModels(const AnalyseRequest& request, std::ostream& out, std::ostream& err, const AnswerJudge& judge) {
  const bool several = request.models.size() > 1;
  int status = ExitOk;
  for (const std::string& file : request.models) {
    ModelSession session(file, err);
    const Result result = OpenAndAnalyse(session);
    const Check check = CheckOf(session, result, request, judge);
    Print(session, result, check, request, out);
    out.flush();
    status = std::max({status, StatusOf(result), StatusOf(result, check),
                       Depict(session, result, request.picture, several), Document(session, result, request)});
  }
  return status;
}

} // namespace strutwright
