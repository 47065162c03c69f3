#include "ClassFixture.h"
#include "SeededDraws.h"
#include "modVariations.h"

#include <limits>
#include <set>

namespace strutwright {
namespace {

using VariationsTest = ClassTest;

// The standard gives the ten-thousandth number of its engine.
TEST_F(VariationsTest, DrawsTheSameNumbersOnEveryMachine) {
  SeededDraws draws(5489);
  std::uint64_t last = 0;
  for (int drawn = 0; drawn < 10000; ++drawn) last = draws.Below(std::numeric_limits<std::uint64_t>::max());
  EXPECT_EQ(last, 9981545732273789042U);
}

TEST_F(VariationsTest, ShufflesEachNumberOnce) {
  const std::vector<std::uint64_t> order = SeededDraws(3).Shuffled(50);
  EXPECT_EQ(std::set<std::uint64_t>(order.begin(), order.end()).size(), 50U);
  EXPECT_NE(order, SeededDraws(4).Shuffled(50));
}

TEST_F(VariationsTest, ReadsARangeWithItsStep) {
  const Variation span = ReadVariation("span:18..30:1");
  EXPECT_EQ(span.name, "span");
  EXPECT_EQ(span.Count(), 13U);
  EXPECT_EQ(span.ValueAt(0), 18);
  EXPECT_EQ(span.ValueAt(12), 30);
}

TEST_F(VariationsTest, TakesTheLastValueInSpiteOfRounding) {
  EXPECT_EQ(ReadVariation("height:0.1..0.7:0.1").Count(), 7U);
  EXPECT_EQ(ReadVariation("height:1..2:0.4").Count(), 3U);
  EXPECT_EQ(ReadVariation("load:5..5:1").Count(), 1U);
}

TEST_F(VariationsTest, ARangeWithoutAStepHasWholeOnes) {
  const Variation bays = ReadVariation("bays:6..9");
  EXPECT_EQ(bays.Count(), 4U);
  EXPECT_EQ(bays.ValueAt(3), 9);
}

TEST_F(VariationsTest, SaysWhatIsNoRange) {
  for (const char* text : {"span", "span:18", "18..30:1", "span:a..30:1", "span:18..30:", ""}) {
    EXPECT_EQ(FaultOfDoing([text] { ReadVariation(text); }),
              "\"" + std::string(text) + "\" is no range: write one such as span:18..30:1");
  }
  EXPECT_EQ(FaultOfDoing([] { ReadVariation("span:18..30:0"); }), "The step of \"span:18..30:0\" must be above zero");
  EXPECT_EQ(FaultOfDoing([] { ReadVariation("span:30..18:1"); }), "The range \"span:30..18:1\" ends before it begins");
  EXPECT_EQ(FaultOfDoing([] { ReadVariation("span:1..9:1e-6"); }),
            "The range \"span:1..9:1e-6\" has more than a million values: use larger steps");
}

TEST_F(VariationsTest, SaysWhatCanNotBeVaried) {
  const ClassSource model = SourceOf(Triangle());
  const auto fault = [](const ClassSource& source, const std::vector<Variation>& variations) {
    return FaultOfDoing([&] { CheckVariations(source, variations); });
  };
  EXPECT_EQ(fault(model, {ReadVariation("bays:6..9:1")}),
            "\"bays\" can't be varied in a model: choose span, height, load, area, e");
  EXPECT_EQ(fault(SourceOf("pratt"), {ReadVariation("colour:6..9:1")}),
            "\"colour\" can't be varied in a family: choose span, height, bays, e, chord-area, vertical-area, "
            "diagonal-area, load, area");
  EXPECT_EQ(fault(model, {ReadVariation("span:1..9:1"), ReadVariation("span:1..9:1")}),
            "The span is varied twice: give one range for it");
  EXPECT_EQ(fault(model, {ReadVariation("span:0..9:1")}), "The range of the span must begin above zero");
  EXPECT_EQ(fault(SourceOf({{{0, 0, 0, 0, 3}, {5, 0, 0, 0, 1}}, {{1, 2}}}), {ReadVariation("load:1..9:1")}),
            "The model has no load to vary: load a node first");
  EXPECT_EQ(fault(SourceOf({{{0, 0, 0, 0, 3}, {5, 0, 4, 0, 1}}, {{1, 2}}}), {ReadVariation("height:1..9:1")}),
            "The model has no height to vary: all its nodes stand beside each other");
  EXPECT_EQ(fault(model, {ReadVariation("area:1..9:1"), ReadVariation("e:1..9:1")}), "");
}

// The triangle's nodes: 1 (0, 0), 2 (4, 0), 3 (4, 3), loaded with (5, -10).
TEST_F(VariationsTest, StretchesSpanAndHeight) {
  const VariedModel varied =
      MakeVariedModel(SourceOf(Triangle()), {ReadVariation("span:2..9:1"), ReadVariation("height:1..9:1")}, {8, 6});
  EXPECT_EQ(varied.model->nodes(2, NodeX), 8);
  EXPECT_EQ(varied.model->nodes(3, NodeX), 8);
  EXPECT_EQ(varied.model->nodes(3, NodeY), 6);
  EXPECT_EQ(varied.model->nodes(1, NodeX), 0);
}

TEST_F(VariationsTest, GivesTheLargestLoadTheValueAndKeepsWholeStepsAndSigns) {
  const VariedModel varied = MakeVariedModel(SourceOf(Triangle()), {ReadVariation("load:10..40:4")}, {34});
  EXPECT_EQ(varied.model->nodes(3, NodeForceY), -34);
  EXPECT_EQ(varied.model->nodes(3, NodeForceX), 16); // 17 is a half of 34
  const VariedModel small = MakeVariedModel(SourceOf(Triangle()), {ReadVariation("load:4..40:4")}, {4});
  EXPECT_EQ(small.model->nodes(3, NodeForceX), 4);
}

TEST_F(VariationsTest, VariesANumberOfAFamily) {
  const ClassSource pratt = SourceOf("pratt");
  const std::vector<Variation> vary{ReadVariation("bays:1..9:1"), ReadVariation("area:100..900:100")};
  EXPECT_EQ(MakeVariedModel(pratt, vary, {6, 700}).model->nodeCount, 12);
  EXPECT_EQ(MakeVariedModel(pratt, vary, {6, 700}).model->members(1, MemberA), 700);
  EXPECT_EQ(MakeVariedModel(pratt, vary, {1, 700}).model, std::nullopt);
  EXPECT_THAT(MakeVariedModel(pratt, vary, {1, 700}).fault, testing::StartsWith("the bays must be"));
  EXPECT_EQ(VariedText(vary, {6, 700}), "bays 6, area 700 mm2");
}

} // namespace
} // namespace strutwright
