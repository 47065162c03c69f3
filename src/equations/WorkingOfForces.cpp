#include "WorkingParts.h"
#include "modAnalysis.h"
#include "modEquationCells.h"
#include "modMember.h"
#include "modModelStore.h"
#include "modNumberText.h"

#include <cstddef>
#include <map>

namespace strutwright {

namespace {

// The working of Member Forces and Reactions.

float ForceOn(const EquationPage& page, int m) { return page.memberForces->at(static_cast<std::size_t>(m)); }

Formula ForceNumber(const EquationPage& page, int m) {
  return ShownNumber(ForceOn(page, m), "force " + std::to_string(m));
}

/// " kN (T)"
std::string UnitAndState(float force) {
  const std::string state = StateOfForce(force);
  return state == "T" || state == "C" ? " kN (" + state + ")" : " kN";
}

/// f = EA/L (c du + s dv) + PS = 100 (0.8 · 0.5 + 0.6 · 0.25) + 0 = 55 kN (T)
Formula ForceFormula(const EquationPage& page, int m) {
  const MemberAxis axis = AxisOf(m);
  const MemberForceTerms terms = ForceTermsOf(m, axis, *page.displacements);
  const double EA = static_cast<double>(MemberTable(m, MemberE)) * MemberTable(m, MemberA);
  const auto product = [m](float direction, float movement) {
    return RowOf({AsTerm(FineNumber(direction, MemberLink(m))), SignOf("\u00B7"), AsTerm(FineNumber(movement))});
  };
  const Formula stiffness =
      axis.length > 0 ? ShownNumber(static_cast<float>(EA / axis.length), MemberLink(m)) : NumberOf("0");
  return RowOf({IndexOf(SymbolOf("f"), NumberOf(std::to_string(m))), SignOf("="), stiffness, SignOf("\u00B7"),
                BracketsAround(RowOf({product(axis.c, terms.du), SignOf("+"), product(axis.s, terms.dv)})), SignOf("+"),
                AsTerm(ShownNumber(MemberTable(m, MemberPS), MemberLink(m))), SignOf("="),
                InTone(FormulaTone::Strong, ForceNumber(page, m)), WordsOf(UnitAndState(terms.force))});
}

bool IsIgnored(int m) {
  return AxisOf(m).length <= 0 || !(MemberTable(m, MemberE) > 0) || !(MemberTable(m, MemberA) > 0);
}

Formula GeneralForce() {
  const auto symbol = [](const std::string& letters) { return SymbolOf(letters); };
  return RowOf({symbol("f"), SignOf("="), FractionOf(symbol("EA"), symbol("L")),
                BracketsAround(RowOf({symbol("c"), SignOf("\u00B7"), symbol("\u0394u"), SignOf("+"), symbol("s"),
                                      SignOf("\u00B7"), symbol("\u0394v")})),
                SignOf("+"), symbol("PS")});
}

/// What members add to one reaction, by freedom, in the order in which it is added.
struct Added {
  int member = 0;
  ReactionShare share;
};

std::map<std::size_t, std::vector<Added>> AddedToReactions(const EquationPage& page) {
  std::map<std::size_t, std::vector<Added>> added;
  for (int m = 1; m <= MemberCount; ++m) {
    for (const ReactionShare& share : ReactionSharesOf(m, ForceOn(page, m), AxisOf(m))) {
      added[share.freedom].push_back({m, share});
    }
  }
  return added;
}

/// The load of a freedom and, where members are prestressed there, what they exert.
Formula LoadWithPrestress(int freedom, float total) {
  const int node = (freedom + 1) / 2;
  const float load = NodeTable(node, freedom % 2 == 1 ? NodeForceX : NodeForceY);
  if (load == total) return AsTerm(ShownNumber(total, NodeLink(node)));
  return BracketsAround(RowOf({ShownNumber(load, NodeLink(node)), SignOf("+"), AsTerm(ShownNumber(total - load))}));
}

/// R = -P + sum of +-(f - PS) c, with its numbers.
Formula ReactionFormula(const EquationPage& page, int freedom, float load, const std::vector<Added>& added) {
  std::vector<Formula> parts{IndexOf(SymbolOf("R"), WordsOf(FreedomLabel(freedom))), SignOf("="), WordsOf("\u2212"),
                             LoadWithPrestress(freedom, load)};
  for (const Added& each : added) {
    parts.push_back(SignOf(each.share.sign > 0 ? "+" : "\u2212"));
    parts.push_back(
        BracketsAround(RowOf({ForceNumber(page, each.member), SignOf("\u2212"),
                              AsTerm(ShownNumber(MemberTable(each.member, MemberPS), MemberLink(each.member)))})));
    parts.push_back(SignOf("\u00B7"));
    parts.push_back(AsTerm(FineNumber(static_cast<float>(each.share.along), MemberLink(each.member))));
  }
  parts.push_back(SignOf("="));
  parts.push_back(InTone(FormulaTone::Strong, ShownNumber(page.reactions->at(static_cast<std::size_t>(freedom)))));
  parts.push_back(WordsOf(" kN"));
  return RowOf(parts);
}

std::vector<int> HeldFreedoms() {
  const auto size = static_cast<std::size_t>(2 * NodeCount) + 1;
  std::vector<float> P(size, 0.0F);
  std::vector<float> R(size, 0.0F);
  std::vector<std::int16_t> fixed(size, 0);
  RestrainSupports(P, R, fixed);
  std::vector<int> held;
  for (std::size_t freedom = 1; freedom < size; ++freedom) {
    if (fixed[freedom] == 1) held.push_back(static_cast<int>(freedom));
  }
  return held;
}

} // namespace

void WriteMemberForces(const EquationPage& page, WorkingWriter& writer) {
  writer.Write(GeneralForce());
  writer.Say("\u0394u and \u0394v: displacement of node j less that of node i, mm. T: tension, positive; C: "
             "compression, negative.");
  const int listed = writer.Listed(MemberCount, "members");
  if (NodeCount <= MaxWorkedNodes || listed <= MaxListedInPane) {
    for (int m = 1; m <= listed; ++m) {
      if (IsIgnored(m)) writer.Say("Member " + std::to_string(m) + " has no stiffness or is ignored: f = 0.");
      if (!IsIgnored(m)) writer.Write(ForceFormula(page, m));
    }
    return;
  }
  WorkedTable table{{{"Member"}, {"\u0394u (mm)"}, {"\u0394v (mm)"}, {"Force (kN)"}}, {}};
  for (int m = 1; m <= listed; ++m) {
    const MemberForceTerms terms = ForceTermsOf(m, AxisOf(m), *page.displacements);
    table.rows.push_back(
        {std::to_string(m), NumberAsShown(terms.du), NumberAsShown(terms.dv), NumberAsShown(ForceOn(page, m))});
  }
  writer.Tabulate(std::move(table));
}

void WriteReactions(const EquationPage& page, WorkingWriter& writer) {
  const std::vector<int> held = HeldFreedoms();
  if (held.empty()) return writer.Say("No node has a support, so there is no reaction.");
  writer.Say("At a support: less the load P, which holds what prestress exerts, and then each member there: + where it "
             "ends, \u2212 where it starts, by c for x and by s for y. Right and up are positive.");
  const std::vector<float> zeros(static_cast<std::size_t>(page.viewDofCount) + 1, 0.0F);
  std::vector<float> loads = zeros;
  BuildLoadVector(loads);
  const std::map<std::size_t, std::vector<Added>> added = AddedToReactions(page);
  const int listed = writer.Listed(static_cast<int>(held.size()), "reactions");
  for (int place = 0; place < listed; ++place) {
    const int freedom = held[static_cast<std::size_t>(place)];
    const auto found = added.find(static_cast<std::size_t>(freedom));
    writer.Write(ReactionFormula(page, freedom, loads[static_cast<std::size_t>(freedom)],
                                 found == added.end() ? std::vector<Added>{} : found->second));
  }
}

} // namespace strutwright
