#include "modModelCheck.h"

#include "modCheckAnswer.h"
#include "modModelStore.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace strutwright {

namespace {

constexpr std::size_t MotionsTold = 3;

/// Puts the open model back when it goes.
class ModelAside {
 public:
  ModelAside() : Kept(TheModel) {}
  ~ModelAside() { TheModel = std::move(Kept); }
  ModelAside(const ModelAside&) = delete;
  ModelAside& operator=(const ModelAside&) = delete;

 private:
  ModelState Kept;
};

void AddMotions(const StabilityReport& stability, std::vector<std::string>& findings) {
  const std::size_t told = std::min(stability.mechanisms.size(), MotionsTold);
  for (std::size_t k = 0; k < told; ++k) findings.push_back(stability.mechanisms[k].sentence);
}

std::vector<std::string> FindingsInTables() {
  const CheckReport report = CheckModel();
  std::vector<std::string> findings{report.verdict};
  AddMotions(report.stability, findings);
  for (const Finding& finding : report.findings) findings.push_back(finding.text);
  return findings;
}

} // namespace

std::vector<std::string> FindingsOf(const StoredModel& model) {
  if (model.nodeCount > MostNodesCheckedAside) {
    return {"A truss of more than " + std::to_string(MostNodesCheckedAside) +
            " nodes is checked once it is imported, after Run Analysis"};
  }
  const ModelAside aside;
  TakeModel(model);
  CopyModelToGrids();
  return FindingsInTables();
}

} // namespace strutwright
