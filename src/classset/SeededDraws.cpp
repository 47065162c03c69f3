#include "SeededDraws.h"

#include "Ensure.h"

#include <limits>
#include <numeric>
#include <utility>

namespace strutwright {

std::uint64_t SeededDraws::Below(std::uint64_t count) {
  Ensure(count > 0, "something is drawn from");
  // What is beyond the last whole multiple of the count would make the first numbers likelier.
  const std::uint64_t most = std::numeric_limits<std::uint64_t>::max();
  const std::uint64_t beyond = most - most % count;
  std::uint64_t drawn = Engine();
  while (drawn >= beyond) drawn = Engine();
  return drawn % count;
}

std::vector<std::uint64_t> SeededDraws::Shuffled(std::size_t count) {
  std::vector<std::uint64_t> numbers(count);
  std::iota(numbers.begin(), numbers.end(), 0);
  for (std::size_t left = count; left > 1; --left) std::swap(numbers[left - 1], numbers[Below(left)]);
  return numbers;
}

} // namespace strutwright
