#include "EquationsFixture.h"
#include "modEquationCopy.h"
#include "modEquationTexts.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;

using EquationCellsTest = EquationsTest;

TEST_F(EquationCellsTest, HasItsHeadings) {
  EXPECT_EQ(EquationCell(EquationGrid::Force, 0, 0), "DOF");
  EXPECT_EQ(EquationCell(EquationGrid::Force, 0, 1), "Force (kN)");
  EXPECT_EQ(EquationCell(EquationGrid::Stiffness, 0, 0), "DOF");
  EXPECT_EQ(EquationCell(EquationGrid::Displacement, 0, 0), "DOF");
  EXPECT_EQ(EquationCell(EquationGrid::Displacement, 0, 1), "Disp (mm)");
}

TEST_F(EquationCellsTest, NamesTheFreedoms) {
  EXPECT_EQ(FreedomLabel(1), "1 x");
  EXPECT_EQ(FreedomLabel(2), "1 y");
  EXPECT_EQ(FreedomLabel(9999), "5000 x");
  EXPECT_EQ(FreedomLabel(10000), "5000 y");
}

TEST_F(EquationCellsTest, LabelsTheColumnsOfK) {
  SetModel({{{0, 0}, {1, 0}}, {}});
  StepShowForces();

  std::vector<std::string> labels;
  for (int column = 0; column < 5; ++column) labels.push_back(K(0, column));

  EXPECT_THAT(labels, ElementsAre("DOF", "1 x", "1 y", "2 x", "2 y"));
}

TEST_F(EquationCellsTest, ShowsTwoPlacesAtMost) {
  SetModel({{{0, 0, 0.5F, 1.255F}, {1, 0, -0.004F, 12345.678F}}, {}});

  StepShowForces();

  EXPECT_THAT((std::vector{Force(1), Force(2), Force(3), Force(4)}), ElementsAre("0.5", "1.26", "0.", "12345.68"));
}

TEST_F(EquationCellsTest, HasNoCellOutside) {
  SetModel({{{0, 0}}, {}});
  StepShowForces();

  EXPECT_THROW(EquationCell(EquationGrid::Force, 1, 2), GridRangeError);
  EXPECT_THROW(EquationCell(EquationGrid::Stiffness, 3, 1), GridRangeError);
  EXPECT_THROW(EquationTint(EquationGrid::Stiffness, -1, 1), GridRangeError);
  EXPECT_THROW(EquationValue(EquationGrid::Displacement, 0, -1), GridRangeError);
}

class TintTest : public EquationsTest {
 protected:
  TintTest() { SetModel(FourNodesThreeBars()); }

  static std::vector<std::string> TintedCells(CellTint tint) {
    std::vector<std::string> cells;
    for (int row = 0; row < EquationRowCount(); ++row) {
      for (int column = 0; column < EquationRowCount(); ++column) {
        if (EquationTint(EquationGrid::Stiffness, row, column) == tint) {
          cells.push_back(std::to_string(row) + std::to_string(column));
        }
      }
    }
    return cells;
  }
};

TEST_F(TintTest, MarksTheSixteenCellsOfAMemberAndItsLabels) {
  StepAddMember();

  // Member 1 joins nodes 1 and 3: freedoms 1, 2, 5 and 6.
  EXPECT_THAT(TintedCells(CellTint::Added),
              ElementsAre("01", "02", "05", "06", "10", "11", "12", "15", "16", "20", "21", "22", "25", "26", "50",
                          "51", "52", "55", "56", "60", "61", "62", "65", "66"));
  EXPECT_EQ(EquationTint(EquationGrid::Force, 1, 1), CellTint::None);
  EXPECT_EQ(EquationTint(EquationGrid::Displacement, 1, 1), CellTint::None);
}

TEST_F(TintTest, MarksTheLastMemberOnly) {
  PressAddMember(2);

  EXPECT_EQ(EquationTint(EquationGrid::Stiffness, 1, 1), CellTint::None);
  EXPECT_EQ(EquationTint(EquationGrid::Stiffness, 8, 8), CellTint::Added);
}

TEST_F(TintTest, MarksWhatRestrictCleared) {
  StepShowGlobalK();
  EXPECT_TRUE(TintedCells(CellTint::Added).empty());

  StepRestrict();

  // All but what lies between the freedoms of node 3, and their labels.
  EXPECT_THAT(TintedCells(CellTint::None), ElementsAre("00", "05", "06", "50", "55", "56", "60", "65", "66"));
  EXPECT_EQ(EquationTint(EquationGrid::Stiffness, 5, 1), CellTint::Cleared);
}

