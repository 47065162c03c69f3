#pragma once

#include "modModelFile.h"

#include <string>
#include <vector>

namespace strutwright {

/// The nodes from which on a model is checked only once it is open, because the check would take seconds.
inline constexpr int MostNodesCheckedAside = 5000;

/// What the check finds about a model that is not the open one, a sentence each: whether it holds, how it can move and
/// what is odd about it.  The open model and its results stay as they are.
std::vector<std::string> FindingsOf(const StoredModel& model);

} // namespace strutwright
