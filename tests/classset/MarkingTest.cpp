#include "AnswerReading.h"
#include "ClassFixture.h"
#include "modKey.h"
#include "modMarking.h"

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* Key = "student,question,answer,tolerance,unit\r\n"
                            "Ann,force 7,12.5,0.13,kN\r\nAnn,force 9,-30,0.3,kN\r\nAnn,displacement 4y,-2.5,0.03,mm\r\n"
                            "Ann,zero-members,3 8,0,\r\nAnn,determinacy,1,0,\r\n"
                            "Bob,force 7,17.25,0.18,kN\r\nBob,force 9,-41,0.42,kN\r\nBob,displacement 4y,-4,0.04,mm\r\n"
                            "Bob,zero-members,none,0,\r\nBob,determinacy,0,0,\r\n";

class MarkingTest : public ClassTest {
 protected:
  static Mark MarkOf(const std::string& question, const std::string& answer, bool forgiveSign = false) {
    const std::vector<HandedIn> answers{{2, "Ann", question, answer}};
    for (const Mark& mark : MarkAnswers(ReadKey(Key), answers, {forgiveSign})) {
      if (mark.student == "Ann" && mark.question == question) return mark;
    }
    return {};
  }

  static std::string Fault(const std::string& key, const std::string& answers) {
    return FaultOfDoing([&] { MarkAnswers(ReadKey(key), ReadAnswers(answers), {}); });
  }
};

TEST_F(MarkingTest, GivesFullMarksToItsOwnKey) {
  const auto variants = MakeVariants(PrattPlan(20));
  const std::string key = KeyCsv(variants);
  const std::vector<Mark> marks = MarkAnswers(ReadKey(key), ReadAnswers(key), {});
  EXPECT_EQ(marks.size(), 20 * variants.front().questions.size());
  for (const Mark& mark : marks) EXPECT_EQ(mark.points, 1) << mark.student << " " << mark.question;
}

TEST_F(MarkingTest, TakesAnswersWithinTheTolerance) {
  EXPECT_EQ(MarkOf("force 7", "12.63").points, 1);
  EXPECT_EQ(MarkOf("force 7", "12.37").points, 1);
  EXPECT_EQ(MarkOf("force 7", "12.64").points, 0);
  EXPECT_EQ(MarkOf("force 7", "12.36").points, 0);
}

TEST_F(MarkingTest, ReadsWhatStudentsWrite) {
  for (const char* text :
       {"12.5", "12,5", " +12.5 ", "1.25e1", "12.5 kN", "12,5kN", "12.5 T", "T 12.5", "12.5 kN (T)", "12.5 tension"}) {
    EXPECT_EQ(MarkOf("force 7", text).points, 1) << text;
  }
  for (const char* text : {"-30", "\u221230", "30 C", "-30 C", "30 kN compression", "C 30"}) {
    EXPECT_EQ(MarkOf("force 9", text).points, 1) << text;
  }
  for (const char* text : {"3 8", "8,3", "3; 8", "3 and 8", "members 3, 8"}) {
    EXPECT_EQ(MarkOf("zero-members", text).points, 1) << text;
  }
  for (const char* text : {"1", "indeterminate to 1", "statically indeterminate to degree 1"}) {
    EXPECT_EQ(MarkOf("determinacy", text).points, 1) << text;
  }
}

TEST_F(MarkingTest, ListsWhatCanNotBeRead) {
  for (const char* text : {"about 12", "-30 T", "12.5 apples", "?"}) {
    const Mark mark = MarkOf("force 7", text);
    EXPECT_EQ(mark.kind, MarkKind::Unreadable) << text;
    EXPECT_EQ(mark.points, 0);
    EXPECT_EQ(mark.slip, "can't be read");
  }
  const std::vector<Mark> marks = MarkAnswers(ReadKey(Key), {{5, "Ann", "force 7", "x"}}, {});
  EXPECT_THAT(UnreadableAnswers(marks),
              ElementsAre("Line 5: the answer \"x\" of \"Ann\" to \"force 7\" can't be read and gets no points"));
}

