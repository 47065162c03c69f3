#include "HandTexts.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>

namespace strutwright {

namespace {

constexpr int HandDigits = 5;
constexpr std::size_t MaxNodeNames = 10;
/// Factors are cosines or arms beside the size of the truss: what is smaller is rounding.
constexpr double NoFactor = 1e-9;

std::vector<std::string> Numerals(const std::vector<int>& numbers) {
  std::vector<std::string> texts;
  for (const int number : numbers) texts.push_back(std::to_string(number));
  return texts;
}

} // namespace

std::string HandNumber(double value) {
  if (value == 0) return "0";
  std::array<char, 40> text{};
  const auto result =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general, HandDigits);
  std::string number(text.data(), result.ptr);
  std::replace(number.begin(), number.end(), 'e', 'E');
  return number;
}

std::string PlaceText(double x, double y, double size) {
  const auto shown = [size](double value) { return std::abs(value) <= NoFactor * size ? 0 : value; };
  return "(" + HandNumber(shown(x)) + ", " + HandNumber(shown(y)) + ")";
}

std::string ListText(const std::vector<std::string>& items) {
  std::string text;
  for (std::size_t k = 0; k < items.size(); ++k) {
    if (k > 0) text += k + 1 == items.size() ? " and " : ", ";
    text += items[k];
  }
  return text;
}

std::string NodeNames(const std::vector<int>& nodes) {
  std::vector<std::string> names = Numerals(nodes);
  if (names.size() > MaxNodeNames) {
    names.resize(MaxNodeNames);
    names.push_back(std::to_string(nodes.size() - MaxNodeNames) + " more");
  }
  return (nodes.size() == 1 ? "Node " : "Nodes ") + ListText(names);
}

std::string MemberNames(const std::vector<int>& members) {
  return (members.size() == 1 ? "member " : "members ") + ListText(Numerals(members));
}

std::string ForceText(const std::string& name, double value, bool isMember, double nothing) {
  if (std::abs(value) <= nothing) return name + " = 0";
  std::string text = name + " = " + HandNumber(value) + " kN";
  if (!isMember) return text;
  return text + (value > 0 ? " (tension)" : " (compression)");
}

void SumText::AddTerm(bool isMinus, const std::string& term) {
  if (Sum.empty()) {
    Sum = (isMinus ? "-" : "") + term;
  } else {
    Sum += (isMinus ? " - " : " + ") + term;
  }
}

void SumText::AddUnknown(double factor, const std::string& name) {
  if (std::abs(factor) <= NoFactor) return;
  const std::string size = HandNumber(std::abs(factor));
  AddTerm(factor < 0, size == "1" ? name : size + " " + name);
}

void SumText::AddNumber(double factor, double number) {
  if (std::abs(factor) <= NoFactor || number == 0) return;
  const std::string size = HandNumber(std::abs(factor));
  if (size == "1") return AddTerm((factor < 0) != (number < 0), HandNumber(std::abs(number)));
  const std::string value = number < 0 ? "(" + HandNumber(number) + ")" : "* " + HandNumber(number);
  AddTerm(factor < 0, size + " " + value);
}

} // namespace strutwright
