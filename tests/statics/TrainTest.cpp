#include "LargeModels.h"
#include "StaticsFixture.h"
#include "modTrain.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Train Read(const std::string& text) {
  const TrainReading reading = ReadTrain(text);
  EXPECT_EQ(reading.fault, "") << text;
  return reading.train;
}

std::string FaultOfTrain(const std::string& text) {
  const TrainReading reading = ReadTrain(text);
  EXPECT_THAT(reading.train, IsEmpty()) << text;
  return reading.fault;
}

InfluenceLine LineThrough(const std::vector<double>& x, const std::vector<double>& values) {
  InfluenceLine line;
  for (std::size_t k = 0; k < x.size(); ++k) line.nodes.push_back(static_cast<int>(k) + 1);
  line.x = x;
  line.values = values;
  return line;
}

TEST(TrainTextTest, IsForcesAtDistances) {
  EXPECT_THAT(Read("50@0,100@3.5"), ElementsAre(Axle{50, 0}, Axle{100, 3.5}));
  EXPECT_THAT(Read(" 50 @ 0 , +1e+2@.1"), ElementsAre(Axle{50, 0}, Axle{100, 0.1}));
  EXPECT_THAT(Read("7@0"), ElementsAre(Axle{7, 0}));
}

TEST(TrainTextTest, TakesAxlesInAnyOrderFromTheFirstOn) {
  EXPECT_THAT(Read("3@9,1@2,2@2"), ElementsAre(Axle{1, 0}, Axle{2, 0}, Axle{3, 7}));
}

TEST(TrainTextTest, NeedsLoads) {
  const std::string none = "The train has no loads: write the force and distance of each axle, such as 50@0,100@3.5";
  EXPECT_EQ(FaultOfTrain(""), none);
  EXPECT_EQ(FaultOfTrain("  "), none);
  const std::string cure = " has no load: give it a force above 0 kN, which acts downward";
  EXPECT_EQ(FaultOfTrain("0@0"), "The axle \"0@0\"" + cure);
  EXPECT_EQ(FaultOfTrain("50@0,-5@2"), "The axle \"-5@2\"" + cure);
}

TEST(TrainTextTest, NeedsDistancesFromZeroOn) {
  EXPECT_EQ(FaultOfTrain("50@0,100@-3.5"),
            "The axle \"100@-3.5\" has a negative distance: measure from the first axle to the rear, from 0 m on");
}

TEST(TrainTextTest, NeedsNumbers) {
  for (const std::string axle : {"50", "@", "50@", "@3", "x@3", "50@y", "50@3@4", "1e99@0", "nan@0", "5 0@1"}) {
    EXPECT_EQ(FaultOfTrain(axle), "\"" + axle +
                                      "\" is no axle: write its force in kN and its distance in m from the first, "
                                      "such as 100@3.5");
  }
  EXPECT_THAT(FaultOfTrain("50@0,"), testing::StartsWith("\"\" is no axle"));
}

TEST(TrainTextTest, MayBeTheKeyOfATeachingTrain) {
  EXPECT_THAT(Read("tandem"), ElementsAre(Axle{300, 0}, Axle{300, 1.2}));
  for (const TeachingTrain& known : TeachingTrains()) {
    EXPECT_EQ(Read(known.key), Read(known.axles)) << known.key;
    EXPECT_NE(known.name, "");
  }
  EXPECT_EQ(TeachingTrains().size(), 4U);
}

TEST(TrainTest, IsInterpolatedBetweenNodes) {
  const InfluenceLine line = LineThrough({0, 4, 10}, {0, 2, -1});
  const Train single{{10, 0}};
  EXPECT_DOUBLE_EQ(ValueUnder(single, line, Heading::Right, 1), 5);
  EXPECT_DOUBLE_EQ(ValueUnder(single, line, Heading::Right, 4), 20);
  EXPECT_DOUBLE_EQ(ValueUnder(single, line, Heading::Left, 7), 5);
  EXPECT_DOUBLE_EQ(ValueUnder(single, line, Heading::Left, 10), -10);
}

