#pragma once

#include "Sketch.h"
#include "modBalance.h"

#include <string>
#include <vector>

namespace strutwright {

/// The pages of the lesson on the hand methods, in their order.
enum class HandTopic { FirstReactions, ZeroMembers, Joints, Sections, ForceDiagram };
inline constexpr int HandTopicCount = 5;

/// What the lesson tells and shows at one place.
struct HandTelling {
  std::string heading;
  std::vector<std::string> sentences; ///< before the equations
  std::vector<HandEquation> equations;
  std::vector<std::string> solution; ///< "F4 = 10 kN (tension)"
  std::vector<std::string> remarks;  ///< behind them
  SketchSheet sheet;
};

/// All of it as text, in lines.  Of a great many equations only the first are written.
std::string TextOf(const HandTelling& telling);

} // namespace strutwright
