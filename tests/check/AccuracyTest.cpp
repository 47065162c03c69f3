#include "CheckFixture.h"
#include "LargeModels.h"
#include "RefinedSolution.h"
#include "TrussFamilies.h"
#include "modAccuracy.h"
#include "modMember.h"

#include <cmath>
#include <limits>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::DoubleNear;

using LongRow = std::vector<long double>;

/// A dense elimination in long double, by code of its own: displacements, forces and reactions of the model.
class LongSolution {
 public:
  explicit LongSolution(const ModelData& model) : Model(model), u(2 * model.nodes.size(), 0), reactions(u) {
    Assemble();
    Eliminate();
    Evaluate();
  }

  LongRow Displacements() const { return u; }
  LongRow Forces() const { return forces; }
  LongRow Reactions() const { return reactions; }
  bool Fixed(std::size_t d) const {
    const float code = Model.nodes[d / 2].support;
    return code != 0 && code != (d % 2 == 0 ? 1.0F : 2.0F);
  }

 private:
  struct Bar {
    std::size_t freedom[4];
    long double b[4];
    long double stiffness;
    long double prestress;
  };

  Bar BarOf(const MemberData& member) const {
    const auto i = static_cast<std::size_t>(member.i) - 1;
    const auto j = static_cast<std::size_t>(member.j) - 1;
    const long double dx = static_cast<long double>(Model.nodes[j].x) - static_cast<long double>(Model.nodes[i].x);
    const long double dy = static_cast<long double>(Model.nodes[j].y) - static_cast<long double>(Model.nodes[i].y);
    const long double L = std::sqrt(dx * dx + dy * dy);
    return {{2 * i, 2 * i + 1, 2 * j, 2 * j + 1},
            {-dx / L, -dy / L, dx / L, dy / L},
            static_cast<long double>(member.E) * static_cast<long double>(member.A) / (1000 * L),
            member.PS};
  }

  void Assemble() {
    K.assign(u.size(), LongRow(u.size() + 1, 0));
    for (const MemberData& member : Model.members) {
      const Bar bar = BarOf(member);
      for (std::size_t p = 0; p < 4; ++p) {
        for (std::size_t q = 0; q < 4; ++q) K[bar.freedom[p]][bar.freedom[q]] += bar.stiffness * bar.b[p] * bar.b[q];
        K[bar.freedom[p]].back() -= bar.prestress * bar.b[p];
      }
    }
    for (std::size_t d = 0; d < u.size(); ++d) {
      K[d].back() += static_cast<long double>(d % 2 == 0 ? Model.nodes[d / 2].forceX : Model.nodes[d / 2].forceY);
      if (!Fixed(d)) continue;
      K[d].assign(u.size() + 1, 0);
      for (LongRow& row : K) row[d] = 0;
      K[d][d] = 1;
    }
  }

  void Eliminate() {
    for (std::size_t p = 0; p < u.size(); ++p) {
      for (std::size_t r = p + 1; r < u.size(); ++r) {
        if (K[r][p] == 0) continue;
        const long double factor = K[r][p] / K[p][p];
        for (std::size_t c = p; c <= u.size(); ++c) K[r][c] -= factor * K[p][c];
      }
    }
    for (std::size_t r = u.size(); r-- > 0;) {
      u[r] = K[r].back();
      for (std::size_t c = r + 1; c < u.size(); ++c) u[r] -= K[r][c] * u[c];
      u[r] /= K[r][r];
    }
  }

  void Evaluate() {
    for (std::size_t d = 0; d < u.size(); ++d) {
      if (Fixed(d))
        reactions[d] = -static_cast<long double>(d % 2 == 0 ? Model.nodes[d / 2].forceX : Model.nodes[d / 2].forceY);
    }
    for (const MemberData& member : Model.members) {
      const Bar bar = BarOf(member);
      long double force = bar.prestress;
      for (std::size_t p = 0; p < 4; ++p) force += bar.stiffness * bar.b[p] * u[bar.freedom[p]];
      forces.push_back(force);
      for (std::size_t p = 0; p < 4; ++p) {
        if (Fixed(bar.freedom[p])) reactions[bar.freedom[p]] += force * bar.b[p];
      }
    }
  }

