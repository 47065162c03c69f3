#include "LargeModels.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <utility>

namespace strutwright {

namespace {

constexpr float Bay = 3;
constexpr float GirderDepth = 2.5F;

MemberData Bar(int i, int j) { return {static_cast<float>(i + 1), static_cast<float>(j + 1)}; }

} // namespace

ModelData WarrenGirder(int nodes, int baysToSupport) {
  ModelData model;
  for (int n = 0; n < nodes; ++n) {
    const bool lower = n % 2 == 0;
    model.nodes.push_back({Bay / 2 * static_cast<float>(n), lower ? 0 : GirderDepth, 0, lower ? -10.0F : 0.0F});
    if (lower && n / 2 % baysToSupport == 0) model.nodes.back().support = 1;
    if (n >= 1) model.members.push_back(Bar(n - 1, n));
    if (n >= 2) model.members.push_back(Bar(n - 2, n));
  }
  model.nodes.front().support = 3;
  model.nodes[static_cast<std::size_t>((nodes - 1) / 2 * 2)].support = 1;
  return model;
}

ModelData TriangulatedPanel(int nodes) {
  const int high = static_cast<int>(std::lround(std::sqrt(nodes / 2.0)));
  ModelData model;
  for (int n = 0; n < nodes; ++n) {
    const int x = n / high;
    const int y = n % high;
    model.nodes.push_back({Bay * static_cast<float>(x), Bay * static_cast<float>(y)});
    if (y == 0) model.nodes.back().support = 3;
    if (y == high - 1) model.nodes.back().forceY = -10;
    if (y > 0) model.members.push_back(Bar(n - 1, n));
    if (x > 0) model.members.push_back(Bar(n - high, n));
    if (x > 0 && y > 0) model.members.push_back(Bar(n - high - 1, n));
  }
  return model;
}

ModelData TiedStrips(int members) {
  constexpr int Steps = 6; // of a strip from hinge to hinge, the odd ones up
  constexpr int Middle = Steps / 2;
  const int strips = std::max(2, members / (2 * Steps));
  ModelData model;
  for (int n = 0; n <= Steps * strips; ++n) {
    const bool lower = n % 2 == 0;
    const float height = lower ? 0 : n % Steps == Middle ? 2 * GirderDepth : GirderDepth;
    model.nodes.push_back({Bay / 2 * static_cast<float>(n), height, 0, lower ? -10.0F : 0.0F});
    if (n >= 1) model.members.push_back(Bar(n - 1, n));
    if (n >= 2 && n % Steps != 1) model.members.push_back(Bar(n - 2, n));
  }
  for (int n = Middle + Steps; n < Steps * strips; n += Steps) model.members.push_back(Bar(n - Steps, n));
  model.nodes.front().support = 3;
  model.nodes.back().support = 1;
  return model;
}

ModelData Renumbered(const ModelData& model, const std::vector<int>& order) {
  ModelData renumbered{{}, model.members};
  std::vector<float> numberOf(order.size());
  for (const int old : order) {
    renumbered.nodes.push_back(model.nodes[static_cast<std::size_t>(old)]);
    numberOf[static_cast<std::size_t>(old)] = static_cast<float>(renumbered.nodes.size());
  }
  for (MemberData& member : renumbered.members) {
    member.i = numberOf[static_cast<std::size_t>(member.i) - 1];
    member.j = numberOf[static_cast<std::size_t>(member.j) - 1];
  }
  return renumbered;
}

std::vector<int> ChordsOrder(int nodes) {
  std::vector<int> order;
  for (int n = 0; n < nodes; n += 2) order.push_back(n);
  for (int n = 1; n < nodes; n += 2) order.push_back(n);
  return order;
}

std::vector<int> RandomOrder(int nodes, std::mt19937& random) {
  std::vector<int> order(static_cast<std::size_t>(nodes));
  std::iota(order.begin(), order.end(), 0);
  for (int left = nodes; left > 1; --left) {
    std::swap(order[static_cast<std::size_t>(left - 1)], order[static_cast<std::size_t>(Below(left, random))]);
  }
  return order;
}

int Below(int limit, std::mt19937& random) { return static_cast<int>(random() % static_cast<std::uint32_t>(limit)); }

} // namespace strutwright
