#include "CliTest.h"
#include "PathSpelling.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class ReportCommandTest : public CliTest {
 protected:
  int Write(const std::string& model, const std::string& file) {
    return Run({"analyse", Reference(model), "--report", folder.Path(file)});
  }

  /// A report without its picture: what a process has printed before changes the edges of Qt's letters by a shade.
  std::string Words(const std::string& file) const {
    std::string html = FileBytes(folder.Path(file));
    const std::size_t begin = html.find("base64,");
    return html.erase(begin, html.find('"', begin) - begin);
  }
};

TEST_F(ReportCommandTest, IsWrittenBesidesTheResults) {
  EXPECT_EQ(Run({"analyse", Reference("triangle")}), 0);
  const std::string results = out;
  EXPECT_EQ(Write("triangle", "r.html"), 0);
  EXPECT_EQ(out, results);
  EXPECT_EQ(err, "");
  EXPECT_EQ(folder.EntryCount(), 1);
}

TEST_F(ReportCommandTest, IsDrawnClearUnlessTheDescribedStyleIsNamed) {
  EXPECT_EQ(Write("triangle", "r.html"), 0);
  EXPECT_THAT(FileBytes(folder.Path("r.html")), HasSubstr("T is tension, blue"));
  const std::string file = folder.Path("d.html");
  EXPECT_EQ(Run({"analyse", Reference("triangle"), "--report", file, "--style", "described"}), 0) << err;
  EXPECT_THAT(FileBytes(file), HasSubstr("Blue: member forces in kN"));
}

TEST_F(ReportCommandTest, NamesWhatAStyleIsFor) {
  EXPECT_EQ(Run({"analyse", Reference("triangle"), "--style", "clear"}), 2);
  EXPECT_THAT(err, HasSubstr("--style requires --picture or --report"));
}

TEST_F(ReportCommandTest, HasTheFormatOfItsName) {
  EXPECT_EQ(Write("triangle", "r.html") + Write("triangle", "r.PDF"), 0);
  EXPECT_THAT(FileBytes(folder.Path("r.html")), HasSubstr("<h1>Truss report: triangle.stw</h1>"));
  EXPECT_THAT(FileBytes(folder.Path("r.PDF")), StartsWith("%PDF-"));
}

TEST_F(ReportCommandTest, HoldsADrawing) {
  EXPECT_EQ(Write("triangle", "r.html"), 0);
  EXPECT_THAT(FileBytes(folder.Path("r.html")), HasSubstr("data:image/png;base64,iVBORw0KGgo")); // how a PNG begins
}

TEST_F(ReportCommandTest, DoesNotDependOnThePictureAskedFor) {
  EXPECT_EQ(Write("triangle", "r.html"), 0);
  EXPECT_EQ(Run({"analyse", Reference("triangle"), "--report", folder.Path("s.html"), "--picture", folder.Path("p.png"),
                 "--layers", "grid", "--deflection-scale", "5"}),
            0);
  EXPECT_EQ(Words("r.html"), Words("s.html"));
}

TEST_F(ReportCommandTest, TakesNoOtherEnding) {
  for (const char* name : {"r.txt", "r", "r.html.bak", ""}) {
    EXPECT_EQ(Run({"analyse", Reference("triangle"), "--report", name}), 2) << name;
    EXPECT_THAT(err, HasSubstr("\"" + std::string(name) + "\" does not end in .pdf or .html"));
    EXPECT_EQ(out, "");
  }
}

TEST_F(ReportCommandTest, IsWrittenOfASupportWithoutAMember) {
  EXPECT_EQ(Write("one_node_fixed", "r.pdf"), 0);
  EXPECT_THAT(FileBytes(folder.Path("r.pdf")), StartsWith("%PDF-"));
}

TEST_F(ReportCommandTest, IsNotWrittenWithoutResults) {
  for (const char* model : {"mechanism_square", "empty", "node_number_too_large"}) {
    EXPECT_EQ(Write(model, "r.pdf"), 1) << model;
    EXPECT_THAT(err, HasSubstr("No report is written, because there are no results\n"));
  }
  EXPECT_EQ(folder.EntryCount(), 0);
}

TEST_F(ReportCommandTest, IsNotWrittenOfWhatCannotBeRead) {
  EXPECT_EQ(Run({"analyse", folder.Path("missing.stw"), "--report", folder.Path("r.pdf")}), 2);
  EXPECT_EQ(folder.EntryCount(), 0);
}

TEST_F(ReportCommandTest, ReportsThatAFileCannotBeWritten) {
  EXPECT_EQ(Write("triangle", "missing/r.html"), 2);
  EXPECT_THAT(err, HasSubstr("Error while saving file " + folder.Path("missing/r.html") + "; "));
  EXPECT_THAT(out, HasSubstr("triangle.stw: ok"));
}

TEST_F(ReportCommandTest, IsWrittenOfEachModelUnderItsName) {
  EXPECT_EQ(Run({"analyse", Reference("triangle"), Reference("fink_7"), "--report", folder.Path("r.html")}), 0);
  EXPECT_THAT(FileBytes(folder.Path("r-triangle.html")), HasSubstr("<h1>Truss report: triangle.stw</h1>"));
  EXPECT_THAT(FileBytes(folder.Path("r-fink_7.html")), HasSubstr("<h1>Truss report: fink_7.stw</h1>"));
  EXPECT_EQ(folder.EntryCount(), 2);
}

TEST_F(ReportCommandTest, IsNotWrittenOverThePicture) {
  const std::string asked = folder.Path("z.html");
  std::vector<std::string> pictures{asked, folder.Path("./z.html"), folder.Path("x/../z.html")};
  if (HasBackslashPaths) pictures.push_back(folder.Path("Z.HTML"));
  for (const std::string& picture : pictures) {
    EXPECT_EQ(Run({"analyse", Reference("triangle"), "--picture", picture, "--report", asked}), 2) << picture;
    EXPECT_THAT(err, HasSubstr("--report: the picture has the same name")) << picture;
    EXPECT_EQ(out, "");
  }
  EXPECT_EQ(folder.EntryCount(), 0);
  EXPECT_EQ(Run({"analyse", Reference("triangle"), "--picture", folder.Path("y.html"), "--report", asked}), 0);
}

TEST_F(ReportCommandTest, StandsInTheHelp) {
  EXPECT_EQ(Run({"analyse", "--help"}), 0);
  EXPECT_THAT(out, HasSubstr("--report FILE"));
}

} // namespace
} // namespace strutwright