  ModelData Model;
  std::vector<LongRow> K;
  LongRow u;
  LongRow forces;
  LongRow reactions;
};

/// The largest difference between what the program has and the exact values, relative to the largest of these.
class Difference {
 public:
  void Add(float result, long double exact) {
    Largest = std::max(Largest, std::abs(exact));
    Worst = std::max(Worst, std::abs(static_cast<long double>(result) - exact));
  }
  double Relative() const { return static_cast<double>(Worst / Largest); }

 private:
  long double Largest = 0;
  long double Worst = 0;
};

int TrueDigits(const LongSolution& exact) {
  Difference displacement;
  Difference force;
  Difference reaction;
  for (std::size_t d = 0; d < exact.Displacements().size(); ++d) {
    displacement.Add(Displacements[d + 1], exact.Displacements()[d]);
    if (exact.Fixed(d)) reaction.Add(Reactions[d + 1], exact.Reactions()[d]);
  }
  for (std::size_t m = 0; m < exact.Forces().size(); ++m)
    force.Add(MemberForce(static_cast<int>(m) + 1), exact.Forces()[m]);
  return static_cast<int>(
      std::floor(-std::log10(std::max({displacement.Relative(), force.Relative(), reaction.Relative()}))));
}

class AccuracyTest : public CheckFixture {
 protected:
  static AccuracyReport Accuracy() {
    const CheckedTruss truss = ReadTruss();
    return CompareResults(truss, Refine(truss));
  }
  static BalanceReport Balance() { return BalanceResults(ReadTruss()); }
};

TEST_F(AccuracyTest, IsNeverClaimedMoreThanADigitBeyondTheTruth) {
  constexpr std::uint32_t seed = 20261122;
  std::mt19937 random(seed);
  int compared = 0;
  for (int number = 0; compared < 200; ++number) {
    ModelData model = MakeTruss(static_cast<TrussFamily>(number % FamilyCount), 6 + Below(50, random), random).model;
    // Every third one is drawn out, so that good and bad answers come.
    for (NodeData& node : model.nodes) node.x *= number % 3 == 0 ? static_cast<float>(1 + Below(60, random)) : 1;
    for (MemberData& member : model.members) member.PS = Below(4, random) == 0 ? 25.0F : 0;
    if (!Analyse(model)) {
      messages.shown.clear();
      continue;
    }
    ++compared;
    const int truth = TrueDigits(LongSolution(model));
    EXPECT_LE(Accuracy().digits, std::max(0, truth) + 1) << "seed " << seed << ", truss " << number;
    EXPECT_GE(Accuracy().digits, std::min(MaxDigits, truth) - 1) << "seed " << seed << ", truss " << number;
  }
}

TEST_F(AccuracyTest, RefinesToTheLongDoubleSolution) {
  ModelData model = PrattTruss(40);
  for (NodeData& node : model.nodes) node.x *= 20;
  const RefinedSolution refined = Refine(TrussOf(model));
  const LongSolution exact(model);
  for (std::size_t d = 0; d < exact.Displacements().size(); ++d) {
    const auto u = static_cast<double>(exact.Displacements()[d]);
    EXPECT_THAT(refined.displacements[d + 1], DoubleNear(u, 1e-11 * std::abs(u) + 1e-9));
  }
  EXPECT_LT(refined.uncertainty, 1e-12);
}

TEST_F(AccuracyTest, OfAClassroomTrussIsFiveDigitsOrMore) {
  ASSERT_TRUE(Analyse(PrattTruss(12)));
  EXPECT_GE(Accuracy().digits, 5);
}

TEST_F(AccuracyTest, FindsTheNodeAndTheMemberThatAreWrong) {
  ASSERT_TRUE(Analyse(Triangle()));
  Displacements[YFreedom(3)] += 0.1F;
  MemberTable(2, MemberFieldForce) += 1.0F;
  const AccuracyReport report = Accuracy();
  EXPECT_EQ(report.worstNode, 3);
  EXPECT_EQ(report.worstMember, 2);
  EXPECT_NEAR(report.forceDifference, 1.0 / 13.75, 1e-4);
  EXPECT_EQ(report.digits, 0);
}

