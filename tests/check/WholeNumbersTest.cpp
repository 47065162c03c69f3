#include "FindingsFixture.h"
#include "LargeModels.h"

#include <random>
#include <set>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

constexpr int Side = 9;
constexpr int Nodes = Side * Side;
constexpr std::size_t Members = 120;

/// A member between two points of whole coordinates.
struct Segment {
  int x1, y1, x2, y2;

  /// Above, on or below the line, as 1, 0 and -1.
  int SideOf(int x, int y) const {
    const int side = (x2 - x1) * (y - y1) - (y2 - y1) * (x - x1);
    return (side > 0 ? 1 : 0) - (side < 0 ? 1 : 0);
  }
  bool Inside(int x, int y) const { return SideOf(x, y) == 0 && (x - x1) * (x - x2) + (y - y1) * (y - y2) < 0; }
  bool Crosses(const Segment& other) const {
    return SideOf(other.x1, other.y1) * SideOf(other.x2, other.y2) < 0 &&
           other.SideOf(x1, y1) * other.SideOf(x2, y2) < 0;
  }
  bool Covers(const Segment& other) const {
    if (SideOf(other.x1, other.y1) != 0 || SideOf(other.x2, other.y2) != 0) return false;
    return Inside(other.x1, other.y1) || Inside(other.x2, other.y2) || other.Inside(x1, y1) || other.Inside(x2, y2);
  }
};

using Pairs = std::set<std::pair<int, int>>;

/// Members between any nodes of a square grid, no two between the same.
class WholeNumbersTest : public FindingsFixture {
 protected:
  void Make(std::uint32_t seed) {
    std::mt19937 random(seed);
    for (int n = 0; n < Nodes; ++n) {
      model.nodes.push_back({static_cast<float>(n % Side), static_cast<float>(n / Side), 0, 0, 3});
    }
    Pairs ends;
    while (ends.size() < Members) {
      const int i = Below(Nodes, random);
      const int j = Below(Nodes, random);
      if (i < j) ends.insert({i, j});
    }
    for (const auto& [i, j] : ends) {
      model.members.push_back({static_cast<float>(i + 1), static_cast<float>(j + 1)});
      segments.push_back({i % Side, i / Side, j % Side, j / Side});
    }
  }

  /// Pairs of members, by number, of which `is` holds.
  template <typename Is>
  Pairs PairsThat(const Is& is) const {
    Pairs pairs;
    for (std::size_t b = 0; b < segments.size(); ++b) {
      for (std::size_t a = 0; a < b; ++a) {
        if (is(segments[a], segments[b])) pairs.insert({static_cast<int>(a) + 1, static_cast<int>(b) + 1});
      }
    }
    return pairs;
  }

  Pairs NodesOnMembers() const {
    Pairs pairs;
    for (std::size_t m = 0; m < segments.size(); ++m) {
      for (int n = 0; n < Nodes; ++n) {
        if (segments[m].Inside(n % Side, n / Side)) pairs.insert({n + 1, static_cast<int>(m) + 1});
      }
    }
    return pairs;
  }

  /// Texts of as many pairs as are listed, and of how many more there are.
  template <typename Text>
  static std::vector<std::string> Listed(const Pairs& pairs, const Text& text) {
    std::vector<std::string> texts;
    for (const auto& [a, b] : pairs) texts.push_back(text(std::to_string(a), std::to_string(b)));
    if (texts.size() <= MaxFindingsOfAKind) return texts;
    const std::string more = std::to_string(texts.size() - MaxFindingsOfAKind);
    texts.resize(MaxFindingsOfAKind);
    texts.push_back("And " + more + " more of this kind");
    return texts;
  }

  ModelData model;
  std::vector<Segment> segments;
};

TEST_F(WholeNumbersTest, FindTheSameCrossings) {
  Make(1);
  const Pairs pairs = PairsThat([](const Segment& a, const Segment& b) { return a.Crosses(b); });
  EXPECT_GT(pairs.size(), 1000U);
  EXPECT_EQ(TextsOf(FindingKind::CrossingMembers, model),
            Listed(pairs,
                   [](const auto& a, const auto& b) { return "Members " + a + " and " + b + " cross without a node"; }))
      << "seed 1";
}

TEST_F(WholeNumbersTest, FindTheSameNodesOnMembers) {
  Make(2);
  const Pairs pairs = NodesOnMembers();
  EXPECT_GT(pairs.size(), 50U);
  EXPECT_EQ(TextsOf(FindingKind::NodeOnMember, model), Listed(pairs,
                                                              [](const auto& node, const auto& member) {
                                                                return "Node " + node + " lies on member " + member +
                                                                       " but is not joined to it";
                                                              }))
      << "seed 2";
}

TEST_F(WholeNumbersTest, FindTheSameMembersOnTopOfEachOther) {
  Make(3);
  const Pairs pairs = PairsThat([](const Segment& a, const Segment& b) { return a.Covers(b); });
  EXPECT_GT(pairs.size(), 10U);
  EXPECT_EQ(TextsOf(FindingKind::MemberOnMember, model),
            Listed(pairs, [](const auto& below,
                             const auto& above) { return "Member " + above + " lies on top of member " + below; }))
      << "seed 3";
}

} // namespace
} // namespace strutwright