TEST(TrainTest, CountsNothingOffThePath) {
  const InfluenceLine line = LineThrough({2, 4}, {1, 3});
  const Train train{{10, 0}, {100, 1}};
  EXPECT_DOUBLE_EQ(ValueUnder(train, line, Heading::Right, 1.9), 0);
  EXPECT_DOUBLE_EQ(ValueUnder(train, line, Heading::Right, 2), 10);
  EXPECT_DOUBLE_EQ(ValueUnder(train, line, Heading::Right, 3), 120); // 10 at 3, 100 at 2
  EXPECT_DOUBLE_EQ(ValueUnder(train, line, Heading::Right, 4.5), 250);
  EXPECT_DOUBLE_EQ(ValueUnder(train, line, Heading::Right, 5.1), 0);
  EXPECT_DOUBLE_EQ(ValueUnder(train, line, Heading::Left, 3), 320); // 10 at 3, 100 at 4
}

// The line of a moment at the middle of 8 m.  The heavier axle on the peak, the other 2 m aside.
TEST(TrainTest, FindsTheDecisivePosition) {
  const InfluenceLine line = LineThrough({0, 4, 8}, {0, 2, 0});
  const Train train{{30, 0}, {60, 2}};
  const TrainEnvelope right = EnvelopeOf(train, line, Heading::Right);
  EXPECT_DOUBLE_EQ(right.maximum.value, 60 * 2 + 30 * 1);
  EXPECT_DOUBLE_EQ(right.maximum.position, 6);
  EXPECT_EQ(right.maximum.heading, Heading::Right);
  EXPECT_EQ(right.minimum.value, 0);
  const TrainEnvelope left = EnvelopeOf(train, line, Heading::Left);
  EXPECT_DOUBLE_EQ(left.maximum.value, 150);
  EXPECT_DOUBLE_EQ(left.maximum.position, 2);
}

TEST(TrainTest, GoesBothWays) {
  // A triangle that falls slowly to the right: the light axle should stand there, ahead.
  const InfluenceLine line = LineThrough({0, 1, 10}, {0, 1, 0});
  const TrainEnvelope both = EnvelopeOf({{30, 0}, {60, 3}}, line);
  EXPECT_EQ(both.maximum.heading, Heading::Right);
  EXPECT_DOUBLE_EQ(both.maximum.position, 4);
  EXPECT_DOUBLE_EQ(both.maximum.value, 80);
  const TrainEnvelope mirrored = EnvelopeOf({{30, 0}, {60, 3}}, LineThrough({0, 9, 10}, {0, 1, 0}));
  EXPECT_EQ(mirrored.maximum.heading, Heading::Left);
  EXPECT_DOUBLE_EQ(mirrored.maximum.position, 6);
}

TEST(TrainTest, OfEqualValuesGoesRightAndStandsFirst) {
  const TrainEnvelope envelope = EnvelopeOf({{10, 0}}, LineThrough({0, 1, 2, 3, 4}, {0, 1, 0, 1, 0}));
  EXPECT_EQ(envelope.maximum.heading, Heading::Right);
  EXPECT_EQ(envelope.maximum.position, 1);
  EXPECT_EQ(envelope.minimum.value, 0);
}

TEST(TrainTest, PassesAPathThatWasNamedBackwards) {
  const InfluenceLine there = LineThrough({0, 1, 10}, {0, 1, -2});
  const InfluenceLine back = LineThrough({10, 1, 0}, {-2, 1, 0});
  const Train train{{30, 0}, {60, 3}};
  for (const Heading heading : {Heading::Right, Heading::Left}) {
    EXPECT_EQ(EnvelopeOf(train, back, heading).maximum.value, EnvelopeOf(train, there, heading).maximum.value);
    EXPECT_EQ(EnvelopeOf(train, back, heading).minimum.position, EnvelopeOf(train, there, heading).minimum.position);
    EXPECT_EQ(ValueUnder(train, back, heading, 5.5), ValueUnder(train, there, heading, 5.5));
  }
}

// Going right, the last axle alone presses before the end while the first has gone over it: the value jumps there.
TEST(TrainTest, IsExactBesideAJump) {
  const InfluenceLine line = LineThrough({0, 4}, {1, -1});
  const TrainEnvelope envelope = EnvelopeOf({{100, 0}, {10, 4}}, line, Heading::Right);
  EXPECT_DOUBLE_EQ(envelope.maximum.value, 100); // the first axle has just come on, the other is far behind
  EXPECT_DOUBLE_EQ(envelope.maximum.position, 0);
  EXPECT_DOUBLE_EQ(envelope.minimum.value, -100); // just before the second comes on
  EXPECT_DOUBLE_EQ(envelope.minimum.position, 4);
}

