#include "modCheck.h"

#include "ModelEvents.h"
#include "Platform.h"
#include "WorkbenchState.h"
#include "modCheckText.h"
#include "modGenerators.h"
#include "modModelStore.h"
#include "modNumberText.h"

#include <cstdint>
#include <exception>
#include <new>
#include <optional>

namespace strutwright {

namespace {

constexpr const char* UsualE = "200";  // kN/mm2
constexpr const char* UsualA = "1000"; // mm2

void Judge(AnalysisOutcome outcome) {
  TheCheck.motion = 0;
  TheCheck.report = {};
  TheCheck.failure.clear();
  try {
    TheCheck.judged = ModelAsEntered::Now();
    TheCheck.report = TheCheck.judge(outcome);
  } catch (const std::bad_alloc&) {
    TheCheck.failure = "there is not enough memory";
  } catch (const std::exception& failure) {
    TheCheck.failure = failure.what();
  }
}

bool CanCarryForce(int m) { return MemberTable(m, MemberE) > 0 && MemberTable(m, MemberA) > 0; }

bool Meets(int m, const Cure& cure) {
  const int i = RoundNodeNumber(MemberTable(m, MemberNodeI));
  const int j = RoundNodeNumber(MemberTable(m, MemberNodeJ));
  return i == cure.node || i == cure.otherNode || j == cure.node || j == cure.otherNode;
}

/// The member whose E and A a new one takes over: one that meets it, or else any; 0 when none bears.
int MemberLikeNew(const Cure& cure) {
  int like = 0;
  for (int m = 1; m <= MemberCount; ++m) {
    if (!CanCarryForce(m)) continue;
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

/// The value of a field that can give rigidity; nothing for another text.
std::optional<float> UsableValue(const std::string& text) {
  const std::optional<float> value = NumericValue(text);
  return value && *value > 0 ? value : std::nullopt;
}

std::string WhatToType(bool hasE, bool hasA) {
  if (hasA) return "Type an E above zero into E Value on the control board; it can be filled in from there.";
  if (hasE) return "Type an area above zero into Area on the control board; it can be filled in from there.";
  return "Type an E and an area above zero into E Value and Area on the control board; they can be filled in from "
         "there.";
}

bool Exists(int node) { return node >= 1 && node <= NodeCount; }

} // namespace

void CheckLastAnalysis() { Judge(LastOutcome()); }

void DropCheck() {
  TheCheck.report.outcome = AnalysisOutcome::None;
  TheCheck.report.status.clear();
  TheCheck.report.level = CheckLevel::None;
  TheCheck.judged = {};
  TheCheck.motion = 0;
}

bool CheckIsCurrent() { return TheCheck.judged.IsCurrent(); }

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
  EndAnalysis();
  RebuildModelFromGrids();
  if (Exists(cure.node) && cure.IsMember() && Exists(cure.otherNode)) AddCuringMember(cure);
  if (Exists(cure.node) && !cure.IsMember()) {
    GrJoints.SetText(cure.node, NodeSupport, std::to_string(cure.supportCode));
  }
  RebuildModelFromGrids();
  ModelEvents().ModelChanged();
}

RigidityOffer OfferRigidity(const std::string& E, const std::string& A) {
  if (TheCheck.report.withoutRigidity.empty()) return {};
  const std::optional<float> e = UsableValue(E);
  const std::optional<float> a = UsableValue(A);
  if (!e || !a) return {WhatToType(e.has_value(), a.has_value()), false};
  return {"The control board holds E = " + NumberText(*e) + " kN/mm2 and A = " + NumberText(*a) + " mm2.", true};
}

void FillRigidity(const std::string& E, const std::string& A) {
  const std::optional<float> e = UsableValue(E);
  const std::optional<float> a = UsableValue(A);
  if (!e || !a) return;
  EndAnalysis();
  RebuildModelFromGrids();
  for (int m = 1; m <= MemberCount; ++m) {
    FillIn(m, MemberE, NumberText(*e));
    FillIn(m, MemberA, NumberText(*a));
  }
  RebuildModelFromGrids();
  ModelEvents().ModelChanged();
}

} // namespace strutwright
