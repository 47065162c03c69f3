#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace strutwright {

// Lists of node or member numbers as a user types them: "1,2,4-7,59".  In a list of entries position 0 is not used.

/// Reads a text into rangeList, ascending.  Numbers may be of any numeric form and are rounded, ties to even.
/// The end of each closed range stands twice in the result, on purpose: it counts as a range's end and as a number.
/// Of a chain such as 1-3-5 only the last range counts; a range whose start is greater than its end is its end alone.
/// A failure is shown to the user and sets rangeError, which is cleared otherwise; rangeList is then as it was.
void parseRangeList(const std::string& text);

/// Sorts entries 1..count ascending, in a time that grows no faster than the count.
void sortList(std::vector<std::int16_t>& list, std::size_t count);

/// The largest of the entries; there must be one.
std::int16_t maxOfList(const std::vector<std::int16_t>& list);

} // namespace strutwright