TEST_F(AccuracyTest, OfAReactionCountsToo) {
  ASSERT_TRUE(Analyse(Triangle()));
  Reactions[YFreedom(2)] += 0.1375F; // a hundredth of the largest, 13.75
  EXPECT_NEAR(Accuracy().reactionDifference, 0.01, 1e-5);
  Reactions[XFreedom(3)] = 1000; // means nothing at a free node
  EXPECT_NEAR(Accuracy().reactionDifference, 0.01, 1e-5);
}

TEST_F(AccuracyTest, IsNothingWhereAResultIsNoNumber) {
  ASSERT_TRUE(Analyse(Triangle()));
  Displacements[XFreedom(2)] = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(Accuracy().digits, 0);
  EXPECT_EQ(Accuracy().worstNode, 2);
}

TEST_F(AccuracyTest, IsFullWithoutLoads) {
  ModelData model = Triangle();
  model.nodes[2].forceX = model.nodes[2].forceY = 0;
  ASSERT_TRUE(Analyse(model));
  EXPECT_EQ(Accuracy().digits, MaxDigits);
}

TEST_F(AccuracyTest, MeasuresForcesThatVanishByThePrestress) {
  // A heated bar that can slide: no force but for rounding.
  const ModelData bar{{{0, 0, 0, 0, 3}, {1, 0, 0, 0, 1}}, {{1, 2, 206.01F, 400, -9.88848F}}};
  ASSERT_TRUE(Analyse(bar));
  EXPECT_GE(Accuracy().digits, 5);
}

/// A small truss of decimal coordinates, so far from the origin.
ModelData FarTruss(double x, double y) {
  const auto at = [x, y](double dx, double dy, float force, float support) {
    return NodeData{static_cast<float>(x + dx), static_cast<float>(y + dy), 0, force, support};
  };
  return {{at(0, 0, 0, 3), at(2.3, 0.1, -10, 0), at(4.6, 0, 0, 1), at(1.1, 1.7, -10, 0), at(3.4, 1.8, -10, 0)},
          {{1, 2}, {2, 3}, {1, 4}, {4, 2}, {2, 5}, {5, 3}, {4, 5}}};
}

TEST_F(AccuracyTest, IsNoBetterThanTheCoordinates) {
  ASSERT_TRUE(Analyse(FarTruss(0, 0)));
  const int near = Accuracy().digits;
  ASSERT_TRUE(Analyse(FarTruss(1000, 500)));
  const int hundreds = Accuracy().digits;
  ASSERT_TRUE(Analyse(FarTruss(350000, 80000)));
  const int map = Accuracy().digits;
  ASSERT_TRUE(Analyse(FarTruss(3500000, 5800000)));
  EXPECT_GE(near, 5);
  EXPECT_EQ(hundreds, 4); // the forces are wrong by 1.7e-5 there,
  EXPECT_LE(map, 2);      // by 0.006 there,
  EXPECT_LE(Accuracy().digits, 1);
}

TEST_F(AccuracyTest, IsNotLimitedByCoordinatesThatFloatsHoldExactly) {
  ModelData far = Triangle();
  for (NodeData& node : far.nodes) node.x += 1000;
  ASSERT_TRUE(Analyse(far));
  EXPECT_GE(Accuracy().digits, 5);
}

TEST_F(AccuracyTest, IncludesPrestressBetweenFixedNodes) {
  const ModelData bar{{{0, 0, 0, 0, 3}, {3, 4, 0, 0, 3}}, {{1, 2, 200, 1000, 10}}};
  const RefinedSolution refined = Refine(TrussOf(bar));
  EXPECT_EQ(refined.forces[1], 10);
  EXPECT_NEAR(refined.reactions[XFreedom(1)], -6, 1e-12);
  EXPECT_NEAR(refined.reactions[YFreedom(2)], 8, 1e-12);
  EXPECT_EQ(refined.uncertainty, 0);
}

TEST_F(AccuracyTest, SolvesForManyLoadsWithTheSameFactors) {
  ModelData model = PrattTruss(12);
  const FactoredTruss factored(TrussOf(model));
  for (const std::size_t loaded : {2U, 5U, 7U}) {
    for (NodeData& node : model.nodes) node.forceX = node.forceY = 0;
    model.nodes[loaded].forceY = -20;
    const CheckedTruss truss = TrussOf(model);
    const RefinedSolution anew = Refine(truss);
    const RefinedSolution again = factored.Solve(truss.load);
    EXPECT_EQ(again.displacements, anew.displacements);
    EXPECT_EQ(again.forces, anew.forces);
    EXPECT_EQ(again.reactions, anew.reactions);
    EXPECT_EQ(again.uncertainty, anew.uncertainty);
  }
}

