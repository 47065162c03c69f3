#pragma once

#include <cstddef>

namespace strutwright {

/// Bytes that are allocated with new, now and at most since the last ForgetHighestHeapUse().
std::size_t HeapInUse();
std::size_t HighestHeapUse();
void ForgetHighestHeapUse();

} // namespace strutwright
