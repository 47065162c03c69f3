#include "ModelRows.h"

#include "ImportError.h"
#include "modAnalysis.h"

#include <algorithm>
#include <cstdint>

namespace strutwright {

namespace {

constexpr int MinCapacity = 20;

void CheckRoom(std::size_t count, int most, const char* rowName, int line) {
  if (count < static_cast<std::size_t>(most)) return;
  throw ImportError(line, "a model has at most " + std::to_string(most) + " " + rowName + "s");
}

void CopyRows(const std::vector<ModelRows::Row>& rows, FieldTable& target) {
  target.Recreate(static_cast<int>(rows.size()));
  for (int row = 1; row <= target.Count(); ++row) {
    for (int field = 1; field < static_cast<int>(ModelRows::Row{}.size()); ++field) {
      target(row, field) = rows[static_cast<std::size_t>(row - 1)][static_cast<std::size_t>(field)];
    }
  }
}

} // namespace

void CheckRoomForNode(std::size_t count, int line) { CheckRoom(count, MaxAnalysedNodes, "node", line); }

void CheckRoomForMember(std::size_t count, int line) { CheckRoom(count, MaxMembers, "member", line); }

StoredModel ModelOf(const ModelRows& rows) {
  StoredModel model;
  CopyRows(rows.nodes, model.nodes);
  CopyRows(rows.members, model.members);
  model.nodeCount = static_cast<std::int16_t>(model.nodes.Count());
  model.memberCount = static_cast<std::int16_t>(model.members.Count());
  const int needed = std::max({MinCapacity, model.nodes.Count(), model.members.Count()});
  model.capacity = static_cast<std::int16_t>(rows.capacity >= 0 ? rows.capacity : needed);
  return model;
}

std::string Quoted(const std::string& text) {
  constexpr std::size_t most = 60;
  constexpr std::size_t kept = 25;
  if (text.size() <= most) return "\"" + text + "\"";
  return "\"" + text.substr(0, kept) + "..." + text.substr(text.size() - kept) + "\"";
}

} // namespace strutwright
