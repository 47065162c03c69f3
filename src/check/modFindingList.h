#pragma once

#include "CheckReport.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace strutwright {

/// Most findings of one kind; what goes beyond is counted in one more.
inline constexpr std::size_t MaxFindingsOfAKind = 50;

/// "1 and 2", "1, 2, 3 and 4", "1, 2, 3, 4 and 7 more".
std::string FirstNumbers(const std::vector<int>& numbers);

/// Findings of which the first MaxFindingsOfAKind of each kind are kept and the others only counted.
class FindingList {
 public:
  /// Adds what `make` gives, or counts it without asking for it.
  template <typename Make>
  void Add(FindingKind kind, const Make& make) {
    if (++CountOf(kind) <= MaxFindingsOfAKind) Kept.push_back(make());
  }

  /// Counts findings without making them.
  void Count(FindingKind kind, std::size_t count) { CountOf(kind) += count; }

  /// Says that there may be more of a kind than were found.  A note follows the findings of the kind.
  void LeaveOpen(FindingKind kind, std::string note = "");

  /// The findings, behind the last of each kind how many more there are, and the notes.
  std::vector<Finding> Take();

 private:
  static constexpr std::size_t Kinds = static_cast<std::size_t>(FindingKind::UnusualLength) + 1;

  std::size_t& CountOf(FindingKind kind) { return Counts[static_cast<std::size_t>(kind)]; }
  std::vector<Finding> RemarksOn(FindingKind kind);

  std::vector<Finding> Kept;
  std::array<std::size_t, Kinds> Counts{};
  std::array<bool, Kinds> Open{};
  std::array<std::string, Kinds> Notes;
};

/// The lowest of many pairs, and how many there were.
class LowestPairs {
 public:
  using Pair = std::pair<int, int>;

  void Add(int first, int second);

  /// At most MaxFindingsOfAKind, in order.
  std::vector<Pair> Lowest() const;

  std::size_t Count() const { return Added; }

 private:
  std::vector<Pair> Heap;
  std::size_t Added = 0;
};

} // namespace strutwright