TEST_F(MarkingTest, NamesTheSlip) {
  EXPECT_EQ(MarkOf("force 7", "-12.5").slip, "T and C exchanged");
  EXPECT_EQ(MarkOf("force 7", "12500").slip, "N for kN");
  EXPECT_EQ(MarkOf("force 7", "-30").slip, "the answer to force 9");
  EXPECT_EQ(MarkOf("force 7", "25").slip, "twice the value");
  EXPECT_EQ(MarkOf("force 7", "6.25").slip, "half of the value");
  EXPECT_EQ(MarkOf("force 7", "17.25").slip, "the answer of the sheet of Bob");
  EXPECT_EQ(MarkOf("displacement 4y", "2.5").slip, "the sign");
  EXPECT_EQ(MarkOf("displacement 4y", "-0.0025").slip, "m for mm");
  EXPECT_EQ(MarkOf("zero-members", "3 7").slip, "not named: 8; not without force: 7");
  EXPECT_EQ(MarkOf("force 7", "99").slip, "");
  EXPECT_EQ(MarkOf("force 7", "").slip, "no answer");
}

TEST_F(MarkingTest, ForgivesTheSignWhereAsked) {
  const Mark mark = MarkOf("force 7", "12.5 C", true);
  EXPECT_EQ(mark.points, 1);
  EXPECT_EQ(mark.slip, "T and C exchanged");
  EXPECT_EQ(MarkOf("force 7", "12500", true).points, 0);
}

TEST_F(MarkingTest, ReadsTablesAsSpreadsheetsWriteThem) {
  const auto answers = ReadAnswers("\xEF\xBB\xBFStudent;Question;Answer\nAnn;force 7;12,5\n\nAnn;FORCE  9;\"-30,0\"\n");
  ASSERT_EQ(answers.size(), 2U);
  EXPECT_EQ(answers[1].line, 4);
  EXPECT_EQ(MarkAnswers(ReadKey(Key), answers, {})[1].points, 1);
  EXPECT_EQ(ReadAnswers("student,question,answer\nAnn,force 7,12,5\n")[0].answer, "12,5");
  EXPECT_EQ(ReadAnswers("id,answer,question,student\n1,\"12,5\",force 7,Ann,\n")[0].student, "Ann");
}

TEST_F(MarkingTest, TakesTheSeparatorThatASpreadsheetNames) {
  const auto key = ReadKey("sep=;\nstudent;question;answer;tolerance;unit\nAnn;force 7;-12,5;0,13;kN\n");
  const auto answers = ReadAnswers("sep=,\r\nstudent,question,answer\r\nAnn,force 7,\"-12,5\"\r\n");
  EXPECT_EQ(MarkAnswers(key, answers, {}).at(0).points, 1);
  EXPECT_EQ(FaultOfDoing([] { ReadAnswers("sep=;\nstudent;question;answer\nAnn;force 7;1;2\n"); }), "");
  EXPECT_EQ(FaultOfDoing([] { ReadKey("sep=;\nstudent;question;answer;tolerance;unit\nAnn;;1;0;\n"); }),
            "Line 3 of the key: student and question must be given");
}

TEST_F(MarkingTest, TakesNoKeyWithAQuestionTwice) {
  EXPECT_EQ(FaultOfDoing(
                [] { ReadKey("student,question,answer,tolerance,unit\nAnn,force 7,1,0,kN\nAnn,Force  7,2,0,kN\n"); }),
            "Line 3 of the key: the question \"Force  7\" of \"Ann\" is there twice");
}

