#include "TableHeadings.h"

#include "ImportError.h"
#include "ModelRows.h"
#include "modNumberText.h"
#include "modTables.h"

#include <algorithm>
#include <array>

namespace strutwright {

namespace {

/// A unit that may stand in a heading, and the factor that makes its values ones in `wanted`.
struct UnitFactor {
  std::string_view wanted;
  std::string_view given;
  double factor;
};

constexpr std::array<UnitFactor, 16> UnitFactors{{
    {"m", "m", 1},
    {"m", "cm", 0.01},
    {"m", "mm", 0.001},
    {"m", "ft", 0.3048},
    {"m", "in", 0.0254},
    {"kn", "kn", 1},
    {"kn", "n", 0.001},
    {"kn", "mn", 1000},
    {"kn/mm2", "kn/mm2", 1},
    {"kn/mm2", "gpa", 1},
    {"kn/mm2", "n/mm2", 0.001},
    {"kn/mm2", "mpa", 0.001},
    {"kn/mm2", "kn/cm2", 0.01},
    {"mm2", "mm2", 1},
    {"mm2", "cm2", 100},
    {"mm2", "m2", 1000000},
}};

/// A heading taken apart, both in small letters and without blanks.
struct HeadingText {
  std::string name;
  std::string unit;
};

/// Raised figures as plain ones; blanks, underscores, stars and carets dropped.
std::string Plain(const std::string& text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isSquared = text.compare(i, 2, "\xC2\xB2") == 0;
    if (isSquared) ++i;
    const bool isDropped = std::string_view(" \t_*^").find(text[i]) != std::string_view::npos;
    if (isSquared) {
      plain += '2';
    } else if (!isDropped) {
      plain += text[i];
    }
  }
  return InSmallLetters(plain);
}

HeadingText TakeHeadingApart(const std::string& heading) {
  const std::size_t open = heading.find_first_of("([");
  if (open == std::string::npos) return {Plain(heading), ""};
  const std::size_t close = std::min(heading.find_first_of(")]", open), heading.size());
  return {Plain(heading.substr(0, open)), Plain(heading.substr(open + 1, close - open - 1))};
}

double FactorOf(const std::string& heading, const HeadingText& text, const ReadColumn& column, int line) {
  if (text.unit.empty()) return 1;
  const auto found = std::find_if(UnitFactors.begin(), UnitFactors.end(), [&](const UnitFactor& each) {
    return each.wanted == column.unit && each.given == text.unit;
  });
  if (found != UnitFactors.end()) return found->factor;
  throw ImportError(line, "the unit in the heading " + Quoted(heading) + " can't be converted to that of " +
                              Quoted(std::string(column.title)));
}

} // namespace

bool IsHeadingOf(const std::string& heading, const ReadColumn& column) {
  const std::string name = TakeHeadingApart(heading).name;
  return std::find(column.names.begin(), column.names.end(), name) != column.names.end();
}

HeadingPlaces FindHeadings(const std::vector<std::string>& fields, const std::vector<ReadColumn>& columns, int line) {
  HeadingPlaces places;
  places.columns.resize(columns.size());
  for (std::size_t index = 0; index < fields.size(); ++index) {
    const std::string heading(TrimBlanks(fields[index]));
    if (heading.empty()) continue;
    places.fieldCount = index + 1;
    const auto column = std::find_if(columns.begin(), columns.end(),
                                     [&](const ReadColumn& each) { return IsHeadingOf(heading, each); });
    if (column == columns.end()) {
      places.leftOut.push_back(heading);
      continue;
    }
    auto& place = places.columns[static_cast<std::size_t>(column - columns.begin())];
    if (place) throw ImportError(line, "the column " + Quoted(std::string(column->title)) + " stands there twice");
    place = ColumnPlace{index, FactorOf(heading, TakeHeadingApart(heading), *column, line)};
  }
  return places;
}

} // namespace strutwright
