#pragma once

#include "Kernel.h"

#include <vector>

namespace strutwright {

/// The kernels in the vector instructions of x86-64 that this processor has, the fastest first; none elsewhere.
/// Ask Kernels() for the list that always holds one.
std::vector<Kernel> VectorKernels();

} // namespace strutwright
