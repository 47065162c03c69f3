#include "modClassEntry.h"

#include "ClassFault.h"
#include "ClassTexts.h"
#include "Ensure.h"
#include "Platform.h"
#include "modModelFile.h"
#include "modNumberText.h"
#include "modOtherModel.h"
#include "modPlaces.h"
#include "modSheet.h"
#include "modStudents.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>

namespace strutwright {

namespace {

std::vector<std::string> StudentsEntered(const std::string& text) {
  std::string oneLine = text;
  std::replace(oneLine.begin(), oneLine.end(), '\n', ' ');
  if (const auto count = WholeNumber(TrimBlanks(oneLine))) return NumberedStudents(*count);
  return ReadStudents(text);
}

std::optional<Variation> RangeEntered(const RangeTexts& range) {
  const std::array<std::string, 3> texts{std::string(TrimBlanks(range.from)), std::string(TrimBlanks(range.to)),
                                         std::string(TrimBlanks(range.step))};
  const auto blanks = std::count(texts.begin(), texts.end(), "");
  if (blanks == 3) return std::nullopt;
  if (blanks > 0) {
    throw ClassFault("The range of the " + range.name +
                     " is not whole: write where it begins, where it ends and a step");
  }
  for (const std::string& text : texts) {
    if (PlainNumber(text)) continue;
    throw ClassFault("The range of the " + range.name + " holds " + InQuotes(text) +
                     ", which is no number: write one such as 12.5");
  }
  return ReadVariation(range.name + ":" + texts[0] + ".." + texts[1] + ":" + texts[2]);
}

const FieldDescription* NumberNamed(const std::string& quantity) {
  const auto found = std::find_if(TrussFields.begin(), TrussFields.end(),
                                  [&quantity](const FieldDescription& each) { return each.option == quantity; });
  return found == TrussFields.end() ? nullptr : &*found;
}

ClassSource OpenModel(const std::string& model) { return {LastComponent(model), ModelInTables(), nullptr, {}}; }

ClassSource FamilyEntered(const ClassEntry& entry) {
  const TrussFamily* family = FamilyNamed(entry.family);
  Ensure(family != nullptr, "only families that there are can be chosen");
  ClassSource source{std::string(family->title), {}, family, StandardTexts(*family)};
  for (const RangeTexts& range : entry.ranges) {
    const std::string value(TrimBlanks(range.value));
    const FieldDescription* number = NumberNamed(range.name);
    if (number != nullptr && !value.empty()) source.texts[number->field] = value;
  }
  return source;
}

Ask AskEntered(const AskTexts& ask) {
  const std::string numbers(TrimBlanks(ask.numbers));
  return ReadAsk(numbers.empty() ? ask.name : ask.name + ":" + numbers);
}

} // namespace

ClassPlan PlanOfEntry(const ClassEntry& entry, const std::string& model) {
  ClassPlan plan;
  plan.source = entry.family.empty() ? OpenModel(model) : FamilyEntered(entry);
  plan.students = StudentsEntered(entry.students);
  for (const RangeTexts& range : entry.ranges) {
    if (const auto variation = RangeEntered(range)) plan.variations.push_back(*variation);
  }
  for (const AskTexts& ask : entry.asks) plan.asks.push_back(AskEntered(ask));
  plan.seed = entry.seed;
  plan.percent = entry.percent;
  if (plan.asks.empty()) throw ClassFault("Nothing is asked: choose a question");
  if (plan.variations.empty() && plan.students.size() > 1) {
    throw ClassFault("Nothing differs from student to student: give a range to some quantity");
  }
  return plan;
}

std::vector<FamilyChoice> FamilyChoices() {
  std::vector<FamilyChoice> choices;
  for (const TrussFamily& each : TrussFamilies()) choices.push_back({std::string(each.name), std::string(each.title)});
  return choices;
}

std::string FamilyNumber(const std::string& family, const std::string& quantity) {
  const TrussFamily* found = FamilyNamed(family);
  const FieldDescription* number = NumberNamed(quantity);
  if (found == nullptr || number == nullptr || !IsUsed(*found, number->field)) return "";
  return StandardTexts(*found)[number->field];
}

std::string FamilyUnit(const std::string& quantity) {
  const FieldDescription* number = NumberNamed(quantity);
  return number == nullptr ? "" : std::string(number->unit);
}

std::string NamesInFile(const std::string& path) {
  constexpr std::size_t most = 1'000'000; // bytes, many times what a thousand names take
  std::string names;
  try {
    for (const std::string& name : ReadStudents(Files().Read(path, 0, most))) names += name + "\n";
  } catch (const FileError& error) {
    throw ClassFault("The list " + InQuotes(path) + " can't be read: " + error.what());
  }
  return names;
}

std::vector<ClassVariant> FirstVariants(ClassPlan plan, std::size_t most) {
  plan.students.resize(std::min(plan.students.size(), most));
  return MakeVariants(plan);
}

bool CanVaryInModel(const std::string& quantity) { return IsModelQuantity(quantity); }

std::string PresentSize(const std::string& quantity) { return SizeText(ModelInTables(), quantity); }

void DrawVariant(const ClassVariant& variant, DrawingSurface& surface) {
  WithModel({variant.model.nodes, variant.model.members}, [&] { ProblemPicture(variant.model).draw(surface); });
}

} // namespace strutwright
