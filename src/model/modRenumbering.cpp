#include "modRenumbering.h"

#include "ModelEvents.h"
#include "Platform.h"
#include "modModelEditing.h"
#include "modModelStore.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <numeric>
#include <string>
#include <tuple>

namespace strutwright {

namespace {

constexpr int NearNumbers = 64; // node numbers: what is nearer is fast anyway
constexpr int ManyTimes = 4;    // by which the largest difference must go down

/// For each old number, from 0 on, the new one.
std::vector<int> NewNumbers(const std::vector<int>& order) {
  std::vector<int> numbers(order.size() + 1);
  int number = 0;
  for (const int old : order) numbers[static_cast<std::size_t>(old)] = ++number;
  return numbers;
}

/// The rows of GrJoints in their new order, data columns only.
void ReorderRows(const std::vector<int>& order) {
  std::vector<std::vector<std::string>> rows;
  for (const int old : order) {
    auto& texts = rows.emplace_back();
    for (int column = 1; column < GrJoints.ColumnCount(); ++column) texts.push_back(GrJoints.Text(old, column));
  }
  int row = 0;
  for (const auto& texts : rows) {
    ++row;
    int column = 0;
    for (const std::string& text : texts) GrJoints.SetText(row, ++column, text);
  }
}

/// The largest difference between the numbers at the ends of a member, once every node n has the number numbers[n].
int LargestDifference(const std::vector<int>& numbers) {
  int largest = 0;
  for (int m = 1; m <= MemberCount; ++m) {
    const int i = RoundNodeNumber(MemberTable(m, MemberNodeI));
    const int j = RoundNodeNumber(MemberTable(m, MemberNodeJ));
    if (std::min(i, j) < 1 || std::max(i, j) > NodeCount) continue;
    largest = std::max(largest, std::abs(numbers[static_cast<std::size_t>(i)] - numbers[static_cast<std::size_t>(j)]));
  }
  return largest;
}

} // namespace

std::vector<int> NodesAlongSpan() {
  std::vector<int> order(static_cast<std::size_t>(NodeCount));
  std::iota(order.begin(), order.end(), 1);
  std::stable_sort(order.begin(), order.end(), [](int one, int other) {
    return std::tuple(NodeTable(one, NodeX), NodeTable(one, NodeY)) <
           std::tuple(NodeTable(other, NodeX), NodeTable(other, NodeY));
  });
  return order;
}

void RenumberNodesAlongSpan() {
  const std::vector<int> order = NodesAlongSpan();
  if (std::is_sorted(order.begin(), order.end())) {
    ShowMessage(MessageIcon::Information, "The nodes are numbered along the span already");
    return;
  }
  ReorderRows(order);
  RenumberMemberNodes(NewNumbers(order));
  ModelEvents().NodesRenumbered(); // a half-built matrix is of the old numbers
  AfterModelEdit();
}

bool RenumberingWouldHelp() {
  std::vector<int> present(static_cast<std::size_t>(NodeCount) + 1);
  std::iota(present.begin(), present.end(), 0);
  const int difference = LargestDifference(present);
  return difference > NearNumbers && difference > ManyTimes * LargestDifference(NewNumbers(NodesAlongSpan()));
}

} // namespace strutwright