TEST(TrainTest, MayPassASingleNode) {
  const TrainEnvelope envelope = EnvelopeOf({{10, 0}, {20, 1}}, LineThrough({3}, {-0.5}));
  EXPECT_DOUBLE_EQ(envelope.minimum.value, -10);
  EXPECT_DOUBLE_EQ(envelope.minimum.position, 4);
  EXPECT_EQ(envelope.maximum.value, 0);
}

constexpr double TrialStep = 0.005; ///< between two positions that are tried, m

/// Extremes at positions so far apart.
TrainEnvelope ByTrial(const Train& train, const InfluenceLine& line, Heading heading) {
  const double length = train.back().distance;
  const int steps = static_cast<int>((line.x.back() - line.x.front() + 2 * length) / TrialStep) + 2;
  TrainEnvelope envelope;
  for (int step = 0; step <= steps; ++step) {
    const double position = line.x.front() - length + step * TrialStep + 0.0003;
    const double value = ValueUnder(train, line, heading, position);
    if (value < envelope.minimum.value) envelope.minimum = {heading, position, value};
    if (value > envelope.maximum.value) envelope.maximum = {heading, position, value};
  }
  return envelope;
}

struct Case {
  InfluenceLine line;
  Train train;
  double steepest = 0; ///< change of the value with the position, per m
};

Case RandomCase(std::mt19937& random) {
  Case each;
  double x = Below(100, random) / 10.0 - 5;
  const int nodes = 2 + Below(8, random);
  std::vector<double> places;
  std::vector<double> values;
  for (int k = 0; k < nodes; ++k) {
    places.push_back(x);
    values.push_back((Below(4001, random) - 2000) / 1000.0);
    x += 0.5 + Below(400, random) / 100.0;
  }
  each.line = LineThrough(places, values);
  double load = 0;
  double distance = 0;
  for (int k = 1 + Below(5, random); k > 0; --k) {
    each.train.push_back({1.0 + Below(300, random), distance});
    load += each.train.back().force;
    distance += Below(400, random) / 100.0;
  }
  each.steepest = load * 4 / 0.5;
  return each;
}

TEST(TrainTest, IsWhatTrialsFind) {
  std::mt19937 random(5);
  for (int number = 0; number < 60; ++number) {
    const Case each = RandomCase(random);
    for (const Heading heading : {Heading::Right, Heading::Left}) {
      const TrainEnvelope exact = EnvelopeOf(each.train, each.line, heading);
      const TrainEnvelope trial = ByTrial(each.train, each.line, heading);
      const double step = each.steepest * TrialStep;
      EXPECT_LE(trial.maximum.value, exact.maximum.value + 1e-9) << number;
      EXPECT_GE(trial.maximum.value, exact.maximum.value - step) << number;
      EXPECT_GE(trial.minimum.value, exact.minimum.value - 1e-9) << number;
      EXPECT_LE(trial.minimum.value, exact.minimum.value + step) << number;
    }
  }
}

// Where the ends of a line are zero nothing jumps, and a train put where it should stand gives what was said.
TEST(TrainTest, HasItsExtremeWhereItSays) {
  std::mt19937 random(6);
  for (int number = 0; number < 60; ++number) {
    Case each = RandomCase(random);
    each.line.values.front() = each.line.values.back() = 0;
    const TrainEnvelope envelope = EnvelopeOf(each.train, each.line);
    for (const TrainPosition& extreme : {envelope.minimum, envelope.maximum}) {
      EXPECT_NEAR(ValueUnder(each.train, each.line, extreme.heading, extreme.position), extreme.value, 1e-7) << number;
    }
  }
}

using TrainOnTrussTest = StaticsFixture;

// An axle between two nodes presses on them as on the ends of a stringer.
TEST_F(TrainOnTrussTest, IsTheSolutionOfItsNodalLoads) {
  SetTables(BridgeOfFourBays());
  const InfluenceLines lines;
  const Quantity diagonal{QuantityKind::MemberForce, 12, false};
  const InfluenceLine line = lines.LineOf(diagonal, {1, 2, 3, 4, 5});
  // 50 kN at x = 7, a third of it on node 4; 100 kN at x = 4, a third of it on node 3.
  std::vector<double> P(17, 0);
  P[AlongY(4)] = -50.0 / 3;
  P[AlongY(3)] = -100.0 / 3 - 100.0 / 3;
  P[AlongY(2)] = -200.0 / 3;
  EXPECT_NEAR(ValueUnder(Read("50@0,100@3"), line, Heading::Right, 7), lines.Solver().Solve(P).forces[12], 1e-9);
}

} // namespace
} // namespace strutwright
