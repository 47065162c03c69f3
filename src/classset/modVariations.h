#pragma once

#include "modModelFile.h"
#include "modTrussFamilies.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace strutwright {

/// A quantity that differs from student to student, with the round values that it may take.
struct Variation {
  std::string name; ///< "span", "height", "load", "area", "e", or of a family the name of any of its numbers
  double from = 0;  ///< m, kN, mm2, kN/mm2, or a number of bays
  double to = 0;
  double step = 1;

  /// How many values there are.
  std::uint64_t Count() const;
  /// One of them; index: from 0.
  double ValueAt(std::uint64_t index) const;
};

/// Reads "span:18..30:1".  Throws ClassFault.
Variation ReadVariation(const std::string& text);

/// What a set of variants is made from: a model, or a family of trusses and its numbers.
struct ClassSource {
  std::string name;  ///< as a user calls it
  StoredModel model; ///< where there is no family
  const TrussFamily* family = nullptr;
  TrussTexts texts; ///< of the family
};

/// Throws ClassFault where a quantity can't be varied, is or is varied twice.
void CheckVariations(const ClassSource& source, const std::vector<Variation>& variations);

/// The model in which each varied quantity has the value of the same index, or the reason why there is none.
/// Span and height stretch all coordinates from the left and from below.  Of the loads and areas the largest takes the
/// value; the others follow in proportion, in whole steps and at least one.  The supports stay.
struct VariedModel {
  std::optional<StoredModel> model;
  std::string fault;
};
VariedModel MakeVariedModel(const ClassSource& source, const std::vector<Variation>& variations,
                            const std::vector<double>& values);

/// "Span 24 m, load 15 kN"; empty where nothing is varied.
std::string VariedText(const std::vector<Variation>& variations, const std::vector<double>& values);

/// Whether a quantity of that name can be varied in a model that is no family.
bool IsModelQuantity(const std::string& name);

/// How large a quantity of a model is, such as "24 m"; empty where the model has none.
/// name: "span", "height", "load", "area" or "e".
std::string SizeText(const StoredModel& model, const std::string& name);

} // namespace strutwright
