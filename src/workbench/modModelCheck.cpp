#include "modModelCheck.h"

#include "modCheckAnswer.h"
#include "modOtherModel.h"

#include <algorithm>
#include <cstddef>

namespace strutwright {

namespace {

constexpr std::size_t MotionsTold = 3;

void AddMotions(const StabilityReport& stability, std::vector<std::string>& findings) {
  const std::size_t told = std::min(stability.mechanisms.size(), MotionsTold);
  for (std::size_t k = 0; k < told; ++k) findings.push_back(stability.mechanisms[k].sentence);
}

std::vector<std::string> FindingsInTables() {
  const CheckReport report = CheckModel();
  std::vector<std::string> findings{report.verdict};
  AddMotions(report.stability, findings);
  for (const Finding& finding : report.findings) {
    if (finding.kind != FindingKind::RowGap) findings.push_back(finding.text); // those are gaps of the open grids
  }
  return findings;
}

} // namespace

std::vector<std::string> FindingsOf(const StoredModel& model) {
  if (model.nodeCount > MostNodesCheckedAside) {
    return {"A truss of more than " + std::to_string(MostNodesCheckedAside) +
            " nodes is checked once it is imported, after Run Analysis"};
  }
  return WithModel({model.nodes, model.members}, FindingsInTables);
}

} // namespace strutwright
