// Work that processes share.

#include "WorkerProcesses.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <unistd.h>

namespace strutwright {
namespace {

using testing::ElementsAre;

/// The answers in the order in which they came; "-" for one that is lost.
std::vector<std::string> Answers(std::size_t count, int processes,
                                 const std::function<std::string(std::size_t)>& work) {
  std::vector<std::string> answers;
  ShareWork({count, work,
             [&answers](std::size_t piece, const std::optional<std::string>& answer) {
               EXPECT_EQ(piece, answers.size());
               answers.push_back(answer.value_or("-"));
             }},
            processes);
  return answers;
}

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

TEST(ShareWorkTest, LosesOnlyThePieceThatEndsItsProcess) {
  const auto work = [](std::size_t piece) -> std::string {
    if (piece == 1 || piece == 3) ::_exit(7);
    if (piece == 4) throw std::runtime_error("lost");
    return std::to_string(piece);
  };
  EXPECT_THAT(Answers(7, 2, work), ElementsAre("0", "-", "2", "-", "-", "5", "6"));
  EXPECT_THAT(Answers(7, 1, work), ElementsAre("0", "-", "2", "-", "-", "5", "6"));
}

TEST(ShareWorkTest, WorksInProcessesOfItsOwn) {
  int touched = 0;
  Answers(4, 2, [&touched](std::size_t) {
    ++touched;
    return std::string();
  });
  EXPECT_EQ(touched, 0);
}

} // namespace
} // namespace strutwright
