#pragma once

#include "WorkerProcesses.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace strutwright {

/// The answers in the order in which they came; "-" for one that is lost.
inline std::vector<std::string> Answers(std::size_t count, int processes,
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

} // namespace strutwright
