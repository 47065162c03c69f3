#include "CliTest.h"

#include <filesystem>
#include <string>
#include <vector>

#include <QImage>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class PictureTest : public CliTest {
 protected:
  /// The SVG of a model with these further options, drawn as described.
  std::string Svg(const std::string& model, const std::vector<std::string>& options = {}) {
    return SvgIn("described", model, options);
  }

  std::string SvgIn(const std::string& style, const std::string& model, const std::vector<std::string>& options = {}) {
    const std::string file = folder.Path("picture.svg");
    std::vector<std::string> arguments{"analyse", Reference(model), "--picture", file};
    if (style != "") arguments.insert(arguments.end(), {"--style", style});
    arguments.insert(arguments.end(), options.begin(), options.end());
    EXPECT_EQ(Run(arguments), 0) << err;
    return FileBytes(file);
  }

  int Depict(const std::string& model, const std::string& file) {
    return Run({"analyse", Reference(model), "--picture", folder.Path(file)});
  }

  QImage Picture(const std::string& file) const { return QImage(QString::fromStdString(folder.Path(file))); }
};

constexpr const char* RedStroke = "stroke=\"#ff0000\"";
constexpr const char* GreenStroke = "stroke=\"#00ff00\"";
constexpr const char* BlueStroke = "stroke=\"#0000ff\"";
constexpr const char* GreyStroke = "stroke=\"#808080\"";

TEST_F(PictureTest, IsMadeBesidesTheResults) {
  EXPECT_EQ(Run({"analyse", Reference("triangle")}), 0);
  const std::string results = out;
  EXPECT_EQ(Depict("triangle", "p.png"), 0);
  EXPECT_EQ(out, results);
  EXPECT_EQ(err, "");
  EXPECT_EQ(Picture("p.png").size(), QSize(1024, 768));
}

TEST_F(PictureTest, HasTheFormatOfItsName) {
  EXPECT_EQ(Depict("triangle", "p.tex"), 0);
  EXPECT_THAT(FileBytes(folder.Path("p.tex")), HasSubstr("papersize={768bp,576bp}"));
  EXPECT_THAT(FileBytes(folder.Path("p.tex")), HasSubstr("{\\trussfont{9}$-$")); // of a strut
  EXPECT_EQ(Depict("triangle", "p.bmp") + Depict("triangle", "p.png") + Depict("triangle", "p.svg"), 0);
  EXPECT_THAT(FileBytes(folder.Path("p.bmp")), StartsWith("BM"));
  EXPECT_THAT(FileBytes(folder.Path("p.png")), StartsWith("\x89PNG"));
  EXPECT_THAT(FileBytes(folder.Path("p.svg")), HasSubstr("<svg"));
}

TEST_F(PictureTest, ShowsEverything) {
  const std::string svg = Svg("triangle");
  for (const char* stroke : {RedStroke, GreenStroke, BlueStroke, GreyStroke}) EXPECT_THAT(svg, HasSubstr(stroke));
  for (const char* text : {">-10.0<", ">8.8<", ">-1.5<", ">5.8<"}) EXPECT_THAT(svg, HasSubstr(text));
}

TEST_F(PictureTest, IsClearUnlessTheDescribedDrawingIsAskedFor) {
  const std::string usual = SvgIn("", "triangle");
  EXPECT_EQ(SvgIn("clear", "triangle"), usual);
  EXPECT_THAT(usual, HasSubstr("T  tension, +"));
  EXPECT_THAT(usual, HasSubstr("10 kN"));
  EXPECT_THAT(usual, Not(HasSubstr(RedStroke)));
}

// The longest force of the triangle is its load of 10 kN.
TEST_F(PictureTest, FitsTheArrowsOfTheClearDrawing) {
  const std::string usual = SvgIn("", "triangle");
  EXPECT_THAT(usual, HasSubstr("load "));
  EXPECT_THAT(usual, Not(HasSubstr("longest cut")));
}

TEST_F(PictureTest, HasNoOtherStyle) {
  EXPECT_EQ(Run({"analyse", Reference("triangle"), "--picture", folder.Path("p.png"), "--style", "plain"}), 2);
  EXPECT_THAT(err, HasSubstr("\"plain\" is neither clear nor described"));
}

TEST_F(PictureTest, ShowsTheLayersThatAreNamed) {
  const std::string grid = Svg("triangle", {"--layers", "grid"});
  EXPECT_THAT(grid, HasSubstr(GreyStroke));
  for (const char* stroke : {RedStroke, GreenStroke, BlueStroke}) EXPECT_THAT(grid, Not(HasSubstr(stroke)));
  EXPECT_THAT(Svg("triangle", {"--layers", "forces,supports"}), HasSubstr(BlueStroke));
  const std::string loads = Svg("triangle", {"--layers", "loads"});
  EXPECT_THAT(loads, HasSubstr(">-10.0<"));
  EXPECT_THAT(loads, Not(HasSubstr(GreyStroke)));
  EXPECT_THAT(Svg("triangle", {"--layers", "reactions"}), HasSubstr(">8.8<"));
  EXPECT_THAT(Svg("triangle", {"--layers", "supports"}), HasSubstr(GreenStroke));
  EXPECT_THAT(Svg("triangle", {"--layers", "deflected"}), HasSubstr(RedStroke));
}

