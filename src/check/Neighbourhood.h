#pragma once

#include "CheckedTruss.h"

#include <cstdint>
#include <vector>

namespace strutwright {

/// Nodes and members sorted into square cells, so that only what is near is compared with each other.
class Neighbourhood {
 public:
  explicit Neighbourhood(const CheckedTruss& truss);

  /// How far apart two points may be and still count as one, m: what 32-bit coordinates leave open, and a millionth
  /// of the truss.
  double Tolerance() const { return Margin; }

  /// Whether two members come so close that they could touch, by the rectangles around them.
  bool MayTouch(int first, int second) const;

  /// Calls `visit` with each pair that shares a cell, smaller number first where both are of a kind: two nodes; a node
  /// and the index of a member in the truss; two such indices.  A pair may come more than once.
  template <typename Visit>
  void ForNodePairs(const Visit& visit) const {
    ForPairs(Nodes, Nodes, true, visit);
  }
  template <typename Visit>
  void ForNodesByMembers(const Visit& visit) const {
    ForPairs(Nodes, Members, false, visit);
  }
  template <typename Visit>
  void ForMemberPairs(const Visit& visit) const {
    ForPairs(Members, Members, true, visit);
  }

 private:
  struct Entry {
    std::int64_t cell;
    int index;
    bool operator==(const Entry&) const = default;
    bool operator<(const Entry& other) const { return cell != other.cell ? cell < other.cell : index < other.index; }
  };
  using Entries = std::vector<Entry>;
  struct Box {
    double left;
    double right;
    double bottom;
    double top;
  };

  /// So many pairs are enough to say that a model is a tangle.
  static constexpr int MostPairs = 5000000;

  template <typename Visit>
  static void ForPairs(const Entries& first, const Entries& second, bool oneKind, const Visit& visit) {
    int left = MostPairs;
    auto from = second.begin();
    for (auto entry = first.begin(); entry != first.end() && left > 0; ++entry) {
      while (from != second.end() && from->cell < entry->cell) ++from;
      auto other = oneKind ? entry + 1 : from;
      for (; other != second.end() && other->cell == entry->cell; ++other, --left) visit(entry->index, other->index);
    }
  }

  std::int64_t Across(double x) const;
  std::int64_t Along(double y) const;
  void AddNode(const CheckedTruss& truss, int node);
  void AddMember(const CheckedTruss& truss, int index);
  void AddCells(Entries& entries, std::int64_t column, double low, double high, int index) const;

  double Margin = 0; ///< m
  double Edge = 1;   ///< of a cell, m
  double Left = 0;
  double Bottom = 0;
  Entries Nodes;
  Entries Members;
  std::vector<Box> Boxes; ///< of the members, a margin larger
};

} // namespace strutwright