TEST_F(TintTest, MarksTheSolution) {
  StepShowGlobalK();
  StepRestrict();

  StepSolve();

  EXPECT_EQ(EquationTint(EquationGrid::Displacement, 1, 1), CellTint::Solved);
  EXPECT_EQ(EquationTint(EquationGrid::Displacement, 0, 1), CellTint::None);
  EXPECT_EQ(EquationTint(EquationGrid::Displacement, 1, 0), CellTint::None);
  EXPECT_TRUE(TintedCells(CellTint::Cleared).empty());
}

TEST_F(TintTest, MarksNothingAfterASolveThatFailed) {
  StepSolve();

  TakeMessages();
  EXPECT_EQ(EquationTint(EquationGrid::Displacement, 1, 1), CellTint::None);
}

TEST_F(TintTest, MarksNothingForAMemberWithoutTwoNodes) {
  GrMembers.SetText(1, MemberNodeI, "0");

  StepAddMember();

  TakeMessages();
  EXPECT_TRUE(TintedCells(CellTint::Added).empty());
}

TEST_F(TintTest, GoesWithAStepBack) {
  PressAddMember(2);

  StepBack();

  EXPECT_EQ(EquationTint(EquationGrid::Stiffness, 1, 1), CellTint::Added);
  EXPECT_EQ(EquationTint(EquationGrid::Stiffness, 8, 8), CellTint::None);
}

class EquationCopyTest : public EquationsTest {
 protected:
  EquationCopyTest() {
    ModelData model = FourNodesThreeBars();
    model.members[0].A = 601.3F;
    SetModel(model);
    StepAddMember();
  }

  static constexpr GridBlock Corner{5, 5, 6, 6};
};

TEST_F(EquationCopyTest, CopiesWhatIsShown) {
  CopyCells(EquationGrid::Stiffness, {1, 5, 2, 6});

  EXPECT_EQ(clipboard.text, "-75.16\t0.\r0.\t0.");
  EXPECT_EQ(
      clipboard.html,
      "<meta charset=\"utf-8\"><table><tr><td>-75.16</td><td>0.</td></tr><tr><td>0.</td><td>0.</td></tr></table>");
}

TEST_F(EquationCopyTest, CopiesLabelsThatAreSelected) {
  CopyCells(EquationGrid::Force, {0, 0, 1, 1});

  EXPECT_EQ(clipboard.text, "DOF\tForce (kN)\r1 x\t0.");
}

TEST_F(EquationCopyTest, CopiesEveryDigitForSpreadsheets) {
  CopyCellsInFullPrecision(EquationGrid::Stiffness, Corner);

  EXPECT_EQ(clipboard.text, "75.1625\t0\r\n0\t0\r\n");
  EXPECT_EQ(clipboard.html, "");
}

TEST_F(EquationCopyTest, CopiesEmptyCellsAsEmpty) {
  CopyCellsInFullPrecision(EquationGrid::Displacement, {1, 0, 2, 1});

  EXPECT_EQ(clipboard.text, "1 x\t\r\n1 y\t\r\n");
}

TEST_F(EquationCopyTest, CopiesAMatrixForLatex) {
  CopyCellsAsLatex(EquationGrid::Stiffness, Corner);

  EXPECT_EQ(clipboard.text, "\\begin{bmatrix}\n  75.16 & 0 \\\\\n  0 & 0\n\\end{bmatrix}\n");
}

TEST_F(EquationCopyTest, CopiesLabelsAndEmptyCellsForLatex) {
  CopyCellsAsLatex(EquationGrid::Displacement, {1, 0, 1, 1});

  EXPECT_EQ(clipboard.text, "\\begin{bmatrix}\n  \\text{1 x} & \n\\end{bmatrix}\n");
}

TEST_F(EquationCopyTest, RefusesWhatNoProgramCanTake) {
  clipboard.text = "kept";
  SetModel({std::vector<NodeData>(1001), {}});
  StepShowGlobalK();

  CopyCells(EquationGrid::Stiffness, {1, 1, 2001, 2000});
  CopyCellsInFullPrecision(EquationGrid::Stiffness, {1, 1, 2001, 2000});
  CopyCellsAsLatex(EquationGrid::Stiffness, {1, 1, 2001, 2000});

  const Message refusal = Box(MessageIcon::Information, "The selection has 4002000 cells, but at most 4000000 can be "
                                                        "copied at once.\nSelect fewer cells.");
  EXPECT_THAT(TakeMessages(), ElementsAre(refusal, refusal, refusal));
  EXPECT_EQ(clipboard.text, "kept");
}

} // namespace
} // namespace strutwright
