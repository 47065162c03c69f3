#pragma once

#include <string>
#include <vector>

namespace strutwright {

/// A path of nodes that a load takes, in its order.
struct PathReading {
  std::vector<int> nodes; ///< empty where there is a fault
  std::string fault;      ///< one sentence without a full stop that says what to do; empty where there is none
};

/// Reads a path such as "1-10" or "1,3,5-9" of the model in the tables.  The order is kept, a range may fall, and each
/// node may be named once.  Along the path x must rise or fall all the way.  Blanks count nothing.
PathReading ReadPath(const std::string& text);

/// The shortest text that reads as this path: "1-10", "1,3,5-9".
std::string PathText(const std::vector<int>& nodes);

/// The chord that is most likely loaded: of the lower and the upper chain of members from the leftmost node to the
/// right the one with more loads in y on its nodes, then the more level, then the one with more supports, then the
/// lower.  Empty where no member leads to the right.
std::vector<int> ProposePath();

} // namespace strutwright
