#pragma once

#include "CheckReport.h"
#include "CheckedTruss.h"

#include <string>
#include <vector>

namespace strutwright {

/// Most mechanisms that are described one by one; the others are only counted.
inline constexpr int MaxMechanisms = 20;

/// Judges a truss, and describes its mechanisms.
StabilityReport JudgeStability(const CheckedTruss& truss);

/// Combines motions so that each has a freedom of its own that the others leave at rest, which keeps motions of
/// separate parts separate; largest entry 1 in size, the main movement of the first node that moves to the right or up.
void Localise(std::vector<std::vector<double>>& motions);

/// "to the right", "up", "up and to the left" and so on.
std::string DirectionWords(double dx, double dy);

/// "Node 2 can move up while node 3 moves to the left; no member or support resists this".  Names up to four nodes.
std::string MotionSentence(const std::vector<double>& motion);

/// "1", "1 and 2", "1, 2 and 3".
std::string ListedNumbers(const std::vector<int>& numbers);

} // namespace strutwright
