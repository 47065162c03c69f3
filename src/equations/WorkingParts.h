#pragma once

#include "EquationsState.h"
#include "WorkedDocument.h"

#include <string>
#include <vector>

namespace strutwright {

// What the working of the steps is put together from.  A number's link says where it comes from: "node 3", "member 2",
// "K 3 4" for an entry of K, "P 3" and "D 3" for freedoms, "force 2" for a member's force.

/// Trusses of more nodes are worked without their matrices.
inline constexpr int MaxWorkedNodes = 8;

/// Most lines of one kind in the pane, which shows a step of a large truss at once.
inline constexpr int MaxListedInPane = 40;

/// What is shown of a step.
enum class WorkingExtent { Pane, Document };

/// A number as the equations view shows it, zero faint; all its digits on pointing.
Formula ShownNumber(float value, const std::string& link = "");

/// The same with up to four decimals, for coordinates, cosines and sines.
Formula FineNumber(float value, const std::string& link = "");

/// A number as it stands behind a sign or between factors: in brackets when it is below zero.
Formula AsTerm(const Formula& number);

std::string NodeLink(int node);
std::string MemberLink(int member);
std::string EntryLink(int row, int column);

/// A matrix of the entries of K at some freedoms, named by them.
Formula MatrixAt(const std::vector<int>& freedoms, const std::vector<std::vector<Formula>>& cells);

/// The names of freedoms: "3 x".
std::vector<std::string> LabelsOf(const std::vector<int>& freedoms);

/// Writes the blocks of a step, one after another.
class WorkingWriter {
 public:
  WorkingWriter(WorkedDocument& target, WorkingExtent extent) : Target(target), Extent(extent) {}

  void Heading(const std::string& text) { Target.blocks.emplace_back(WorkedHeading{3, text}); }
  void Say(const std::string& text) { Target.blocks.emplace_back(WorkedParagraph{text}); }
  void Write(Formula formula) { Target.blocks.emplace_back(WorkedFormula{std::move(formula)}); }
  void Tabulate(WorkedTable table) { Target.blocks.emplace_back(std::move(table)); }

  /// How many of so many lines are shown; says so where some are left out.
  int Listed(int count, const std::string& what);

  bool IsForDocument() const { return Extent == WorkingExtent::Document; }

 private:
  WorkedDocument& Target;
  WorkingExtent Extent;
};

// The working of each step, for the page as it is after it.
void WriteLoads(const EquationPage& page, WorkingWriter& writer);
void WriteMemberHeading(const EquationPage& page, WorkingWriter& writer);
void WriteMember(const EquationPage& page, WorkingWriter& writer);
void WriteWholeMatrix(const EquationPage& page, WorkingWriter& writer);
void WriteRestriction(const EquationPage& page, WorkingWriter& writer);
void WriteSolution(const EquationPage& page, WorkingWriter& writer);
void WriteMemberForces(const EquationPage& page, WorkingWriter& writer);
void WriteReactions(const EquationPage& page, WorkingWriter& writer);

} // namespace strutwright
