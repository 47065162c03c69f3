#include "HandTelling.h"

#include <algorithm>
#include <cstddef>

namespace strutwright {

namespace {

constexpr std::size_t MostToldEquations = 60;

void AddLines(const std::vector<std::string>& lines, std::string& text) {
  for (const std::string& line : lines) text += line + "\n";
}

} // namespace

std::string TextOf(const HandTelling& telling) {
  std::string text = telling.heading + "\n\n";
  for (const std::string& sentence : telling.sentences) text += sentence + "\n\n";
  const std::size_t told = std::min(telling.equations.size(), MostToldEquations);
  for (std::size_t k = 0; k < told; ++k) {
    const HandEquation& equation = telling.equations[k];
    text += equation.title + ":\n  " + equation.text + "\n";
    if (!equation.solution.empty()) text += "  so " + equation.solution + "\n";
  }
  if (told < telling.equations.size()) {
    text += "and " + std::to_string(telling.equations.size() - told) + " more equations\n";
  }
  if (!telling.equations.empty() && !telling.solution.empty()) text += "\n";
  AddLines(telling.solution, text);
  const bool hasMiddle = !telling.equations.empty() || !telling.solution.empty();
  if (hasMiddle && !telling.remarks.empty()) text += "\n";
  AddLines(telling.remarks, text);
  return text;
}

} // namespace strutwright
