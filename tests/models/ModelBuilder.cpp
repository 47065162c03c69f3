#include "ModelBuilder.h"

#include "modColumns.h"
#include "modModelStore.h"

#include <cstddef>
#include <cstdint>

namespace strutwright {

void SetTables(const ModelData& model) {
  NodeCount = static_cast<std::int16_t>(model.nodes.size());
  MemberCount = static_cast<std::int16_t>(model.members.size());
  NodeTable.Recreate(NodeCount);
  MemberTable.Recreate(MemberCount);
  for (int n = 1; n <= NodeCount; ++n) {
    const NodeData& node = model.nodes[static_cast<std::size_t>(n - 1)];
    NodeTable(n, NodeX) = node.x;
    NodeTable(n, NodeY) = node.y;
    NodeTable(n, NodeForceX) = node.forceX;
    NodeTable(n, NodeForceY) = node.forceY;
    NodeTable(n, NodeSupport) = node.support;
  }
  for (int m = 1; m <= MemberCount; ++m) {
    const MemberData& member = model.members[static_cast<std::size_t>(m - 1)];
    MemberTable(m, MemberNodeI) = member.i;
    MemberTable(m, MemberNodeJ) = member.j;
    MemberTable(m, MemberE) = member.E;
    MemberTable(m, MemberA) = member.A;
    MemberTable(m, MemberPS) = member.PS;
  }
}

void SetModel(const ModelData& model) {
  SetTables(model);
  WriteHeadings(GrJoints, JointColumns);
  WriteHeadings(GrMembers, MemberColumns);
  CopyModelToGrids();
}

ModelData PrattTruss(int nodes) {
  constexpr float PanelLength = 3;
  constexpr float Depth = 4;
  const int panels = nodes / 2 - 1;
  ModelData model;
  for (int panel = 0; panel <= panels; ++panel) {
    const float x = PanelLength * static_cast<float>(panel);
    model.nodes.push_back({x, 0, 0, -10, 0});
    model.nodes.push_back({x, Depth, 0, 0, 0});
  }
  model.nodes.front().support = 3;
  model.nodes[model.nodes.size() - 2].support = 1;
  const auto lower = [](int panel) { return static_cast<float>(2 * panel + 1); };
  const auto upper = [](int panel) { return static_cast<float>(2 * panel + 2); };
  for (int panel = 0; panel <= panels; ++panel) {
    model.members.push_back({lower(panel), upper(panel)});
    if (panel == panels) break;
    model.members.push_back({lower(panel), lower(panel + 1)});
    model.members.push_back({upper(panel), upper(panel + 1)});
    const bool leftHalf = 2 * panel < panels;
    if (leftHalf) model.members.push_back({upper(panel), lower(panel + 1)});
    if (!leftHalf) model.members.push_back({lower(panel), upper(panel + 1)});
  }
  return model;
}

ModelData Triangle() { return {{{0, 0, 0, 0, 3}, {4, 0, 0, 0, 1}, {4, 3, 5, -10, 0}}, {{1, 2}, {2, 3}, {3, 1}}}; }

ModelData Square() {
  return {{{0, 0, 0, 0, 3}, {4, 0, 0, 0, 1}, {4, 3, 5, 0, 0}, {0, 3, 0, 0, 0}}, {{1, 2}, {2, 3}, {3, 4}, {4, 1}}};
}

void ResetModel() { TheModel = ModelState{}; }

} // namespace strutwright
