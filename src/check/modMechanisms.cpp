#include "modMechanisms.h"

#include "modCures.h"

#include "Motions.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numeric>

namespace strutwright {

namespace {

constexpr double AtRest = 1e-9;      // of the largest movement
constexpr double AlmostEqual = 1e-9; // so that rounding does not decide which of two equal movements comes first

double Largest(const Motion& motion) {
  double largest = 0;
  for (const double part : motion) largest = std::max(largest, std::abs(part));
  return largest;
}

std::size_t PlaceOfLargest(const Motion& motion) {
  const double enough = Largest(motion) * (1 - AlmostEqual);
  return static_cast<std::size_t>(
      std::find_if(motion.begin(), motion.end(), [enough](double part) { return std::abs(part) >= enough; }) -
      motion.begin());
}

void Scale(Motion& motion, double factor) {
  for (double& part : motion) part *= factor;
}

/// Takes as much of `other` away as makes the motion zero at `place`, where `other` has 1.
void Clear(Motion& motion, std::size_t place, const Motion& other) {
  const double share = motion[place];
  if (share == 0) return;
  for (std::size_t d = 0; d < motion.size(); ++d) motion[d] -= share * other[d];
}

/// The part of the first node that moves which says most about its direction.
double FirstMovement(const Motion& motion) {
  for (std::size_t x = 1; x + 1 < motion.size(); x += 2) {
    const double main = std::abs(motion[x]) >= std::abs(motion[x + 1]) * (1 - AlmostEqual) ? motion[x] : motion[x + 1];
    if (std::abs(main) > AtRest) return main;
  }
  return 1;
}

void Normalise(Motion& motion) {
  Scale(motion, 1 / Largest(motion));
  for (double& part : motion) {
    if (std::abs(part) < 1e-12) part = 0;
  }
  if (FirstMovement(motion) < 0) Scale(motion, -1);
}

std::size_t FirstMoving(const Motion& motion) {
  return static_cast<std::size_t>(
      std::find_if(motion.begin(), motion.end(), [](double part) { return std::abs(part) > AtRest; }) - motion.begin());
}

std::vector<int> MovingNodes(const Motion& motion) {
  std::vector<int> nodes;
  for (int n = 1; AlongY(n) < motion.size(); ++n) {
    if (Movement(motion, n) > AtRest) nodes.push_back(n);
  }
  return nodes;
}

void SortByMovement(const Motion& motion, std::vector<int>& nodes) {
  std::stable_sort(nodes.begin(), nodes.end(), [&motion](int a, int b) {
    // On a scale of steps, because an order must not depend on who is compared with whom.
    return std::round(Movement(motion, a) / 1e-6) > std::round(Movement(motion, b) / 1e-6);
  });
}

/// Nodes that move alike, as the words have it.
struct MovingGroup {
  std::string direction;
  std::vector<int> nodes;
};

std::vector<MovingGroup> GroupsOf(const Motion& motion, std::vector<int> nodes) {
  std::sort(nodes.begin(), nodes.end());
  std::vector<MovingGroup> groups;
  for (const int node : nodes) {
    const std::string direction = DirectionWords(motion[AlongX(node)], motion[AlongY(node)]);
    auto group = std::find_if(groups.begin(), groups.end(),
                              [&direction](const MovingGroup& each) { return each.direction == direction; });
    if (group == groups.end()) group = groups.insert(groups.end(), {direction, {}});
    group->nodes.push_back(node);
  }
  return groups;
}

std::string Subject(const MovingGroup& group, bool first) {
  const bool one = group.nodes.size() == 1;
  std::string text = first ? "Node" : "node";
  text += (one ? " " : "s ") + ListedNumbers(group.nodes);
  if (first) return text + " can move " + group.direction;
  return text + (one ? " moves " : " move ") + group.direction;
}

std::string OtherNodes(std::size_t count) {
  if (count == 0) return "";
  return count == 1 ? ", and 1 more node moves, too" : ", and " + std::to_string(count) + " more nodes move, too";
}

} // namespace

std::string ListedNumbers(const std::vector<int>& numbers) {
  std::string text;
  for (std::size_t k = 0; k < numbers.size(); ++k) {
    if (k > 0) text += k + 1 == numbers.size() ? " and " : ", ";
    text += std::to_string(numbers[k]);
  }
  return text;
}

void Localise(std::vector<Motion>& motions) {
  for (std::size_t k = 0; k < motions.size(); ++k) {
    Motion& motion = motions[k];
    const std::size_t place = PlaceOfLargest(motion);
    Scale(motion, 1 / motion[place]);
    for (std::size_t other = 0; other < motions.size(); ++other) {
      if (other != k) Clear(motions[other], place, motion);
    }
  }
  for (Motion& motion : motions) Normalise(motion);
  std::stable_sort(motions.begin(), motions.end(),
                   [](const Motion& a, const Motion& b) { return FirstMoving(a) < FirstMoving(b); });
}

std::string DirectionWords(double dx, double dy) {
  std::string across = dx > 0 ? "to the right" : "to the left";
  std::string along = dy > 0 ? "up" : "down";
  // Slopes of one in ten are common, and must not be called one thing here and another there.
  constexpr double slight = 0.09;
  if (std::abs(dy) < slight * std::abs(dx)) return across;
  if (std::abs(dx) < slight * std::abs(dy)) return along;
  return along + " and " + across;
}

std::string MotionSentence(const Motion& motion) {
  constexpr std::size_t mostNamed = 4;
  std::vector<int> nodes = MovingNodes(motion);
  SortByMovement(motion, nodes);
  const std::size_t others = nodes.size() > mostNamed ? nodes.size() - mostNamed : 0;
  nodes.resize(nodes.size() - others);
  std::string sentence;
  for (const MovingGroup& group : GroupsOf(motion, nodes)) {
    if (!sentence.empty()) sentence += sentence.find(" while ") == std::string::npos ? " while " : " and ";
    sentence += Subject(group, sentence.empty());
  }
  return sentence + OtherNodes(others) + "; no member or support resists this";
}

StabilityReport JudgeStability(const CheckedTruss& truss) {
  Motions motions = FindMotions(truss, MaxMechanisms);
  StabilityReport report{motions.mechanisms, motions.redundants, {}};
  Localise(motions.basis);
  for (Motion& motion : motions.basis) {
    Mechanism mechanism{{}, MovingNodes(motion), MotionSentence(motion), FindCures(truss, motion)};
    mechanism.motion = std::move(motion);
    report.mechanisms.push_back(std::move(mechanism));
  }
  return report;
}

} // namespace strutwright