TEST_F(AccuracyTest, SaysThatAMechanismHasNoFactors) {
  const CheckedTruss truss = TrussOf(Square());
  EXPECT_GE(Refine(truss).uncertainty, 1);
}

TEST_F(AccuracyTest, SendsLoadsAtSupportsToTheReactions) {
  ModelData model = Triangle();
  model.nodes[0].forceX = 7;
  const RefinedSolution refined = Refine(TrussOf(model));
  EXPECT_NEAR(refined.reactions[XFreedom(1)], -12, 1e-9);
}

TEST_F(AccuracyTest, IsLostWhereTheAnalysisPushesWithAMemberThatCanHoldNoPrestress) {
  ModelData model = Triangle();
  model.nodes.push_back({0, 3, 0, 0, 3});
  model.members.push_back({4, 3, 0, 1000, 5});
  ASSERT_TRUE(Analyse(model));
  EXPECT_EQ(Accuracy().digits, 0);
}

TEST_F(AccuracyTest, IsLostWhereTheAnalysisIgnoresAMember) {
  ModelData model = Triangle();
  model.nodes.push_back({0, 3, 0, 0, 3});
  model.members.push_back({4, 3, -200, 1000});
  ASSERT_TRUE(Analyse(model)); // with the third member's matrix in the fourth's place
  messages.shown.clear();
  EXPECT_EQ(Accuracy().digits, 0);
}

TEST(DigitsTest, AreWholeOnes) {
  EXPECT_EQ(DigitsOf(0), 7);
  EXPECT_EQ(DigitsOf(1e-9), 7);
  EXPECT_EQ(DigitsOf(2e-6), 5);
  EXPECT_EQ(DigitsOf(0.02), 1);
  EXPECT_EQ(DigitsOf(0.5), 0);
  EXPECT_EQ(DigitsOf(1), 0);
  EXPECT_EQ(DigitsOf(std::numeric_limits<double>::infinity()), 0);
  EXPECT_EQ(DigitsOf(std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST_F(AccuracyTest, BalancesTheTriangle) {
  ASSERT_TRUE(Analyse(Triangle()));
  const BalanceReport balance = Balance();
  EXPECT_LT(balance.nodeResidual, 1e-5);
  EXPECT_LT(balance.wholeResidual, 1e-5);
  EXPECT_LT(balance.momentResidual, 1e-4);
  // 1/2 (5 kN 0.35 mm + 10 kN 0.20625 mm)
  EXPECT_NEAR(balance.work, 1.90625, 1e-5);
  EXPECT_NEAR(balance.storedEnergy, balance.work, 1e-5);
}

TEST_F(AccuracyTest, ReportsWhereTheBalanceIsBroken) {
  ASSERT_TRUE(Analyse(Triangle()));
  MemberTable(1, MemberFieldForce) += 2;
  EXPECT_NEAR(Balance().nodeResidual, 2, 1e-5);
  EXPECT_THAT(Balance().nodeOfResidual, testing::AnyOf(1, 2));
  MemberTable(1, MemberFieldForce) -= 2;
  Reactions[YFreedom(2)] += 3;
  EXPECT_EQ(Balance().nodeOfResidual, 2);
  EXPECT_NEAR(Balance().wholeResidual, 3, 1e-5);
  EXPECT_NEAR(Balance().momentResidual, 6, 1e-4); // 3 kN 2 m right of the middle
}

TEST_F(AccuracyTest, BalancesTheEnergyOfPrestress) {
  const ModelData bar{{{0, 0, 0, 0, 3}, {1, 0, 0, 0, 1}}, {{1, 2, 200, 100, 10}}};
  ASSERT_TRUE(Analyse(bar));
  // The bar shortens by 10 kN / 20 kN/mm = 0.5 mm.
  EXPECT_NEAR(Balance().work, 2.5, 1e-6);
  EXPECT_NEAR(Balance().storedEnergy, 2.5, 1e-6);
}

} // namespace
} // namespace strutwright
