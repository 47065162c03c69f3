#pragma once

#include "AnalysisState.h"
#include "EditingState.h"
#include "EquationsState.h"
#include "EventsTest.h"
#include "ModelBuilder.h"
#include "PublishedBars.h"
#include "modEquationCells.h"
#include "modEquationSteps.h"
#include "modGrids.h"
#include "modModelStore.h"

#include <string>
#include <vector>

namespace strutwright {

/// The triangle with its second member's E below zero and a last member from a node to itself: both are ignored.
inline ModelData TriangleWithIgnoredMembers() {
  ModelData model = Triangle();
  model.members[1].E = -200;
  model.members.push_back({3, 3});
  return model;
}

/// An equations view before its first press.
class EquationsTest : public EventsTest {
 protected:
  EquationsTest() {
    ResetModel();
    TheAnalysis = AnalysisState{};
    TheEditing = EditingState{};
    TheEquations = EquationsState{};
    initGrids();
  }

  static std::string Caption() { return TheEquations.page.addMemberCaption; }
  static std::string K(int row, int column) { return EquationCell(EquationGrid::Stiffness, row, column); }
  static std::string Force(int freedom) { return EquationCell(EquationGrid::Force, freedom, 1); }
  static std::string Disp(int freedom) { return EquationCell(EquationGrid::Displacement, freedom, 1); }

  /// A row of grK without its label.
  static std::vector<std::string> RowOfK(int row) {
    std::vector<std::string> cells;
    for (int column = 1; column < EquationColumnCount(EquationGrid::Stiffness); ++column)
      cells.push_back(K(row, column));
    return cells;
  }

  /// Every cell below the headers of the three grids.
  static std::vector<std::string> ValueCells() {
    std::vector<std::string> cells;
    for (const EquationGrid grid : {EquationGrid::Force, EquationGrid::Stiffness, EquationGrid::Displacement}) {
      for (int row = 1; row < EquationRowCount(); ++row) {
        for (int column = 1; column < EquationColumnCount(grid); ++column) {
          cells.push_back(EquationCell(grid, row, column));
        }
      }
    }
    return cells;
  }

  static void PressAddMember(int times) {
    for (int i = 0; i < times; ++i) StepAddMember();
  }
};

/// What an unstable structure is reported with.
inline Message UnstableBox() {
  return Box(MessageIcon::Critical, "Structure is unstable - Aborting analysis\nFailed Check 2");
}

} // namespace strutwright
