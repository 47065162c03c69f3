#include "modCheck.h"

#include "Platform.h"
#include "WorkbenchState.h"
#include "modGenerators.h"
#include "modModelStore.h"
#include "modNumberText.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <new>
#include <span>
#include <utility>

namespace strutwright {

namespace {

constexpr const char* UsualE = "200";  // kN/mm2
constexpr const char* UsualA = "1000"; // mm2

/// What the user has entered: the results that the analysis writes beside it are no part of the model.
std::span<const float> EnteredOfMembers() {
  const std::span<const float> members = std::as_const(MemberTable).InOrder();
  return members.first(static_cast<std::size_t>(MemberFieldLength) * static_cast<std::size_t>(MemberTable.Count() + 1));
}

std::vector<float> ModelNumbers() {
  const std::span<const float> nodes = std::as_const(NodeTable).InOrder();
  const std::span<const float> members = EnteredOfMembers();
  std::vector<float> numbers(nodes.begin(), nodes.end());
  numbers.insert(numbers.end(), members.begin(), members.end());
  return numbers;
}

void Judge(AnalysisOutcome outcome) {
  TheCheck.motion = 0;
  TheCheck.report = {};
  TheCheck.failure.clear();
  try {
    TheCheck.judged = ModelNumbers();
    TheCheck.judgedNodes = std::as_const(NodeTable).InOrder().size();
    TheCheck.report = TheCheck.judge(outcome);
  } catch (const std::bad_alloc&) {
    TheCheck.failure = "there is not enough memory";
  } catch (const std::exception& failure) {
    TheCheck.failure = failure.what();
  }
}

bool Bears(int m) { return MemberTable(m, MemberE) > 0 && MemberTable(m, MemberA) > 0; }

bool Meets(int m, const Cure& cure) {
  const int i = RoundNodeNumber(MemberTable(m, MemberNodeI));
  const int j = RoundNodeNumber(MemberTable(m, MemberNodeJ));
  return i == cure.node || i == cure.otherNode || j == cure.node || j == cure.otherNode;
}

/// The member whose E and A a new one takes over: one that meets it, or else any; 0 when none bears.
int MemberLikeNew(const Cure& cure) {
  int like = 0;
  for (int m = 1; m <= MemberCount; ++m) {
    if (!Bears(m)) continue;
    if (Meets(m, cure)) return m;
    if (like == 0) like = m;
  }
  return like;
}

/// What was entered for a member to come stays.
void FillIn(int row, MemberField field, const std::string& text) {
  const auto value = NumericValue(GrMembers.Text(row, field));
  if (!value || !(*value > 0)) GrMembers.SetText(row, field, text);
}

void AddCuringMember(const Cure& cure) {
  const int like = MemberLikeNew(cure);
  const std::string E = like == 0 ? UsualE : NumberText(MemberTable(like, MemberE));
  const std::string A = like == 0 ? UsualA : NumberText(MemberTable(like, MemberA));
  AddMember(static_cast<std::int16_t>(cure.node), static_cast<std::int16_t>(cure.otherNode));
  FillIn(MemberCount, MemberE, E);
  FillIn(MemberCount, MemberA, A);
}

bool Exists(int node) { return node >= 1 && node <= NodeCount; }

} // namespace

void CheckLastAnalysis() { Judge(LastOutcome()); }

void DropCheck() {
  TheCheck.report.outcome = AnalysisOutcome::None;
  TheCheck.report.status.clear();
  TheCheck.report.level = CheckLevel::None;
  TheCheck.judged.clear();
  TheCheck.motion = 0;
}

/// Asked at every drawing, so nothing is copied.
bool CheckIsCurrent() {
  const std::span<const float> nodes = std::as_const(NodeTable).InOrder();
  const std::span<const float> members = EnteredOfMembers();
  const std::span<const float> judged = TheCheck.judged;
  if (judged.size() != nodes.size() + members.size() || TheCheck.judgedNodes != nodes.size()) return false;
  return std::equal(nodes.begin(), nodes.end(), judged.begin()) &&
         std::equal(members.begin(), members.end(), judged.begin() + static_cast<std::ptrdiff_t>(nodes.size()));
}

void BringCheckUpToDate() {
  if (!CheckIsCurrent()) Judge(AnalysisOutcome::None);
}

std::string CheckStatusText() { return TheCheck.report.status; }

CheckLevel CheckStatusLevel() { return TheCheck.report.level; }

std::string CheckVerdict() {
  return TheCheck.failure.empty() ? TheCheck.report.verdict : "The check could not be made: " + TheCheck.failure;
}

std::string CheckReportText() { return TheCheck.failure.empty() ? CheckText(TheCheck.report) : CheckVerdict() + "\n"; }

void ApplyCure(const Cure& cure) {
  TheHost().EndAnalysis(false);
  RebuildModelFromGrids();
  if (Exists(cure.node) && cure.IsMember() && Exists(cure.otherNode)) AddCuringMember(cure);
  if (Exists(cure.node) && !cure.IsMember()) {
    GrJoints.SetText(cure.node, NodeSupport, std::to_string(cure.supportCode));
  }
  RebuildModelFromGrids();
  TheHost().Redraw(false);
}

} // namespace strutwright
