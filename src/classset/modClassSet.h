#pragma once

#include "modQuestions.h"
#include "modVariations.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace strutwright {

/// What a class gets.
struct ClassPlan {
  ClassSource source;
  std::vector<Variation> variations;
  std::vector<Ask> asks;
  std::vector<std::string> students;
  std::uint64_t seed = 1;
  double percent = 1; ///< of the right value that an answer may be off
};

/// A student's problem.
struct ClassVariant {
  std::string student;
  StoredModel model;                    ///< without results
  std::string varied;                   ///< "span 24 m, load 15 kN"
  std::vector<KeyedQuestion> questions; ///< in the order in which they were asked
};

/// Fewest digits that the check must find right in a variant.
inline constexpr int DigitsOfVariant = 4;

/// A variant for each student: stable, right to four digits, with answers that are not all zero and not those of the
/// student before; no two models are the same.  The same plan gives the same variants on every machine.
/// The open model stays.  Throws ClassFault where there are not enough, and WorkCancelled.
std::vector<ClassVariant> MakeVariants(const ClassPlan& plan);

} // namespace strutwright
