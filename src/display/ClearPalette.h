#pragma once

#include "Colour.h"

namespace strutwright {

/// The colours of the clear drawing.  Blue and vermillion are those of Okabe and Ito (jfly.uni-koeln.de/color, 2008),
/// which people who confuse red and green, or blue and yellow, tell apart; vermillion is darkened so that it can be
/// read as text.  Every one of them has a contrast of at least 3 to 1 on white, where texts stand in them 4.5 to 1.
namespace ClearPalette {

inline constexpr Colour Ground{255, 255, 255};
inline constexpr Colour Ink{26, 26, 26};            ///< members without results, nodes, loads, numbers
inline constexpr Colour Tension{0, 104, 163};       ///< Okabe and Ito's blue, a shade darker
inline constexpr Colour Compression{179, 71, 0};    ///< their vermillion, darkened
inline constexpr Colour ZeroBar{110, 110, 110};     ///< members without a force
inline constexpr Colour SteppedBack{118, 118, 118}; ///< members without results under a deflected shape
inline constexpr Colour Reaction{0, 112, 79};       ///< their bluish green, darkened
inline constexpr Colour Deflected{190, 96, 150};    ///< their reddish purple, darkened
inline constexpr Colour MemberNumber{70, 70, 70};
inline constexpr Colour AxisValue{95, 95, 95};
inline constexpr Colour GridLine{226, 226, 226}; ///< says nothing by itself
inline constexpr Colour Frame{170, 170, 170};    ///< of boxes; says nothing by itself

} // namespace ClearPalette

} // namespace strutwright