// EA/L is 8 kN/mm.  Its matrix has zeros too, and signs that are easily mistaken.
TEST_F(MarkingTest, NamesTheSlipsOfAMatrix) {
  const auto key = ReadKey("student,question,answer,tolerance,unit\nAnn,k 2 11,8,0.08,kN/mm\n"
                           "Ann,k 2 12,0,0.008,kN/mm\nAnn,k 2 13,-8,0.08,kN/mm\nAnn,k 2 22,3,0.03,kN/mm\n");
  const auto slipOf = [&key](const std::string& question, const std::string& answer) {
    const auto answers = ReadAnswers("student,question,answer\nAnn," + question + "," + answer + "\n");
    for (const Mark& mark : MarkAnswers(key, answers, {})) {
      if (mark.question == question) return mark.slip;
    }
    return std::string();
  };
  EXPECT_EQ(slipOf("k 2 13", "8"), "the sign or the answer to k 2 11");
  EXPECT_EQ(slipOf("k 2 11", "0.008"), "m for mm in the length");
  EXPECT_EQ(slipOf("k 2 11", "8000"), "a factor of 1000 too much, as from m and mm mixed");
  EXPECT_EQ(slipOf("k 2 11", "3"), "the answer to k 2 22");
  EXPECT_EQ(slipOf("k 2 12", "3"), "the answer to k 2 22");
  EXPECT_EQ(slipOf("k 2 22", "3.01"), "");
}

TEST_F(MarkingTest, RefusesAKeyThatDoesNotFit) {
  const std::string head = "student,question,answer\n";
  EXPECT_EQ(Fault(Key, head + "Cid,force 7,1\n"),
            "Line 2 of the answers: the key has no student \"Cid\"; take the key of the same class set");
  EXPECT_EQ(
      Fault(Key, head + "Ann,force 8,1\n"),
      "Line 2 of the answers: the key has no question \"force 8\" for \"Ann\"; take the key of the same class set");
  EXPECT_EQ(Fault(Key, head + "Ann,force 7,1\nAnn,force  7,2\n"),
            "Line 3 of the answers: \"Ann\" has answered \"force  7\" before, in line 2");
  EXPECT_EQ(Fault(head, head), "The key has no column \"tolerance\": its first line must be "
                               "student,question,answer,tolerance,unit");
  EXPECT_EQ(Fault(Key, "student,answer\n"),
            "The table of answers has no column \"question\": its first line must be student,question,answer");
  EXPECT_EQ(Fault("", head), "The key is empty: its first line must be student,question,answer,tolerance,unit");
  EXPECT_EQ(Fault("student,question,answer,tolerance,unit\n", head), "The key has no answers");
  EXPECT_EQ(Fault("student,question,answer,tolerance,unit\nAnn,force 7,1,x,kN\n", head),
            "Line 2 of the key: \"x\" is no tolerance: write a number from 0 on");
  EXPECT_THAT(Fault("student,question,answer,tolerance,unit\nAnn,q,1,0,\nAnn,q,1,0,\n", head),
              HasSubstr("Line 3 of the key: the question \"q\" of \"Ann\" is there twice"));
}

TEST_F(MarkingTest, WritesMarksAndASummary) {
  const std::vector<Mark> marks = MarkAnswers(
      ReadKey(Key), {{2, "Ann", "force 7", "12.5"}, {3, "Bob", "force 7", "-17.25"}, {4, "Ann", "force 9", "30"}}, {});
  EXPECT_THAT(MarksCsv(marks), testing::StartsWith("student,question,points,slip\r\nAnn,force 7,1,\r\n"
                                                   "Ann,force 9,0,T and C exchanged\r\n"));
  EXPECT_EQ(SummaryOfClass(marks), "2 students: 1 of 10 points");
  const Grid summary = SummaryOfQuestions(marks);
  EXPECT_EQ(summary.Text(1, 0), "force 9"); // went wrong for both, and comes first in the key
  EXPECT_EQ(summary.Text(1, 3), "1");
  EXPECT_EQ(summary.Text(1, 4), "1");
  EXPECT_EQ(summary.Text(1, 5), "T and C exchanged (1)");
  EXPECT_EQ(summary.Text(5, 0), "force 7");
}

} // namespace
} // namespace strutwright
