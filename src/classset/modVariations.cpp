#include "modVariations.h"

#include "ClassFault.h"
#include "ClassTexts.h"
#include "PreciseText.h"
#include "modModelStore.h"
#include "modNumberText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <set>
#include <string_view>

namespace strutwright {

namespace {

constexpr double MostValues = 1'000'000; // of one quantity
constexpr int DigitsOfValue = 7;

/// A quantity of a finished model.
struct ModelQuantity {
  std::string_view name;
  std::string_view unit;
  std::string_view missing; ///< what is said where the model has none
};

constexpr std::array<ModelQuantity, 5> ModelQuantities{{
    {"span", "m", "The model has no span to vary: all its nodes stand above each other"},
    {"height", "m", "The model has no height to vary: all its nodes stand beside each other"},
    {"load", "kN", "The model has no load to vary: load a node first"},
    {"area", "mm2", "The model has no area to vary: give its members one first"},
    {"e", "kN/mm2", "The model has no E to vary: give its members one first"},
}};

const ModelQuantity* ModelQuantityNamed(std::string_view name) {
  const auto found = std::find_if(ModelQuantities.begin(), ModelQuantities.end(),
                                  [name](const ModelQuantity& each) { return each.name == name; });
  return found == ModelQuantities.end() ? nullptr : &*found;
}

const FieldDescription* FamilyQuantityNamed(std::string_view name) {
  const auto found = std::find_if(TrussFields.begin(), TrussFields.end(),
                                  [name](const FieldDescription& each) { return each.option == name; });
  return found == TrussFields.end() ? nullptr : &*found;
}

std::string NamesOfQuantities(bool ofFamily) {
  std::string names;
  const auto add = [&names](std::string_view name) { names += (names.empty() ? "" : ", ") + std::string(name); };
  if (!ofFamily) {
    for (const ModelQuantity& each : ModelQuantities) add(each.name);
    return names;
  }
  for (const FieldDescription& each : TrussFields) add(each.option);
  add("area");
  return names;
}

double NumberOfRange(const std::string& text, const std::string& whole) {
  const std::optional<double> value = PlainNumber(text);
  if (!value) throw ClassFault(InQuotes(whole) + " is no range: write one such as span:18..30:1");
  return *value;
}

/// The fields of a table that a quantity is about.
struct Fields {
  FieldTable& table;
  std::vector<int> fields;
};

double LargestOf(const Fields& at) {
  double largest = 0;
  for (int row = 1; row <= at.table.Count(); ++row) {
    for (const int field : at.fields) largest = std::max<double>(largest, std::fabs(at.table(row, field)));
  }
  return largest;
}

/// The largest takes the value, the others follow in whole steps.
void ScaleTo(const Fields& at, double value, double step) {
  const double largest = LargestOf(at);
  for (int row = 1; row <= at.table.Count(); ++row) {
    for (const int field : at.fields) {
      float& old = at.table(row, field);
      if (old == 0) continue;
      if (value == 0) {
        old = 0;
        continue;
      }
      const double share = std::fabs(old) / largest;
      const double steps = std::max(1.0, std::round(share * std::fabs(value) / step));
      const double size = share == 1 ? std::fabs(value) : steps * step;
      old = static_cast<float>(std::copysign(size, old * value));
    }
  }
}

/// Of the nodes in one direction: the least coordinate and how far they reach.
struct Reach {
  double least = 0;
  double length = 0;
};

Reach ReachOf(const FieldTable& nodes, int field) {
  if (nodes.Count() == 0) return {};
  double least = nodes(1, field);
  double most = least;
  for (int n = 2; n <= nodes.Count(); ++n) {
    least = std::min<double>(least, nodes(n, field));
    most = std::max<double>(most, nodes(n, field));
  }
  return {least, most - least};
}

/// x' = least + (x - least) value / length.   Checked: the first coordinate stays, the length becomes the value.
void Stretch(FieldTable& nodes, int field, double value) {
  const Reach reach = ReachOf(nodes, field);
  for (int n = 1; n <= nodes.Count(); ++n) {
    nodes(n, field) = static_cast<float>(reach.least + (nodes(n, field) - reach.least) * value / reach.length);
  }
}

Fields LoadsOf(StoredModel& model) { return {model.nodes, {NodeForceX, NodeForceY}}; }
Fields PropertyOf(StoredModel& model, int field) { return {model.members, {field}}; }

/// 0 where the model has none.
double SizeOf(StoredModel model, std::string_view name) {
  if (name == "span") return ReachOf(model.nodes, NodeX).length;
  if (name == "height") return ReachOf(model.nodes, NodeY).length;
  if (name == "load") return LargestOf(LoadsOf(model));
  return LargestOf(PropertyOf(model, name == "area" ? MemberA : MemberE));
}

void PutQuantity(StoredModel& model, const Variation& variation, double value) {
  if (variation.name == "span") return Stretch(model.nodes, NodeX, value);
  if (variation.name == "height") return Stretch(model.nodes, NodeY, value);
  if (variation.name == "load") return ScaleTo(LoadsOf(model), value, variation.step);
  ScaleTo(PropertyOf(model, variation.name == "area" ? MemberA : MemberE), value, variation.step);
}

bool IsFieldOfFamily(const ClassSource& source, const Variation& variation) {
  return source.family != nullptr && FamilyQuantityNamed(variation.name) != nullptr;
}

void CheckOne(const ClassSource& source, const Variation& variation) {
  const bool ofFamily = source.family != nullptr;
  const ModelQuantity* quantity = ModelQuantityNamed(variation.name);
  if (!IsFieldOfFamily(source, variation) && (quantity == nullptr || (ofFamily && variation.name != "area"))) {
    const std::string where = ofFamily ? "a family" : "a model";
    throw ClassFault(InQuotes(variation.name) + " can't be varied in " + where + ": choose " +
                     NamesOfQuantities(ofFamily));
  }
  if (variation.name != "load" && variation.from <= 0) {
    throw ClassFault("The range of the " + variation.name + " must begin above zero");
  }
  if (ofFamily) return;
  if (SizeOf(source.model, variation.name) <= 0) throw ClassFault(std::string(quantity->missing));
}

std::string_view UnitOfVaried(const std::string& name) {
  if (const ModelQuantity* quantity = ModelQuantityNamed(name)) return quantity->unit;
  const FieldDescription* field = FamilyQuantityNamed(name);
  return field == nullptr ? "" : field->unit;
}

std::string TextWithUnit(const std::string& name, double value) {
  const std::string_view unit = UnitOfVaried(name);
  return PreciseText(value, DigitsOfValue) + (unit.empty() ? "" : " ") + std::string(unit);
}

StoredModel WithoutResults(const StoredModel& stored) {
  StoredModel model = stored;
  for (int m = 1; m <= model.members.Count(); ++m) {
    for (int field = MemberFieldLength; field <= MemberFieldForce; ++field) model.members(m, field) = 0;
  }
  return model;
}

} // namespace

std::uint64_t Variation::Count() const {
  constexpr double Rounding = 1e-6; // of a step
  return static_cast<std::uint64_t>(std::floor((to - from) / step + Rounding)) + 1;
}

double Variation::ValueAt(std::uint64_t index) const { return from + static_cast<double>(index) * step; }

Variation ReadVariation(const std::string& text) {
  const std::size_t colon = text.find(':');
  const std::size_t dots = text.find("..");
  const std::size_t last = text.rfind(':');
  if (colon == std::string::npos || dots == std::string::npos || dots < colon) {
    throw ClassFault(InQuotes(text) + " is no range: write one such as span:18..30:1");
  }
  Variation variation{text.substr(0, colon), NumberOfRange(text.substr(colon + 1, dots - colon - 1), text),
                      NumberOfRange(text.substr(dots + 2, last < dots ? text.npos : last - dots - 2), text),
                      last < dots ? 1 : NumberOfRange(text.substr(last + 1), text)};
  if (variation.step <= 0) throw ClassFault("The step of " + InQuotes(text) + " must be above zero");
  if (variation.to < variation.from) throw ClassFault("The range " + InQuotes(text) + " ends before it begins");
  if ((variation.to - variation.from) / variation.step >= MostValues) {
    throw ClassFault("The range " + InQuotes(text) + " has more than a million values: use larger steps");
  }
  return variation;
}

void CheckVariations(const ClassSource& source, const std::vector<Variation>& variations) {
  std::set<std::string> names;
  for (const Variation& variation : variations) {
    CheckOne(source, variation);
    if (names.insert(variation.name).second) continue;
    throw ClassFault("The " + variation.name + " is varied twice: give one range for it");
  }
}

VariedModel MakeVariedModel(const ClassSource& source, const std::vector<Variation>& variations,
                            const std::vector<double>& values) {
  StoredModel model = WithoutResults(source.model);
  if (source.family != nullptr) {
    TrussTexts texts = source.texts;
    for (std::size_t v = 0; v < variations.size(); ++v) {
      if (!IsFieldOfFamily(source, variations[v])) continue;
      texts[FamilyQuantityNamed(variations[v].name)->field] = NumberText(static_cast<float>(values[v]));
    }
    if (const auto fault = FaultOf(*source.family, texts)) {
      return {std::nullopt, "the " + std::string(fault->option) + " " + fault->reason};
    }
    model = MakeTruss(*source.family, texts);
  }
  for (std::size_t v = 0; v < variations.size(); ++v) {
    if (!IsFieldOfFamily(source, variations[v])) PutQuantity(model, variations[v], values[v]);
  }
  return {model, ""};
}

std::string VariedText(const std::vector<Variation>& variations, const std::vector<double>& values) {
  std::string text;
  for (std::size_t v = 0; v < variations.size(); ++v) {
    text += (text.empty() ? "" : ", ") + variations[v].name + " " + TextWithUnit(variations[v].name, values[v]);
  }
  return text;
}

bool IsModelQuantity(const std::string& name) { return ModelQuantityNamed(name) != nullptr; }

std::string SizeText(const StoredModel& model, const std::string& name) {
  const double size = SizeOf(model, name);
  return size > 0 ? TextWithUnit(name, size) : "";
}

} // namespace strutwright
