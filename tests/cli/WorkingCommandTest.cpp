#include "CliTest.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class WorkingCommandTest : public CliTest {
 protected:
  int Write(const std::string& model, const std::string& file) {
    return Run({"analyse", Reference(model), "--working", folder.Path(file)});
  }
};

TEST_F(WorkingCommandTest, HasTheFormatOfItsName) {
  EXPECT_EQ(Write("triangle", "w.html") + Write("triangle", "w.PDF") + Write("triangle", "w.tex"), 0) << err;
  EXPECT_THAT(FileBytes(folder.Path("w.html")), HasSubstr("<h1>Worked solution: triangle.stw</h1>"));
  EXPECT_THAT(FileBytes(folder.Path("w.PDF")), StartsWith("%PDF-"));
  EXPECT_THAT(FileBytes(folder.Path("w.tex")), HasSubstr("\\begin{tikzpicture}"));
  EXPECT_EQ(err, "");
}

TEST_F(WorkingCommandTest, IsWrittenBesidesTheResults) {
  EXPECT_EQ(Run({"analyse", Reference("triangle")}), 0);
  const std::string results = out;
  EXPECT_EQ(Write("triangle", "w.tex"), 0);
  EXPECT_EQ(out, results);
}

TEST_F(WorkingCommandTest, EndsWithWhatKeepsAMechanismFromBeingSolved) {
  EXPECT_EQ(Write("mechanism_square", "w.tex"), 1);
  EXPECT_THAT(FileBytes(folder.Path("w.tex")), HasSubstr("something can move without any member resisting it"));
}

TEST_F(WorkingCommandTest, IsNamedAfterEachOfSeveralModels) {
  EXPECT_EQ(Run({"analyse", Reference("triangle"), Reference("fink_7"), "--working", folder.Path("w.tex")}), 0);
  EXPECT_THAT(FileBytes(folder.Path("w-triangle.tex")), HasSubstr("Worked solution: triangle.stw"));
  EXPECT_THAT(FileBytes(folder.Path("w-fink_7.tex")), HasSubstr("Worked solution: fink\\_7.stw"));
}

TEST_F(WorkingCommandTest, TakesNoOtherEndingAndNoNameTwice) {
  EXPECT_EQ(Write("triangle", "w.txt"), 2);
  EXPECT_THAT(err, HasSubstr("does not end in .pdf, .html or .tex"));
  const std::string file = folder.Path("w.html");
  EXPECT_EQ(Run({"analyse", Reference("triangle"), "--working", file, "--report", file}), 2);
  EXPECT_THAT(err, HasSubstr("the picture or the report has the same name"));
}

TEST_F(WorkingCommandTest, ReportsThatItCannotBeWritten) {
  EXPECT_EQ(Write("triangle", "missing/w.html"), 2);
  EXPECT_THAT(err, HasSubstr("Error while saving file "));
}

} // namespace
} // namespace strutwright
