#include "modSlips.h"

#include <cmath>
#include <random>

#include <gmock/gmock.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::Optional;

AnswerJudgement Judged(double answer, double right, AnswerQuantity quantity = AnswerQuantity::MemberForce) {
  return JudgeAnswer(answer, right, {}, GeneralSlips(right, quantity));
}

TEST(SlipsTest, TakesAnAnswerWithinOnePercent) {
  for (const double answer : {99.0, 100.0, 101.0}) EXPECT_EQ(Judged(answer, 100).verdict, AnswerVerdict::Right);
  for (const double answer : {98.9, 101.1}) EXPECT_EQ(Judged(answer, 100).verdict, AnswerVerdict::Wrong) << answer;
  EXPECT_EQ(Judged(100, 100).sentence, "Right.");
}

TEST(SlipsTest, TakesOneUnitInTheLastDigitOfASmallValue) {
  EXPECT_EQ(JudgeAnswer(0.02, 0.01, {0.01, 0.01}, {}).verdict, AnswerVerdict::Right);
  EXPECT_EQ(JudgeAnswer(0.021, 0.01, {0.01, 0.01}, {}).verdict, AnswerVerdict::Wrong);
  EXPECT_EQ(JudgeAnswer(0.01, 0, {0.01, 0.01}, {}).verdict, AnswerVerdict::Right);
}

TEST(SlipsTest, NamesTheSlipThatGivesTheAnswer) {
  EXPECT_EQ(Judged(-100, 100).sentence, "Likely slip: T and C exchanged.");
  EXPECT_EQ(Judged(100000, 100).sentence, "Likely slip: N for kN.");
  EXPECT_THAT(Judged(-100, 100, AnswerQuantity::Force).slips, ElementsAre("the sign"));
  EXPECT_THAT(Judged(0.0025, 2.5, AnswerQuantity::Length).slips, ElementsAre("m for mm"));
  EXPECT_THAT(Judged(-0.0025, 2.5, AnswerQuantity::Length).slips, ElementsAre("m for mm, and the sign"));
  EXPECT_THAT(Judged(-0.6, 0.6, AnswerQuantity::Number).slips, ElementsAre("the sign"));
  EXPECT_EQ(Judged(600, 0.6, AnswerQuantity::Number).verdict, AnswerVerdict::Wrong) << "a number has no unit";
}

TEST(SlipsTest, NamesTheNearestAndAnotherThatIsTheSame) {
  EXPECT_THAT(JudgeAnswer(50, 10, {}, {{"far", 50.4}, {"near", 50.1}}).slips, ElementsAre("near"));
  EXPECT_THAT(JudgeAnswer(50, 10, {}, {{"a", 50}, {"b", 50}, {"c", 50}}).slips, ElementsAre("a", "b"));
  EXPECT_EQ(JudgeAnswer(50, 10, {}, {{"a", 50}, {"b", 50}}).sentence, "Likely slip: a, or b.");
}

TEST(SlipsTest, NeverCallsARightAnswerASlip) {
  EXPECT_EQ(JudgeAnswer(10, 10, {}, {{"a", 10}}).verdict, AnswerVerdict::Right);
  EXPECT_EQ(JudgeAnswer(0, 0, {}, GeneralSlips(0, AnswerQuantity::Force)).verdict, AnswerVerdict::Right);
  EXPECT_EQ(JudgeAnswer(10.15, 10, {}, {{"a", 10.05}}).verdict, AnswerVerdict::Wrong)
      << "what a slip gives may be right itself";
}

TEST(SlipsTest, SaysWhatElseIsWrong) {
  EXPECT_EQ(Judged(103, 100).sentence, "Close, but off by more than 1 %: keep more digits on the way.");
  EXPECT_EQ(Judged(105.1, 100).sentence, "No common slip gives this number. Work it out again.");
}

TEST(SlipsTest, FindsEverySeededSlipRoundedToThreeDigits) {
  std::mt19937 random(20261122);
  std::uniform_real_distribution<double> size(0.05, 5000);
  for (int round = 0; round < 500; ++round) {
    const double right = (random() % 2 == 0 ? 1 : -1) * size(random);
    for (const AnswerQuantity quantity : {AnswerQuantity::MemberForce, AnswerQuantity::Length}) {
      for (const Slip& slip : GeneralSlips(right, quantity)) {
        const double digit = std::pow(10, std::floor(std::log10(std::abs(slip.value))) - 2);
        const double typed = std::round(slip.value / digit) * digit;
        EXPECT_THAT(JudgeAnswer(typed, right, {}, GeneralSlips(right, quantity)).slips, ElementsAre(slip.name));
      }
    }
  }
}

TEST(SlipsTest, ReadsNumbersAsTheyAreTyped) {
  EXPECT_THAT(AnswerNumber(" -12.5 "), Optional(-12.5));
  EXPECT_THAT(AnswerNumber("12,5"), Optional(12.5));
  EXPECT_THAT(AnswerNumber("\u2212"
                           "3"),
              Optional(-3.0));
  EXPECT_THAT(AnswerNumber("1e3"), Optional(1000.0));
  for (const char* text : {"", " ", "abc", "1.2.3", "1,2,3", "12 kN", "nan", "inf", "1e99", "--1"}) {
    EXPECT_EQ(AnswerNumber(text), std::nullopt) << text;
  }
}

} // namespace
} // namespace strutwright
