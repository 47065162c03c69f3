// Prints the tables of figures in docs/trust.md: how often and how far the analysis is wrong, as the check sees it.

#include "AnalysisState.h"
#include "LargeModels.h"
#include "MessageBoxes.h"
#include "Platform.h"
#include "modAnalysis.h"
#include "modCheckAnswer.h"
#include "modMember.h"
#include "modModelStore.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <random>
#include <string>

namespace strutwright {
namespace {

/// Refusals are counted, not shown.
class SilentDesktop : public MessageBoxes {
 public:
  void Show(const Message&) override {}
  bool Ask(const Message&) override { return false; }
};

CheckReport Judge(const ModelData& model) {
  SetTables(model);
  const bool done = AnalyseTruss() == AnalysisEnd::Done;
  return CheckAnswer(done ? AnalysisOutcome::Done : AnalysisOutcome::Unstable);
}

/// The largest displacement of the analysis in mm.
double LargestDisplacement() {
  double largest = 0;
  for (const float d : Displacements) largest = std::max(largest, static_cast<double>(std::abs(d)));
  return largest;
}

/// A Pratt truss on two supports, panels of 3 m and 4 m deep.
ModelData Pratt(int panels) { return PrattTruss(2 * panels + 2); }

void PrintSpans() {
  std::printf("| Panels | Span / depth | Right digits | Largest difference | Loads | Loads and reactions leave |\n"
              "|---|---|---|---|---|---|\n");
  for (const int panels : {8, 20, 40, 66, 100, 134, 160}) {
    const CheckReport report = Judge(Pratt(panels));
    if (report.outcome != AnalysisOutcome::Done) {
      std::printf("| %d | %.0f | refused as unstable | | %d kN | |\n", panels, panels * 0.75, 10 * (panels + 1));
      continue;
    }
    const double difference = std::max({report.accuracy->displacementDifference, report.accuracy->forceDifference,
                                        report.accuracy->reactionDifference});
    std::printf("| %d | %.0f | %d | %.2g | %d kN | %.2g kN |\n", panels, panels * 0.75, report.accuracy->digits,
                difference, 10 * (panels + 1), report.balance->wholeResidual);
  }
}

/// A Pratt truss of 20 nodes without one of its diagonals; panels of 2 to 6 m, 2 to 6 m deep, by decimetres.
ModelData WithoutADiagonal(float area, std::mt19937& random) {
  ModelData model = PrattTruss(20);
  const auto panel = static_cast<float>(20 + Below(41, random)) / 10;
  const auto depth = static_cast<float>(20 + Below(41, random)) / 10;
  for (NodeData& node : model.nodes) {
    node.x *= panel / 3;
    node.y *= depth / 4;
  }
  for (MemberData& member : model.members) member.A = area;
  const int diagonal = 3 + 4 * Below(9, random); // the fourth of each panel's members
  model.members.erase(model.members.begin() + diagonal);
  return model;
}

void PrintMechanisms() {
  std::printf("| A (mm²) | Accepted | Median of the largest displacement (mm) | Recognised by the check |\n"
              "|---|---|---|---|\n");
  for (const float area : {1000.0F, 2000.0F, 5000.0F}) {
    std::mt19937 random(80);
    int recognised = 0;
    std::vector<double> displacements;
    for (int model = 0; model < 80; ++model) {
      const CheckReport report = Judge(WithoutADiagonal(area, random));
      if (report.stability.mechanismCount == 1) ++recognised;
      if (report.outcome == AnalysisOutcome::Done) displacements.push_back(LargestDisplacement());
    }
    std::sort(displacements.begin(), displacements.end());
    const double median = displacements.empty() ? 0 : displacements[displacements.size() / 2];
    std::printf("| %.0f | %zu of 80 | %.1e | %d of 80 |\n", static_cast<double>(area), displacements.size(), median,
                recognised);
  }
}

void PrintUnits() {
  std::printf("| A | Typed | Analysis | Check |\n|---|---|---|---|\n");
  for (const float area : {1000.0F, 0.001F}) {
    ModelData model = Pratt(8);
    for (MemberData& member : model.members) member.A = area;
    const CheckReport report = Judge(model);
    const bool done = report.outcome == AnalysisOutcome::Done;
    std::printf("| 1000 mm² | %g | %s | %s |\n", static_cast<double>(area), done ? "Analysis Done" : "unstable",
                report.status.c_str());
  }
}

/// A Warren truss with verticals on a slope, loaded below: every other vertical only holds the upper chord in place.
ModelData WarrenWithVerticals(int panels) {
  ModelData model = Pratt(panels);
  for (int panel = 0; panel < panels; ++panel) {
    MemberData& diagonal = model.members[3 + 4 * static_cast<std::size_t>(panel)];
    const auto lower = static_cast<float>(2 * panel + 1);
    diagonal.i = panel % 2 == 0 ? lower : lower + 1;
    diagonal.j = panel % 2 == 0 ? lower + 3 : lower + 2;
  }
  for (NodeData& node : model.nodes) node.y += 0.1F * node.x;
  return model;
}

void PrintZeroBars() {
  std::printf("| Panels | Zero bars | Labelled T or C | Largest force among them |\n|---|---|---|---|\n");
  for (const int panels : {20, 40, 66, 100, 134}) {
    const CheckReport report = Judge(WarrenWithVerticals(panels));
    int labelled = 0;
    double largest = 0;
    for (const ZeroBar& bar : report.zeroBars) {
      if (MemberState(bar.member) != "Zero Bar") ++labelled;
      largest = std::max(largest, static_cast<double>(std::abs(MemberForce(bar.member))));
    }
    std::printf("| %d | %zu | %d | %.2g kN |\n", panels, report.zeroBars.size(), labelled, largest);
  }
}

void PrintFigures() {
  SilentDesktop desktop;
  ThePlatform() = {.messages = &desktop};
  PrintSpans();
  std::printf("\n");
  PrintMechanisms();
  std::printf("\n");
  PrintUnits();
  std::printf("\n");
  PrintZeroBars();
}

} // namespace
} // namespace strutwright

int main() {
  strutwright::PrintFigures();
  return 0;
}
