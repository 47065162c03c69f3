#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace strutwright {

/// The value of a numeric text, rounded to a 32-bit float; nothing when the text is not numeric.
/// Numeric: optional blanks around, optional sign, digits with at most one point, optional exponent
/// (e or E, signed or not), at least one digit before it.  A value too large for a float is not numeric; one too
/// small for it is 0.  Independent of the locale.
std::optional<float> NumericValue(std::string_view text);

/// The text without the blanks and tabs around it.
std::string_view TrimBlanks(std::string_view text);

/// Whether a text has the form of a number, however large.
bool IsNumberForm(std::string_view text);

/// The value of a numeric text as a 16-bit integer, rounded to the nearest, ties to even; nothing when the text is not
/// numeric or the integer does not fit.
std::optional<std::int16_t> IntegerValue(std::string_view text);

/// The plain text of a value as it stands in a cell: at most seven significant digits, no trailing zeros,
/// "0" for both zeros, "1.5E+09" where the seven-digit decimal is below 0.0001 or not below 10000000.
std::string NumberText(float value);

/// The shortest text that reads back to exactly this float.
std::string ShortestText(float value);

/// A value in a display format such as "#0.0#", "0.00" or "#.#".
/// pattern: "0" a digit that always shows, "#" one that shows when it is needed; its point always shows.
/// Works on the value's seven-digit decimal, rounds half away from zero, and gives no minus sign to what
/// rounds to zero.
std::string FormatNumber(float value, std::string_view pattern);

} // namespace strutwright
