#include "modTips.h"

#include "AnalysisState.h"
#include "modAnalysis.h"
#include "modMember.h"
#include "modModelStore.h"
#include "modNumberText.h"

namespace strutwright {

namespace {

std::string InThreePlaces(float value) { return FormatNumber(value, "#0.0##"); }

std::string InTwoPlaces(float value) { return FormatNumber(value, "#0.0#"); }

/// "x 3 m, y 4 m".
std::string PairText(const std::string& x, const std::string& y, const std::string& unit) {
  return "x " + x + " " + unit + ", y " + y + " " + unit;
}

std::string LoadLine(int n) {
  const float x = NodeTable(n, NodeForceX);
  const float y = NodeTable(n, NodeForceY);
  if (x == 0 && y == 0) return "\nLoad: none";
  return "\nLoad: " + PairText(NumberText(x), NumberText(y), "kN");
}

std::string SupportLine(float code) {
  if (code == 0) return "\nSupport: none";
  if (code == 1) return "\nSupport: held in y";
  return code == 2 ? "\nSupport: held in x" : "\nSupport: held in x and y";
}

bool NodeHasResults(int n) {
  return AnalysisDone != FlagFalse && YFreedom(n) < Displacements.size() && YFreedom(n) < Reactions.size();
}

/// Only of the directions that the support holds.
std::string ReactionLine(int n) {
  const float code = NodeTable(n, NodeSupport);
  const std::string x = InTwoPlaces(Reactions[XFreedom(n)]);
  const std::string y = InTwoPlaces(Reactions[YFreedom(n)]);
  if (code == 0) return {};
  if (code == 1) return "\nReaction: y " + y + " kN";
  return "\nReaction: " + (code == 2 ? "x " + x + " kN" : PairText(x, y, "kN"));
}

bool HasNode(int n) { return n >= 1 && n <= NodeCount; }

std::string MemberResultLines(int m) {
  return "\nForce: " + InTwoPlaces(MemberForce(m)) + " kN " + MemberState(m) +
         "\nStress: " + InThreePlaces(MemberStress(m)) + " N/mm2" +
         "\nChange of length: " + InThreePlaces(MemberStretch(m)) + " mm";
}

} // namespace

std::string NodeTip(int n) {
  if (!HasNode(n)) return {};
  const std::string place = PairText(NumberText(NodeTable(n, NodeX)), NumberText(NodeTable(n, NodeY)), "m");
  std::string tip =
      "Node " + std::to_string(n) + "\nPlace: " + place + LoadLine(n) + SupportLine(NodeTable(n, NodeSupport));
  if (!NodeHasResults(n)) return tip;
  tip +=
      "\nDisplacement: " + PairText(InTwoPlaces(NodeDisplacement(n, "x")), InTwoPlaces(NodeDisplacement(n, "y")), "mm");
  return tip + ReactionLine(n);
}

std::string MemberTip(int m) {
  if (m < 1 || m > MemberCount) return {};
  const int i = RoundNodeNumber(MemberTable(m, MemberNodeI));
  const int j = RoundNodeNumber(MemberTable(m, MemberNodeJ));
  std::string tip = "Member " + std::to_string(m) + ", nodes " + std::to_string(i) + "-" + std::to_string(j);
  if (HasNode(i) && HasNode(j)) tip += "\nL: " + InThreePlaces(MemberLength(m)) + " m";
  tip += "\nE: " + NumberText(MemberTable(m, MemberE)) + " kN/mm2\nA: " + NumberText(MemberTable(m, MemberA)) + " mm2";
  const float prestress = MemberTable(m, MemberPS);
  if (prestress != 0) tip += "\nPS: " + NumberText(prestress) + " kN";
  return AnalysisDone != FlagFalse ? tip + MemberResultLines(m) : tip;
}

} // namespace strutwright
