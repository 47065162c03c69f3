#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace strutwright {

/// The text between quotation marks.
std::string InQuotes(std::string_view text);

/// "1 student", "7 students".
std::string CountOf(std::size_t count, const std::string& one);

/// A name with single blanks and in small letters: names that differ in nothing else mean the same question.
std::string PlainName(const std::string& name);

/// The value of a plain number text in double precision; nothing for another text.
std::optional<double> PlainNumber(std::string_view text);

/// A whole number of digits alone; nothing for another text or one too large.
std::optional<int> WholeNumber(std::string_view text);

} // namespace strutwright
