#include "modFindingList.h"

#include "modMechanisms.h"

#include <algorithm>
#include <iterator>

namespace strutwright {

std::string FirstNumbers(const std::vector<int>& numbers) {
  constexpr std::size_t mostNamed = 4;
  if (numbers.size() <= mostNamed) return ListedNumbers(numbers);
  std::string text;
  for (std::size_t k = 0; k < mostNamed; ++k) text += (k > 0 ? ", " : "") + std::to_string(numbers[k]);
  return text + " and " + std::to_string(numbers.size() - mostNamed) + " more";
}

void FindingList::LeaveOpen(FindingKind kind, std::string note) {
  Open[static_cast<std::size_t>(kind)] = true;
  Notes[static_cast<std::size_t>(kind)] = std::move(note);
}

std::vector<Finding> FindingList::RemarksOn(FindingKind kind) {
  const auto k = static_cast<std::size_t>(kind);
  std::vector<Finding> remarks;
  if (Counts[k] > MaxFindingsOfAKind) {
    const std::string more = std::to_string(Counts[k] - MaxFindingsOfAKind);
    remarks.push_back({kind, (Open[k] ? "And at least " : "And ") + more + " more of this kind", {}, {}});
  }
  if (!Notes[k].empty()) remarks.push_back({kind, Notes[k], {}, {}});
  return remarks;
}

std::vector<Finding> FindingList::Take() {
  for (std::size_t k = 0; k < Kinds; ++k) {
    const auto kind = static_cast<FindingKind>(k);
    std::vector<Finding> remarks = RemarksOn(kind);
    const auto last = std::find_if(Kept.rbegin(), Kept.rend(), [kind](const Finding& f) { return f.kind == kind; });
    Kept.insert(last == Kept.rend() ? Kept.end() : last.base(), std::make_move_iterator(remarks.begin()),
                std::make_move_iterator(remarks.end()));
  }
  return std::move(Kept);
}

void LowestPairs::Add(int first, int second) {
  ++Added;
  const Pair pair{first, second};
  if (Heap.size() == MaxFindingsOfAKind) {
    if (pair >= Heap.front()) return;
    std::pop_heap(Heap.begin(), Heap.end());
    Heap.pop_back();
  }
  Heap.push_back(pair);
  std::push_heap(Heap.begin(), Heap.end());
}

std::vector<LowestPairs::Pair> LowestPairs::Lowest() const {
  std::vector<Pair> sorted = Heap;
  std::sort(sorted.begin(), sorted.end());
  return sorted;
}

} // namespace strutwright
