#include "AnalyseModel.h"
#include "AnalysisState.h"
#include "EditingState.h"
#include "ModelSession.h"
#include "modAnalysis.h"
#include "modGrids.h"
#include "modMember.h"
#include "modModelStore.h"
#include "modNumberText.h"
#include "modRunAnalysis.h"

#include <algorithm>
#include <exception>
#include <istream>
#include <optional>
#include <ostream>
#include <utility>

namespace strutwright {

namespace {

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

/// The unit of every quantity that has one, by its key.
Json JsonUnits(bool isJudged) {
  Json units{{"x", "m"},   {"y", "m"},       {"dx", "mm"},    {"dy", "mm"},        {"rx", "kN"},
             {"ry", "kN"}, {"length", "mm"}, {"force", "kN"}, {"stress", "N/mm2"}, {"stretch", "mm"}};
  if (isJudged) units["residual"] = "kN";
  return units;
}

void PrintJson(const ModelSession& session, Result result, const std::optional<Judgement>& judgement,
               std::ostream& out) {
  Json nodes = Json::array();
  Json members = Json::array();
  for (int n = 1; result == Result::Ok && n <= NodeCount; ++n) nodes.push_back(JsonNode(n));
  for (int m = 1; result == Result::Ok && m <= MemberCount; ++m) members.push_back(JsonMember(m));
  Json values{{"version", JsonVersion},
              {"file", session.File()},
              {"result", ResultName(result)},
              {"messages", JsonListOf(session.Shown(), JsonMessage)},
              {"units", JsonUnits(judgement.has_value())},
              {"nodes", std::move(nodes)},
              {"members", std::move(members)}};
  if (judgement) values["check"] = judgement->json;
  PrintJsonLine(values, out);
}

void PrintText(const ModelSession& session, Result result, const std::optional<Judgement>& judgement,
               std::ostream& out) {
  out << ValidText(session.File()) << ": " << ResultName(result) << "\n\n";
  if (result == Result::Ok) {
    PrintTable(jResGr, out);
    out << '\n';
    PrintTable(mResGr, out);
    out << '\n';
  }
  if (judgement) out << judgement->text;
}

void Print(const ModelSession& session, Result result, const std::optional<Judgement>& judgement,
           const AnalyseRequest& request, std::ostream& out) {
  switch (request.format) {
  case OutputFormat::Text: return PrintText(session, result, judgement, out);
  case OutputFormat::Csv: return PrintCsv(session, result, request.models.size() > 1, out);
  case OutputFormat::Json: return PrintJson(session, result, judgement, out);
  }
}

} // namespace

int AnalyseModel(const AnalyseRequest& request, const AnalysisExtras& extras, std::size_t k, const Streams& streams) {
  ModelSession session(request.models[k], streams.err);
  const Result result = OpenAndAnalyse(session, streams.in);
  std::optional<Judgement> judgement;
  if (extras.judge) judgement = extras.judge(session, result);
  Print(session, result, judgement, request, streams.out);
  streams.out.flush();
  return std::max({StatusOf(result), judgement ? judgement->status : ExitOk,
                   extras.makeFiles ? extras.makeFiles(session, result, k) : ExitOk});
}

} // namespace strutwright
