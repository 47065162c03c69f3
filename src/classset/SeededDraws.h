#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

namespace strutwright {

/// Numbers drawn from a seed.  The same seed gives the same numbers on every machine: the standard fixes the engine,
/// but not how its distributions take numbers from it, so these are not used.
class SeededDraws {
 public:
  explicit SeededDraws(std::uint64_t seed) : Engine(seed) {}

  /// A number from 0 to count - 1, each as likely as another.  count: above 0.
  std::uint64_t Below(std::uint64_t count);

  /// The numbers 0 to count - 1 in an order that is drawn.
  std::vector<std::uint64_t> Shuffled(std::size_t count);

 private:
  std::mt19937_64 Engine;
};

} // namespace strutwright
