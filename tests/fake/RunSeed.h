#pragma once

#include <gtest/gtest.h>

namespace strutwright {

/// The seed of the tests that try something random: that of their order, which each run prints.
/// GTEST_RANDOM_SEED in the environment fixes it, so that a failing run can be seen again.
inline unsigned RunSeed() { return static_cast<unsigned>(testing::UnitTest::GetInstance()->random_seed()); }

} // namespace strutwright
