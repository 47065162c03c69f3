#pragma once

#include <string>
#include <vector>

namespace strutwright {

/// A number as one writes it by hand: five significant digits, no trailing zeros, "0" for both zeros and "1.5E+09" far
/// from one.  Independent of the locale.
std::string HandNumber(double value);

/// "(3, 4.5)", in m.  What is nothing but rounding beside `size` is written as 0.
std::string PlaceText(double x, double y, double size = 0);

/// "Node 3", "Nodes 3 and 4", "Nodes 3, 4 and 7"; of more than ten only ten and how many more.
std::string NodeNames(const std::vector<int>& nodes);

/// "member 3", "members 3, 4 and 7", without a capital and never cut short.
std::string MemberNames(const std::vector<int>& members);

/// "3, 4 and 7".
std::string ListText(const std::vector<std::string>& items);

/// "F4 = 10 kN (tension)", "F4 = -10 kN (compression)", "F4 = 0"; of a reaction without the word in brackets.
/// nothing: how large a force is that counts as none, kN.
std::string ForceText(const std::string& name, double value, bool isMember, double nothing);

/// A sum that grows term by term: "0.8 F3 - F4 + 0.6 (-12.5)".
class SumText {
 public:
  /// Adds factor times a name, such as "F3"; nothing where the factor is 0.
  void AddUnknown(double factor, const std::string& name);
  /// Adds factor times a number; the factor 1 is not written, and nothing is where the number is 0.
  void AddNumber(double factor, double number);
  /// The sum, "0" where it has no term.
  std::string Text() const { return Sum.empty() ? "0" : Sum; }

 private:
  void AddTerm(bool isMinus, const std::string& term);

  std::string Sum;
};

} // namespace strutwright
