#include "FormulaTexts.h"
#include "LargeModels.h"
#include "ModelBuilder.h"
#include "RecordingSurface.h"
#include "WorkbenchFixture.h"
#include "modHandDocument.h"
#include "modSketch.h"

#include <string>
#include <variant>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsSupersetOf;
using testing::SizeIs;

class HandDocumentTest : public WorkbenchFixture {
 protected:
  void Take(const ModelData& model) {
    SetModel(model);
    lesson.Read();
  }

  template <class Block>
  static std::vector<Block> BlocksOf(const WorkedDocument& document) {
    std::vector<Block> blocks;
    for (const WorkedBlock& block : document.blocks) {
      if (const auto* found = std::get_if<Block>(&block)) blocks.push_back(*found);
    }
    return blocks;
  }

  static std::vector<std::string> FormulasOf(const WorkedDocument& document) {
    std::vector<std::string> texts;
    for (const WorkedFormula& each : BlocksOf<WorkedFormula>(document)) texts.push_back(PlainText(each.formula));
    return texts;
  }

  HandLesson lesson;
};

TEST(HandFormulaTest, IsWrittenAsInABook) {
  EXPECT_EQ(PlainText(FormulaOfHand("0.8 F3 - F41 + 0.6 (-12.5) = 0")), "0.8F_3 - F_41 + 0.6(-12.5) = 0");
  EXPECT_EQ(PlainText(FormulaOfHand("-2 * 7.5 = 0")), "-2 · 7.5 = 0");
  EXPECT_THAT(PlainText(FormulaOfHand("R1y = -6E+09 kN")), HasSubstr("R_1y = -6E+09 kN"));
  EXPECT_THAT(PlainText(FormulaOfHand("-F2 = 0")), HasSubstr("F_2 = 0"));
  EXPECT_THAT(PlainText(FormulaOfHand("F4 = 10 kN (tension)")), HasSubstr("10 kN (tension)"));
}

TEST_F(HandDocumentTest, HoldsTheWholeSolution) {
  Take(Triangle());
  ASSERT_TRUE(HasHandDocument(lesson));
  const WorkedDocument document = HandDocument(lesson, "Triangle");
  EXPECT_EQ(document.title, "Worked solution by hand: Triangle");
  std::vector<std::string> headings;
  for (const WorkedHeading& each : BlocksOf<WorkedHeading>(document)) headings.push_back(each.text);
  EXPECT_THAT(headings, ElementsAre("The truss", "Reactions", "Members without force", "Joints", "Step 1: joint 1",
                                    "Step 2: joint 2", "Step 3: joint 3", "Force diagram", "All forces"));
  EXPECT_THAT(BlocksOf<WorkedPicture>(document),
              SizeIs(7)); // truss, reactions, zero member, three joints, force diagram
  ASSERT_THAT(BlocksOf<WorkedTable>(document), SizeIs(1));
  EXPECT_THAT(BlocksOf<WorkedTable>(document)[0].rows, SizeIs(3));
}

// 3-4-5: moments about 1: 4 R2y - 4 (10) - 3 (5) = 0, R2y = 13.75; R1y = -3.75, R1x = -5.
TEST_F(HandDocumentTest, HasTheNumbersByHand) {
  Take(Triangle());
  EXPECT_THAT(FormulasOf(HandDocument(lesson, "")),
              IsSupersetOf({"R_1x = -5 kN", "R_1y = -3.75 kN", "R_2y = 13.75 kN"}));
}

TEST_F(HandDocumentTest, DrawsItsPictures) {
  Take(Triangle());
  for (const WorkedPicture& picture : BlocksOf<WorkedPicture>(HandDocument(lesson, ""))) {
    RecordingSurface surface;
    surface.width = static_cast<float>(picture.width);
    surface.height = static_cast<float>(picture.height);
    picture.draw(surface);
    EXPECT_FALSE(surface.pixelTexts.empty());
    EXPECT_FALSE(surface.pixelLines.empty());
  }
}

TEST_F(HandDocumentTest, IsOfDeterminateTrussesOnly) {
  Take(Square());
  EXPECT_FALSE(HasHandDocument(lesson));
  Take({});
  EXPECT_FALSE(HasHandDocument(lesson));
  ModelData model = Triangle();
  model.nodes[1].support = 3;
  Take(model);
  EXPECT_FALSE(HasHandDocument(lesson));
}

TEST_F(HandDocumentTest, DrawsFewFiguresOfALargeTruss) {
  SetTables(WarrenGirder(200, 200));
  lesson.Read();
  EXPECT_THAT(BlocksOf<WorkedPicture>(HandDocument(lesson, "")), SizeIs(testing::Le(124U)));
}

/// More than a lesson needs, but nobody shall wait for ever.
TEST_F(HandDocumentTest, TakesFiveThousandMembers) {
  SetTables(WarrenGirder(2501, 2501));
  lesson.Read();
  ASSERT_TRUE(HasHandDocument(lesson));
  RecordingSurface surface;
  const int last = lesson.LastStep(HandTopic::Joints);
  EXPECT_THAT(TextOf(lesson.Tell(HandTopic::Joints, last)), HasSubstr("All forces are known"));
  DrawSheet(surface, PlaceSheet(lesson.Tell(HandTopic::Joints, last / 2).sheet, surface));
  DrawSheet(surface, PlaceSheet(lesson.TellSection(lesson.ProposedStroke()).sheet, surface));
  EXPECT_FALSE(surface.pixelLines.empty());
}

} // namespace
} // namespace strutwright
