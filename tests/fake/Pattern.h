#pragma once

#include <ostream>
#include <regex>
#include <string>

#include <gmock/gmock.h>

namespace strutwright {

/// Matchers of a text by a regular expression that every system reads alike; GoogleTest's own knows no sets of
/// characters on Windows.

MATCHER_P(MatchesPattern, pattern, "") { return std::regex_match(std::string(arg), std::regex(pattern)); }

MATCHER_P(ContainsPattern, pattern, "") { return std::regex_search(std::string(arg), std::regex(pattern)); }

} // namespace strutwright
