#include "modOtherModel.h"

#include "AnalysisState.h"

#include <cstdint>

namespace strutwright {

namespace {

/// What of the state belongs to one model.
struct ModelWithResults {
  ModelTables tables;
  std::int16_t nodeCount = 0;
  std::int16_t memberCount = 0;
  std::int16_t done = FlagFalse;
  AnalysisState analysis = {};
};

ModelWithResults Exchange(ModelWithResults next) {
  return {{std::exchange(NodeTable, std::move(next.tables.nodes)),
           std::exchange(MemberTable, std::move(next.tables.members))},
          std::exchange(NodeCount, next.nodeCount),
          std::exchange(MemberCount, next.memberCount),
          std::exchange(AnalysisDone, next.done),
          std::exchange(TheAnalysis, std::move(next.analysis))};
}

} // namespace

void WithModel(ModelTables model, const std::function<void()>& work) {
  const auto nodes = static_cast<std::int16_t>(model.nodes.Count());
  const auto members = static_cast<std::int16_t>(model.members.Count());
  ModelWithResults open = Exchange({std::move(model), nodes, members});
  try {
    work();
  } catch (...) {
    Exchange(std::move(open));
    throw;
  }
  Exchange(std::move(open));
}

} // namespace strutwright
