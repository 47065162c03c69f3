#pragma once

#include "DrawingSurface.h"
#include "modClassSet.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace strutwright {

/// A range as the fields of a window hold it.
struct RangeTexts {
  std::string name; ///< "span"
  std::string from; ///< blank like the other two where the quantity is the same for all
  std::string to;
  std::string step;
  std::string value = {}; ///< of a family: the number that is the same for all; blank: the family's own
};

/// A question as the fields of a window hold it.
struct AskTexts {
  std::string name;    ///< "forces"
  std::string numbers; ///< "7,9"; blank: of all
};

/// What a teacher has entered for a class.
struct ClassEntry {
  std::string students; ///< how many, or a name a line
  std::uint64_t seed = 1;
  double percent = 1;
  std::vector<RangeTexts> ranges;
  std::vector<AskTexts> asks; ///< those that are chosen
  std::string family = {};    ///< its name; empty: the model in the tables
};

/// A family of trusses that can stand in for the model.
struct FamilyChoice {
  std::string name;
  std::string title;
};
std::vector<FamilyChoice> FamilyChoices();

/// The number with which a family begins, such as "24" for "span"; empty where the number says nothing about it.
std::string FamilyNumber(const std::string& family, const std::string& quantity);

/// The unit of such a number; empty where it has none.
std::string FamilyUnit(const std::string& quantity);

/// The names of a list of students in a file, a line each.  Throws ClassFault.
std::string NamesInFile(const std::string& path);

/// What the entries mean for the model in the tables, or for the family.
/// model: the path of its file, or where it has none its name.
/// Throws ClassFault.
ClassPlan PlanOfEntry(const ClassEntry& entry, const std::string& model);

/// The variants that the first students of a plan get, up to so many.  Throws what MakeVariants throws.
std::vector<ClassVariant> FirstVariants(ClassPlan plan, std::size_t most);

/// How large a quantity of the model in the tables is, such as "24 m"; empty where the model has none.
std::string PresentSize(const std::string& quantity);

/// Draws the model of a variant as its sheet does.  The model in the tables and its results stay.
void DrawVariant(const ClassVariant& variant, DrawingSurface& surface);

} // namespace strutwright
