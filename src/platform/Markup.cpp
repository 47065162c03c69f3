#include "Markup.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <utility>

namespace strutwright {

namespace {

struct LatexSign {
  std::string_view sign;
  std::string_view latex;
};

/// Signs that mean something else to LaTeX, or nothing.
constexpr std::array<LatexSign, 32> LatexSigns{{{"\u2212", "$-$"},
                                                {"\u00d7", "$\\times$"},
                                                {"\u00b7", "$\\cdot$"},
                                                {"&", "\\&"},
                                                {"%", "\\%"},
                                                {"$", "\\$"},
                                                {"#", "\\#"},
                                                {"_", "\\_"},
                                                {"{", "\\{"},
                                                {"}", "\\}"},
                                                {"<", "$<$"},
                                                {">", "$>$"},
                                                {"\\", "\\textbackslash{}"},
                                                {"^", "\\textasciicircum{}"},
                                                {"~", "\\textasciitilde{}"},
                                                {"|", "$|$"},
                                                {"\"", "{''}"},
                                                {"\u00b1", "$\\pm$"},
                                                {"\u00b0", "$^{\\circ}$"},
                                                {"\u00b2", "$^{2}$"},
                                                {"\u00b3", "$^{3}$"},
                                                {"\u0394", "$\\Delta$"},
                                                {"\u03a3", "$\\Sigma$"},
                                                {"\u03b4", "$\\delta$"},
                                                {"\u2192", "$\\rightarrow$"},
                                                {"\u221a", "$\\surd$"},
                                                {"\u2248", "$\\approx$"},
                                                {"\u2260", "$\\neq$"},
                                                {"\u2264", "$\\leq$"},
                                                {"\u2265", "$\\geq$"},
                                                {"\u2013", "--"},
                                                {"\u2019", "'"}}};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

bool IsContinued(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

/// Letters with accents that plain fonts have: those of U+00C0 to U+00FF but eth and thorn.
bool IsPlainLetter(std::string_view character) {
  if (character.size() != 2 || character[0] != '\xC3') return false;
  constexpr std::string_view missing = "\x90\x97\x9E\xB0\xB7\xBE";
  return missing.find(character[1]) == std::string_view::npos;
}

/// What stands at a place of a text as LaTeX prints it, and its length.
std::pair<std::string_view, std::size_t> LatexAt(std::string_view text, std::size_t at) {
  const std::string_view rest = text.substr(at);
  if (rest[0] == '-' && rest.size() > 1 && IsDigit(rest[1])) return {"$-$", 1};
  for (const LatexSign& each : LatexSigns) {
    if (rest.starts_with(each.sign)) return {each.latex, each.sign.size()};
  }
  const auto first = static_cast<unsigned char>(rest[0]);
  if (first < ' ' || first == 0x7F) return {" ", 1};
  if (first < 0x80) return {rest.substr(0, 1), 1};
  std::size_t length = 1;
  while (length < rest.size() && IsContinued(rest[length])) ++length;
  const std::string_view character = rest.substr(0, length);
  return {IsPlainLetter(character) ? character : "?", length};
}

} // namespace

std::string EscapedLatex(std::string_view text) {
  std::string latex;
  for (std::size_t at = 0; at < text.size();) {
    const auto [sign, length] = LatexAt(text, at);
    latex += sign;
    at += length;
  }
  return latex;
}

std::string EscapedMarkup(std::string_view text) {
  std::string escaped;
  for (const char character : text) {
    switch (character) {
    case '&': escaped += "&amp;"; break;
    case '<': escaped += "&lt;"; break;
    case '>': escaped += "&gt;"; break;
    case '"': escaped += "&quot;"; break;
    default: escaped += character;
    }
  }
  return escaped;
}

std::string ShortNumber(double value) {
  constexpr int decimals = 2;
  std::array<char, 320> text{}; // the largest double has 309 digits before its point
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals).ptr;
  std::string number(text.data(), end);
  if (number.find('.') == std::string::npos) return number; // not finite
  number.erase(number.find_last_not_of('0') + 1);
  if (number.back() == '.') number.pop_back();
  return number == "-0" ? "0" : number;
}

} // namespace strutwright