TEST_F(PictureTest, NumbersNodesAndMembersOnDemand) {
  EXPECT_THAT(Svg("triangle", {"--layers", "supports"}), Not(HasSubstr("<text")));
  EXPECT_THAT(Svg("triangle", {"--layers", "nodes"}), HasSubstr(">3<"));
  EXPECT_THAT(Svg("triangle", {"--layers", "members"}), HasSubstr(">3<"));
}

TEST_F(PictureTest, ScalesTheDeflectedShape) {
  const std::string usual = Svg("triangle", {"--layers", "deflected"});
  EXPECT_EQ(Svg("triangle", {"--layers", "deflected", "--deflection-scale", "100"}), usual);
  EXPECT_NE(Svg("triangle", {"--layers", "deflected", "--deflection-scale", "5000"}), usual);
}

TEST_F(PictureTest, HasTheSizeAskedFor) {
  EXPECT_EQ(Run({"analyse", Reference("triangle"), "--picture", folder.Path("p.png"), "--size", "320x200"}), 0);
  EXPECT_EQ(Picture("p.png").size(), QSize(320, 200));
}

TEST_F(PictureTest, ShowsAnUnstableModelWithoutResults) {
  EXPECT_EQ(Depict("mechanism_square", "p.svg"), 1);
  EXPECT_THAT(FileBytes(folder.Path("p.svg")), Not(HasSubstr(BlueStroke)));
}

TEST_F(PictureTest, ShowsTheGridOfAnEmptyModel) {
  const std::string file = folder.Path("p.svg");
  EXPECT_EQ(Run({"analyse", Reference("empty"), "--picture", file, "--style", "described"}), 1);
  EXPECT_THAT(FileBytes(file), HasSubstr(">9.0<"));
}

TEST_F(PictureTest, ReportsWhatCannotBeDrawn) {
  EXPECT_EQ(Depict("node_number_too_large", "p.png"), 1);
  EXPECT_THAT(err, HasSubstr("Drawing error: check the input data; table index 4,1"));
  EXPECT_TRUE(fs::exists(folder.Path("p.png")));
}

TEST_F(PictureTest, IsMadeOfEachModelUnderItsName) {
  const std::string file = folder.Path("p.v1.png");
  EXPECT_EQ(Run({"analyse", Reference("triangle"), Reference("fink_7"), "--picture", file}), 0);
  EXPECT_TRUE(fs::exists(folder.Path("p.v1-triangle.png")));
  EXPECT_TRUE(fs::exists(folder.Path("p.v1-fink_7.png")));
  EXPECT_EQ(folder.EntryCount(), 2);
}

TEST_F(PictureTest, IsNotMadeOfWhatCannotBeRead) {
  EXPECT_EQ(Run({"analyse", folder.Path("missing.stw"), "--picture", folder.Path("p.png")}), 2);
  EXPECT_EQ(folder.EntryCount(), 0);
}

TEST_F(PictureTest, ReportsWhyItCannotBeWritten) {
  EXPECT_EQ(Depict("triangle", "missing/p.png"), 2);
  const std::string model = Reference("triangle");
  EXPECT_EQ(err, model + ": Error while saving file " + folder.Path("missing/p.png") + "; No such file or directory\n");
  EXPECT_THAT(out, HasSubstr("MEMBERS"));
}

TEST_F(PictureTest, RefusesNonsense) {
  const std::vector<std::vector<std::string>> wrong{{"--size", "800"},
                                                    {"--size", "0x600"},
                                                    {"--size", "800x-600"},
                                                    {"--size", "15x600"},
                                                    {"--size", "800x8193"},
                                                    {"--size", "99999999999x9"},
                                                    {"--size", "800x600x3"},
                                                    {"--layers", "grid,frames"},
                                                    {"--layers", "Grid"},
                                                    {"--deflection-scale", "0.5"},
                                                    {"--deflection-scale", "5001"},
                                                    {"--deflection-scale", "nan"},
                                                    {"--deflection-scale", "much"}};
  for (std::vector<std::string> options : wrong) {
    options.insert(options.begin(), {"analyse", Reference("triangle"), "--picture", folder.Path("p.png")});
    EXPECT_EQ(Run(options), 2) << testing::PrintToString(options);
    EXPECT_EQ(out, "");
    EXPECT_FALSE(fs::exists(folder.Path("p.png")));
  }
}

TEST_F(PictureTest, NamesTheLayerThatItDoesNotKnow) {
  Run({"analyse", Reference("triangle"), "--picture", folder.Path("p.png"), "--layers", "grid,frames"});
  EXPECT_THAT(err, HasSubstr("\"frames\" is none of supports,loads,grid,"));
}

TEST_F(PictureTest, BelongsToEveryOptionAboutIt) {
  EXPECT_EQ(Run({"analyse", Reference("triangle"), "--size", "320x200"}), 2);
  EXPECT_EQ(Run({"analyse", Reference("triangle"), "--picture", ""}), 2);
}

} // namespace
} // namespace strutwright
