// Any text as a list of rows: an ascending list of numbers, or one box and the list of before.

#include "EditingState.h"
#include "Ensure.h"
#include "QuietPlatform.h"
#include "modRangeList.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

using namespace strutwright;

namespace {

/// Longer texts have nothing new to say, but room for millions of entries.
constexpr std::size_t LongestText = 300;

void CheckList() {
  Ensure(rangeList.size() > 1, "a list that was read has an entry");
  Ensure(std::is_sorted(rangeList.begin() + 1, rangeList.end()), "the entries ascend");
  Ensure(rangeList[1] >= 0, "no number has a minus");
  Ensure(maxOfList(rangeList) == rangeList.back(), "the largest entry is the last");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > LongestText) return 0;
  const QuietPlatform platform;
  const std::vector<std::int16_t> before{0, 3};
  rangeList = before;
  parseRangeList(std::string(data, data + size));
  Ensure(platform.BoxCount() == (rangeError ? 1U : 0U), "a failure shows one box");
  if (rangeError) Ensure(rangeList == before, "a failure leaves the list of before");
  if (!rangeError) CheckList();
  return 0;
}
