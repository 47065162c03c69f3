#pragma once

namespace strutwright {

/// Room in the grids on screen, in pixels.
inline constexpr int RowPadding = 8;    ///< above and below a text together
inline constexpr int ColumnPadding = 6; ///< left and right of a text together

inline constexpr int HeaderLines = 2; ///< a heading and its unit

} // namespace strutwright
