#include "ClassFixture.h"
#include "modAnalysis.h"
#include "modCheckAnswer.h"
#include "modQuestions.h"

namespace strutwright {
namespace {

using testing::ElementsAre;

class QuestionsTest : public ClassTest {
 protected:
  static std::vector<std::string> Names(const std::vector<std::string>& asks) {
    std::vector<Ask> read;
    for (const std::string& text : asks) read.push_back(ReadAsk(text));
    std::vector<std::string> names;
    for (const Question& question : QuestionsAbout(ModelInTables(), read)) names.push_back(NameOf(question));
    return names;
  }

  static std::vector<KeyedQuestion> Answers(const ModelData& model, const std::vector<std::string>& asks) {
    SetTables(model);
    EXPECT_EQ(AnalyseTruss(), AnalysisEnd::Done);
    std::vector<Ask> read;
    for (const std::string& text : asks) read.push_back(ReadAsk(text));
    return Answered(QuestionsAbout(ModelInTables(), read), CheckAnswer(AnalysisOutcome::Done), 1);
  }
};

TEST_F(QuestionsTest, NamesThemAsTheKeyDoes) {
  SetTables(Triangle());
  EXPECT_THAT(Names({"forces:3,1", "reactions", "displacement:3y", "zero-members", "determinacy"}),
              ElementsAre("force 3", "force 1", "reaction 1x", "reaction 1y", "reaction 2y", "displacement 3y",
                          "zero-members", "determinacy"));
  EXPECT_THAT(Names({"forces", "force:2"}), ElementsAre("force 1", "force 2", "force 3"));
  EXPECT_THAT(Names({"displacement:2-3"}),
              ElementsAre("displacement 2x", "displacement 2y", "displacement 3x", "displacement 3y"));
  const std::vector<std::string> k = Names({"k:2"});
  EXPECT_EQ(k.size(), 16U);
  EXPECT_EQ(k.front(), "k 2 11");
  EXPECT_EQ(k[6], "k 2 23");
}

TEST_F(QuestionsTest, SayWhatIsAskedWithItsSign) {
  SetTables(Triangle());
  EXPECT_EQ(TextOf(ModelInTables(), {AskKind::Force, 3}), "Force of member 3, tension positive");
  EXPECT_EQ(TextOf(ModelInTables(), {AskKind::Reaction, 1, 'x'}), "Reaction at node 1 in x, positive to the right");
  EXPECT_EQ(TextOf(ModelInTables(), {AskKind::Displacement, 3, 'y'}), "Displacement of node 3 in y, positive upwards");
  EXPECT_EQ(TextOf(ModelInTables(), {AskKind::Stiffness, 1, ' ', 1, 4}),
            "Stiffness of member 1 in global axes, row 1x, column 2y");
  EXPECT_EQ(UnitOf({AskKind::Stiffness, 1, ' ', 1, 4}), "kN/mm");
}

TEST_F(QuestionsTest, RefuseWhatIsNoneOrNotThere) {
  SetTables(Triangle());
  for (const char* text : {"", "force:", "forces:0", "forces:4y", "displacement:y", "k", "determinacy:1", "stress:1"}) {
    EXPECT_EQ(FaultOfDoing([text] { ReadAsk(text); }),
              "\"" + std::string(text) +
                  "\" is nothing to ask for: choose forces:7,9, reactions, displacement:4y, zero-members, determinacy "
                  "or k:2");
  }
  EXPECT_EQ(FaultOfDoing([] { Names({"forces:4"}); }), "There is no member 4: choose one from 1 to 3");
  EXPECT_EQ(FaultOfDoing([] { Names({"displacement:4y"}); }), "There is no node 4: choose one from 1 to 3");
  EXPECT_EQ(FaultOfDoing([] { Names({"reaction:2x"}); }),
            "No support holds node 2 in x: ask for a reaction that there is");
}

// A bar of 5 m with E 200 kN/mm2 and A 1000 mm2, pulled with 40 kN: EA/L = 40 kN/mm, 1 mm longer.
TEST_F(QuestionsTest, HaveAnswersWithTolerances) {
  const auto answers = Answers({{{0, 0, 0, 0, 3}, {5, 0, 40, 0, 1}}, {{1, 2}}},
                               {"forces:1", "reactions", "displacement:2x", "zero-members", "determinacy", "k:1"});
  std::vector<std::string> texts;
  for (const KeyedQuestion& each : answers) texts.push_back(each.answer);
  texts.resize(9);
  EXPECT_THAT(texts, ElementsAre("40", "-40", "0", "0", "1", "none", "0", "40", "0"));
  EXPECT_DOUBLE_EQ(answers[0].tolerance, 0.4);
  EXPECT_DOUBLE_EQ(answers[2].tolerance, 0.04); // a zero may be off by a tenth of what the largest may
  EXPECT_EQ(answers[6].tolerance, 0);
}

TEST_F(QuestionsTest, NameTheMembersWithoutForce) {
  const auto answers = Answers({{{0, 0, 0, 0, 3}, {4, 0, 0, 0, 3}, {4, 3, 0, 0, 0}, {0, 3, 0, 0, 0}, {2, 5, 0, -8, 0}},
                                {{1, 3}, {1, 4}, {2, 3}, {3, 4}, {4, 5}, {3, 5}}},
                               {"zero-members"});
  EXPECT_EQ(answers[0].answer, "1");
}

} // namespace
} // namespace strutwright
