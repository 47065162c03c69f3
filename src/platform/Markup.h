#pragma once

#include <string>
#include <string_view>

namespace strutwright {

/// A text as LaTeX prints it, outside of formulas: signs that mean something to LaTeX are written out, a hyphen before
/// a digit is a minus, and what its plain fonts lack becomes "?".
std::string EscapedLatex(std::string_view text);

/// A text as it stands in HTML and XML, also inside the quotes of an attribute.
std::string EscapedMarkup(std::string_view text);

/// A number as files of drawings have it: two decimals at most, without trailing zeros and the same in every locale.
/// A hundredth of a pixel is nothing to see.
std::string ShortNumber(double value);

} // namespace strutwright
