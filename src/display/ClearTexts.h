#pragma once

#include <string>

namespace strutwright {

// Numbers as the clear drawing writes them, with a true minus sign.

/// How many decimals the forces of a drawing have: four digits of the largest at most.
int ForceDecimals(double largest);

/// A member's force with its sign and T or C, "+12.5 T"; "0" for a zero bar.
/// A force that would read as zero gets as many decimals as it needs, up to six.
/// compact: with three digits and no blank, "+135T".
std::string ForceText(float force, int decimals, bool compact = false);

/// The compact one without its sign, which T and C say too: "135T".
std::string ShortForceText(float force, int decimals);

/// The size of a load or a reaction with its unit, without trailing zeros: "12.5 kN".
std::string LoadText(float force, int decimals);

/// A number without trailing zeros; with a power of ten from 10000000 on, and below 0.000001 where more than six
/// decimals are asked for.
std::string PlainText(double value, int decimals);

/// A value that is read off a picture, rounded to so many digits: what follows is what the computing leaves.
std::string ReadingText(double value, int digits);

} // namespace strutwright
