#include "Envelope.h"
#include "EquationPages.h"
#include "RowEquations.h"
#include "WorkingParts.h"
#include "modAnalysis.h"
#include "modEquationCells.h"
#include "modModelStore.h"
#include "modNumberText.h"
#include "modSolver.h"

#include <cmath>
#include <cstddef>
#include <numeric>
#include <utility>

namespace strutwright {

namespace {

// The working of Restrict and Solve.

std::vector<int> FreeFreedoms(const EquationPage& page) {
  std::vector<int> free;
  for (int freedom = 1; freedom <= page.viewDofCount; ++freedom) {
    if (!page.fixed || page.fixed->at(static_cast<std::size_t>(freedom)) == 0) free.push_back(freedom);
  }
  return free;
}

std::string SupportReason(float code) {
  const std::string text = "support " + NumberText(code) + " holds ";
  if (code == RestrainedInY) return text + "y";
  return text + (code == RestrainedInX ? "x" : "x and y");
}

std::vector<std::vector<Formula>> ColumnOf(const std::vector<int>& freedoms, const std::vector<float>& values,
                                           const std::string& letter) {
  std::vector<std::vector<Formula>> cells;
  for (const int freedom : freedoms) {
    cells.push_back(
        {ShownNumber(values.at(static_cast<std::size_t>(freedom)), letter + " " + std::to_string(freedom))});
  }
  return cells;
}

/// K D = P without the rows and columns of restrained freedoms, and where it has been solved the D that follows.
void WriteReducedSystem(const EquationPage& page, const std::vector<int>& free, WorkingWriter& writer) {
  std::vector<std::vector<Formula>> K;
  std::vector<std::vector<Formula>> D;
  for (const int row : free) {
    K.emplace_back();
    for (const int column : free) {
      const float entry = page.viewStiffness ? page.viewStiffness->Values()(row, column) : 0.0F;
      K.back().push_back(ShownNumber(entry, EntryLink(row, column)));
    }
    D.push_back({IndexOf(SymbolOf("D"), WordsOf(FreedomLabel(row)))});
  }
  const Formula system =
      RowOf({MatrixAt(free, K), MatrixOf(D), SignOf("="), MatrixOf(ColumnOf(free, LoadsToSolve(page), "P"))});
  if (page.lastStep != EquationStep::Solve) {
    writer.Say("Without the restrained freedoms K D = P is:");
    return writer.Write(system);
  }
  writer.Say("Without the restrained freedoms K D = P is, in kN/mm and kN, and D follows in mm:");
  const Formula solution = MatrixOf(ColumnOf(free, *page.displacements, "D"));
  writer.Write(SideBySide({system, RowOf({MatrixOf(D), SignOf("="), solution})}));
}

/// One row of the outline of the elimination.
struct Pivot {
  int freedom = 0;
  int row = 0; ///< the equation, by the freedom that it belongs to, that stands there after the exchange
  float value = 0;
};

/// The solver's own elimination, column by column.
std::vector<Pivot> PivotsOf(const EquationPage& page) {
  const StiffnessMatrix zeros(page.viewDofCount);
  const StiffnessMatrix& K = page.viewStiffness ? page.viewStiffness->Values() : zeros;
  RowEquations equations(K, LoadsToSolve(page), EnvelopeOf(K));
  std::vector<int> rows(static_cast<std::size_t>(page.viewDofCount) + 1);
  std::iota(rows.begin(), rows.end(), 0);
  std::vector<Pivot> pivots;
  for (int p = 1; p <= page.viewDofCount; ++p) {
    const auto from = static_cast<std::size_t>(BringPivotUp(equations, p));
    std::swap(rows[static_cast<std::size_t>(p)], rows[from]);
    pivots.push_back({p, rows[static_cast<std::size_t>(p)], equations.K(p, p)});
    EliminateColumn(equations, p);
  }
  return pivots;
}

std::string PivotRemark(const Pivot& pivot) {
  if (!(std::abs(pivot.value) >= PivotTolerance)) return "too small: nothing resists this motion";
  if (pivot.row == pivot.freedom) return "";
  return "row " + FreedomLabel(pivot.row) + " exchanged with row " + FreedomLabel(pivot.freedom);
}

void WriteElimination(const EquationPage& page, const std::vector<int>& free, WorkingWriter& writer) {
  WorkedTable table{{{"Column"}, {"Pivot (kN/mm)"}, {"Remark", true}}, {}};
  const std::vector<Pivot> pivots = PivotsOf(page);
  for (const int freedom : free) {
    const Pivot& pivot = pivots.at(static_cast<std::size_t>(freedom - 1));
    table.rows.push_back({FreedomLabel(freedom), NumberAsShown(pivot.value), PivotRemark(pivot)});
  }
  writer.Say("Elimination: column by column, multiples of the row with the pivot are taken off the rows below it; "
             "then the displacements follow from the last row up. The pivots:");
  writer.Tabulate(std::move(table));
}

/// All displacements, restrained ones among them, which in the window stand in their grid.
void WriteDisplacements(const EquationPage& page, WorkingWriter& writer) {
  std::vector<int> all(static_cast<std::size_t>(page.viewDofCount));
  std::iota(all.begin(), all.end(), 1);
  if (page.viewDofCount <= 2 * MaxWorkedNodes) {
    writer.Write(RowOf({SymbolOf("D"), SignOf("="), MatrixOf(ColumnOf(all, *page.displacements, "D"), LabelsOf(all)),
                        WordsOf(" mm")}));
    return;
  }
  WorkedTable table{{{"Freedom"}, {"Displacement (mm)"}}, {}};
  const int listed = writer.Listed(page.viewDofCount, "displacements");
  for (int freedom = 1; freedom <= listed; ++freedom) {
    table.rows.push_back(
        {FreedomLabel(freedom), NumberAsShown(page.displacements->at(static_cast<std::size_t>(freedom)))});
  }
  writer.Tabulate(std::move(table));
}

} // namespace

void WriteRestriction(const EquationPage& page, WorkingWriter& writer) {
  std::vector<std::vector<std::string>> rows;
  for (int freedom = 1; freedom <= page.viewDofCount; ++freedom) {
    if (page.fixed->at(static_cast<std::size_t>(freedom)) == 0) continue;
    const int node = (freedom + 1) / 2;
    rows.push_back(
        {FreedomLabel(freedom), "node " + std::to_string(node) + ": " + SupportReason(NodeTable(node, NodeSupport))});
  }
  if (rows.empty()) return;
  writer.Say(
      "A support keeps these freedoms from moving, so their equation becomes D = 0: row and column zero, 1 on the "
      "diagonal.");
  rows.resize(static_cast<std::size_t>(writer.Listed(static_cast<int>(rows.size()), "restrained freedoms")));
  writer.Tabulate({{{"Row and column"}, {"Why", true}}, std::move(rows)});
}

void WriteSolution(const EquationPage& page, WorkingWriter& writer) {
  const std::vector<int> free = FreeFreedoms(page);
  const bool writesMatrices = page.viewDofCount <= 2 * MaxWorkedNodes;
  if (!writesMatrices) {
    writer.Say("There are " + std::to_string(free.size()) + " equations to solve: the matrices of trusses of up to " +
               std::to_string(MaxWorkedNodes) + " nodes are written out, this one has " +
               std::to_string(page.viewDofCount / 2) + ".");
  } else if (free.empty()) {
    writer.Say("Every freedom is restrained, so nothing moves.");
  } else {
    WriteReducedSystem(page, free, writer);
    WriteElimination(page, free, writer);
  }
  if (page.lastStep == EquationStep::Solve && (!writesMatrices || writer.IsForDocument())) {
    WriteDisplacements(page, writer);
  }
}

} // namespace strutwright
