#include "ClassFixture.h"
#include "modStudents.h"

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class StudentsTest : public ClassTest {
 protected:
  static std::string Fault(const std::string& list) {
    return FaultOfDoing([&list] { ReadStudents(list); });
  }
};

TEST_F(StudentsTest, AreTheFirstColumnOfAList) {
  EXPECT_THAT(ReadStudents("Ann\nBob\n"), ElementsAre("Ann", "Bob"));
  EXPECT_THAT(ReadStudents("\xEF\xBB\xBFStudent;Mail\r\nAnn;a@b\r\n\r\n;\r\nBob Bee;x"), ElementsAre("Ann", "Bob Bee"));
  EXPECT_THAT(ReadStudents("\xEF\xBB\xBFSEP=;\r\nname;mail\r\nLee, Ann;a@b\r\n"), ElementsAre("Lee, Ann"));
  EXPECT_THAT(ReadStudents("\"Lee, Ann\",7\n Bob ,8\n"), ElementsAre("Lee, Ann", "Bob"));
}

TEST_F(StudentsTest, MayHaveAnyNameThatAFolderCanHave) {
  const std::string name = "Zo\u00EB <b> & 'x' {1} $%#_^~ ]]>";
  EXPECT_THAT(ReadStudents(name + "\n"), ElementsAre(name));
}

TEST_F(StudentsTest, MustHaveNamesOfTheirOwn) {
  EXPECT_EQ(Fault("Ann\nBob\nann\n"), "Line 3 of the list: the name \"ann\" is there twice, in line 1 too; give each "
                                      "student a name of one's own");
}

TEST_F(StudentsTest, MustNotHaveNamesThatAreNoFolders) {
  const std::string advice = "; give each student a name of one's own that can be a folder's";
  EXPECT_EQ(Fault("..\n"), "Line 1 of the list: the name \"..\" means another folder" + advice);
  EXPECT_EQ(Fault("Ann\na/b\n"), "Line 2 of the list: the name \"a/b\" holds a slash, which parts folders" + advice);
  EXPECT_THAT(Fault("a\\b\n"), HasSubstr("holds a slash"));
  EXPECT_THAT(Fault(",x\n"), HasSubstr("is blank"));
  EXPECT_THAT(Fault("Ann,1\n ,2\n"), HasSubstr("Line 2 of the list: the name \"\" is blank"));
  EXPECT_THAT(Fault(".a\n"), HasSubstr("begins with a point"));
  EXPECT_THAT(Fault("a.\n"), HasSubstr("ends in a point"));
  EXPECT_THAT(Fault("a\x01\n"), HasSubstr("holds a sign that can't be printed"));
  EXPECT_THAT(Fault("\xFF\n"), HasSubstr("is not valid UTF-8"));
  EXPECT_THAT(Fault("Key.csv\n"), HasSubstr("is that of a file of the class set"));
  EXPECT_THAT(Fault(std::string(201, 'a')), HasSubstr("is longer than 200 bytes"));
  EXPECT_EQ(Fault(std::string(200, 'a')), "");
}

TEST_F(StudentsTest, MustBeSome) {
  EXPECT_EQ(Fault(""), "The list names no student: write a name a line");
  EXPECT_EQ(Fault("name\n"), "The list names no student: write a name a line");
  EXPECT_THAT(Fault("\"a\n"), HasSubstr("The list can't be read: Line 1: a quotation mark is not closed"));
}

TEST_F(StudentsTest, CanBeNumbers) {
  EXPECT_THAT(NumberedStudents(2), ElementsAre("student-01", "student-02"));
  EXPECT_EQ(NumberedStudents(100).front(), "student-001");
  EXPECT_EQ(FaultOfDoing([] { NumberedStudents(0); }), "The number of students must be 1 to 1000");
  EXPECT_EQ(FaultOfDoing([] { NumberedStudents(1001); }), "The number of students must be 1 to 1000");
}

} // namespace
} // namespace strutwright
