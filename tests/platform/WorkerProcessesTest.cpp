// Work that processes share.

#include "WorkAnswers.h"

#include <cstddef>
#include <stdexcept>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;

TEST(ShareWorkTest, GivesTheAnswersInOrder) {
  const auto name = [](std::size_t piece) { return std::to_string(piece); };
  EXPECT_THAT(Answers(5, 1, name), ElementsAre("0", "1", "2", "3", "4"));
  EXPECT_THAT(Answers(5, 2, name), ElementsAre("0", "1", "2", "3", "4"));
  EXPECT_THAT(Answers(2, 9, name), ElementsAre("0", "1"));
  EXPECT_THAT(Answers(0, 3, name), ElementsAre());
}

TEST(ShareWorkTest, TakesAnswersOfAnySize) {
  const auto answers = Answers(3, 2, [](std::size_t piece) { return std::string(piece * 1000000, 'x'); });
  EXPECT_EQ(answers[0], "");
  EXPECT_EQ(answers[2].size(), 2000000U);
}

TEST(ShareWorkTest, LosesOnlyThePieceThatThrows) {
  const auto work = [](std::size_t piece) -> std::string {
    if (piece == 1) throw std::runtime_error("lost");
    return std::to_string(piece);
  };
  EXPECT_THAT(Answers(4, 2, work), ElementsAre("0", "-", "2", "3"));
}

TEST(ProcessNumberTest, IsOnesOwn) {
  EXPECT_GT(ProcessNumber(), 0);
  EXPECT_EQ(ProcessNumber(), ProcessNumber());
}

} // namespace
} // namespace strutwright
