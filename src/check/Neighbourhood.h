#pragma once

#include "CheckedTruss.h"

#include <cstdint>
#include <utility>
#include <vector>

namespace strutwright {

/// Nodes and members sorted into square cells, so that only what is near is compared with each other.
class Neighbourhood {
 public:
  explicit Neighbourhood(const CheckedTruss& truss);

  /// How far apart two points may be and still count as one, m: what 32-bit coordinates leave open, and a millionth
  /// of the truss.
  double Tolerance() const { return Margin; }

  /// Pairs that share a cell, each once, ascending: of two nodes; of a node and the index of a member in the truss;
  /// of two such indices.
  std::vector<std::pair<int, int>> NodePairs() const { return PairsOf(Nodes, Nodes, true); }
  std::vector<std::pair<int, int>> NodesByMembers() const { return PairsOf(Nodes, Members, false); }
  std::vector<std::pair<int, int>> MemberPairs() const { return PairsOf(Members, Members, true); }

 private:
  struct Entry {
    std::int64_t cell;
    int index;
    auto operator<=>(const Entry&) const = default;
  };
  using Entries = std::vector<Entry>;

  std::int64_t Across(double x) const;
  std::int64_t Along(double y) const;
  void AddNode(const CheckedTruss& truss, int node);
  void AddMember(const CheckedTruss& truss, int index);
  void AddCells(Entries& entries, std::int64_t column, double low, double high, int index) const;
  static std::vector<std::pair<int, int>> PairsOf(const Entries& first, const Entries& second, bool oneKind);

  double Margin = 0; ///< m
  double Edge = 1;   ///< of a cell, m
  double Left = 0;
  double Bottom = 0;
  Entries Nodes;
  Entries Members;
};

} // namespace strutwright
