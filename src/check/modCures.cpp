#include "modCures.h"

#include "Motions.h"
#include "modMechanisms.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

namespace strutwright {

namespace {

constexpr std::size_t MaxMembers = 3;     // among the cures, where there are supports too
constexpr std::size_t MaxNeighbours = 12; // of one node that are paired with each other
constexpr std::size_t MaxMovers = 10;     // nodes that are paired with every node
constexpr double WellStrained = 0.05;     // of the largest strain met so far
constexpr double MinSupported = 0.1;      // of the largest movement

/// A member that could be added.
struct Candidate {
  int i = 0;
  int j = 0;
  double length = 0; ///< m
  double strain = 0; ///< elongation in the motion by length
};

std::vector<std::vector<int>> NeighboursOf(const CheckedTruss& truss) {
  std::vector<std::vector<int>> neighbours(At(truss.nodeCount) + 1);
  for (const CheckedMember& member : truss.members) {
    neighbours[At(member.i)].push_back(member.j);
    neighbours[At(member.j)].push_back(member.i);
  }
  return neighbours;
}

/// The nodes that move most, the largest movement first.
std::vector<int> GreatestMovers(const CheckedTruss& truss, const Motion& motion) {
  std::vector<std::pair<double, int>> nodes;
  for (int n = 1; n <= truss.nodeCount; ++n) {
    // In steps, so that rounding does not decide which of two equal movements comes first.
    if (Movement(motion, n) >= MinSupported) nodes.emplace_back(-std::round(Movement(motion, n) / 1e-6), n);
  }
  std::sort(nodes.begin(), nodes.end());
  std::vector<int> movers;
  for (std::size_t k = 0; k < std::min(nodes.size(), MaxMovers); ++k) movers.push_back(nodes[k].second);
  return movers;
}

/// Pairs of nodes that a member could join: those two members apart, and of the nodes that move most any.
std::vector<std::pair<int, int>> Pairs(const CheckedTruss& truss, const Motion& motion) {
  std::vector<std::pair<int, int>> pairs;
  for (const std::vector<int>& neighbours : NeighboursOf(truss)) {
    const std::size_t count = std::min(neighbours.size(), MaxNeighbours);
    for (std::size_t a = 0; a < count; ++a) {
      for (std::size_t b = 0; b < a; ++b) pairs.push_back(std::minmax({neighbours[a], neighbours[b]}));
    }
  }
  for (const int mover : GreatestMovers(truss, motion)) {
    for (int n = 1; n <= truss.nodeCount; ++n) pairs.push_back(std::minmax({mover, n}));
  }
  return pairs;
}

/// The pairs of nodes that members join already, in order.
std::vector<std::pair<int, int>> JoinedPairs(const CheckedTruss& truss) {
  std::vector<std::pair<int, int>> pairs;
  for (const CheckedMember& member : truss.members) pairs.push_back(std::minmax({member.i, member.j}));
  std::sort(pairs.begin(), pairs.end());
  return pairs;
}

Candidate CandidateOf(const CheckedTruss& truss, const Motion& motion, const std::pair<int, int>& ends) {
  const auto [i, j] = ends;
  const double dx = truss.x[At(j)] - truss.x[At(i)];
  const double dy = truss.y[At(j)] - truss.y[At(i)];
  const double length = std::hypot(dx, dy);
  if (!(length > 1e-6 * truss.size)) return {};
  const double elongation = Elongation(CheckedMember{0, i, j, dx / length, dy / length}, motion);
  if (std::abs(elongation) < MinElongation) return {};
  return {i, j, length, std::abs(elongation) / length};
}

/// Whether a member from i to j would pass over a third node.
bool PassesOverANode(const CheckedTruss& truss, const Candidate& candidate) {
  const double dx = (truss.x[At(candidate.j)] - truss.x[At(candidate.i)]) / candidate.length;
  const double dy = (truss.y[At(candidate.j)] - truss.y[At(candidate.i)]) / candidate.length;
  for (int n = 1; n <= truss.nodeCount; ++n) {
    if (n == candidate.i || n == candidate.j) continue;
    const double px = truss.x[At(n)] - truss.x[At(candidate.i)];
    const double py = truss.y[At(n)] - truss.y[At(candidate.i)];
    const double along = px * dx + py * dy;
    const double off = std::abs(px * dy - py * dx);
    if (along > 0 && along < candidate.length && off < 1e-6 * candidate.length) return true;
  }
  return false;
}

/// Those that a motion strains well, the most strained first: these stand where the truss comes apart.
std::vector<Candidate> StrainedCandidates(const CheckedTruss& truss, const Motion& motion) {
  std::vector<Candidate> candidates;
  const auto joined = JoinedPairs(truss);
  double most = 0;
  for (const auto& ends : Pairs(truss, motion)) {
    const Candidate candidate = CandidateOf(truss, motion, ends);
    if (candidate.strain < WellStrained * most || candidate.strain <= 0) continue;
    if (std::binary_search(joined.begin(), joined.end(), ends)) continue;
    most = std::max(most, candidate.strain);
    candidates.push_back(candidate);
  }
  // In steps, so that rounding does not decide which of two equal strains comes first.
  const auto rank = [most](const Candidate& each) {
    return std::tuple(-std::round(1e6 * each.strain / most), each.i, each.j);
  };
  const auto same = [](const Candidate& a, const Candidate& b) { return a.i == b.i && a.j == b.j; };
  std::sort(candidates.begin(), candidates.end(),
            [&rank](const Candidate& a, const Candidate& b) { return rank(a) < rank(b); });
  candidates.erase(std::unique(candidates.begin(), candidates.end(), same), candidates.end());
  return candidates;
}

std::vector<Cure> MemberCures(const CheckedTruss& truss, const Motion& motion, std::size_t most) {
  std::vector<Cure> cures;
  for (const Candidate& candidate : StrainedCandidates(truss, motion)) {
    if (cures.size() == most) break;
    if (PassesOverANode(truss, candidate)) continue;
    cures.push_back(
        {candidate.i, candidate.j, 0,
         "Add a member from node " + std::to_string(candidate.i) + " to node " + std::to_string(candidate.j)});
  }
  return cures;
}

// Codes: 1 holds y, 2 holds x, 3 both.
Cure SupportCure(const CheckedTruss& truss, const Motion& motion, int node) {
  const bool alongX = std::abs(motion[AlongX(node)]) >= std::abs(motion[AlongY(node)]) * (1 - 1e-9);
  const bool other = truss.fixed[alongX ? AlongY(node) : AlongX(node)] != 0;
  const int code = other ? 3 : (alongX ? 2 : 1);
  return {node, 0, code,
          "Support node " + std::to_string(node) + (alongX ? " in x" : " in y") + " (support code " +
              std::to_string(code) + ")"};
}

} // namespace

std::vector<Cure> FindCures(const CheckedTruss& truss, const Motion& motion) {
  const std::vector<int> movers = GreatestMovers(truss, motion);
  const std::size_t members = MaxCures - std::min(movers.size(), MaxCures - MaxMembers);
  std::vector<Cure> cures = MemberCures(truss, motion, members);
  for (const int node : movers) {
    if (cures.size() == MaxCures) break;
    cures.push_back(SupportCure(truss, motion, node));
  }
  return cures;
}

} // namespace strutwright
