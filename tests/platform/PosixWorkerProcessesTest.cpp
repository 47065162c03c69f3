// Processes that end before their work is done.

#include "WorkAnswers.h"

#include <cstddef>
#include <stdexcept>
#include <string>

#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;

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
