#include "SvgPicture.h"

#include "OffscreenApplication.h"
#include "StrokeFonts.h"

#include <clocale>
#include <set>
#include <string>
#include <vector>

#include <QByteArray>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QLocale>
#include <QSize>
#include <QString>
#include <QXmlStreamReader>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

constexpr QRgb RedInk = qRgb(255, 0, 0);
constexpr QRgb GreenInk = qRgb(0, 128, 0);

struct Element {
  QString name;
  QXmlStreamAttributes own;
  QXmlStreamAttributes around; ///< of what it stands in
  QString text;

  std::string Value(const char* attribute) const {
    const QLatin1String key(attribute);
    return (own.hasAttribute(key) ? own : around).value(key).toString().toStdString();
  }
};

/// The lines, areas and texts of a picture without its ground, which is the first of them.
std::vector<Element> ElementsOf(const std::string& svg) {
  std::vector<Element> elements;
  QXmlStreamAttributes group;
  QXmlStreamReader reader(QByteArray::fromStdString(svg));
  while (!reader.atEnd()) {
    if (reader.readNext() != QXmlStreamReader::StartElement) continue;
    const QString name = reader.name().toString();
    if (name == "g") group = reader.attributes();
    if (name == "svg" || name == "title" || name == "g") continue;
    const QXmlStreamAttributes own = reader.attributes();
    elements.push_back({name, own, group, reader.readElementText()});
  }
  EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString() << '\n' << svg;
  if (!elements.empty()) elements.erase(elements.begin());
  return elements;
}

std::vector<std::string> Names(const std::vector<Element>& elements) {
  std::vector<std::string> names;
  for (const Element& each : elements) names.push_back(each.name.toStdString());
  return names;
}

class SvgPictureTest : public testing::Test {
 protected:
  static std::string Svg(const std::vector<Stroke>& strokes) { return SvgPicture(strokes, QSize(80, 60)); }

  static Element Only(const Stroke& stroke) {
    const std::vector<Element> elements = ElementsOf(Svg({stroke}));
    EXPECT_EQ(elements.size(), 1U);
    return elements.empty() ? Element{} : elements.front();
  }

  /// What the file says of a text, its halo left out.
  static Element TextOf(const Stroke& stroke) {
    const std::vector<Element> elements = ElementsOf(Svg({stroke}));
    EXPECT_FALSE(elements.empty());
    return elements.empty() ? Element{} : elements.back();
  }

  static std::string LookOfLine(const PenLook& pen, const char* attribute) {
    return Only(LineStroke{{1, 2, 3, 4}, pen}).Value(attribute);
  }

  OffscreenApplication application;
};

LabelStroke LabelAlong(const QPointF& along) { return {{40, 30}, along, "\u221210 kN", RedInk, 12, {}, 0}; }

TEST_F(SvgPictureTest, IsAsLargeAsItsPixelsOnWhite) {
  const std::string svg = Svg({});
  EXPECT_THAT(svg, StartsWith("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\""));
  EXPECT_THAT(svg, HasSubstr(" width=\"80\" height=\"60\" viewBox=\"0 0 80 60\""));
  EXPECT_THAT(svg, HasSubstr("<title>Strutwright</title>\n<g fill=\"#ffffff\">\n"
                             "<rect x=\"0\" y=\"0\" width=\"80\" height=\"60\"/>\n</g>\n</svg>\n"));
  EXPECT_THAT(ElementsOf(svg), IsEmpty());
}

TEST_F(SvgPictureTest, HasALineWithItsPen) {
  const Element line = Only(LineStroke{{1, 2, 30.5, 4.126}, {RedInk, 1.4}});
  EXPECT_EQ(line.name, "polyline");
  EXPECT_EQ(line.Value("points"), "1,2 30.5,4.13");
  EXPECT_EQ(line.Value("fill"), "none");
  EXPECT_EQ(line.Value("stroke"), "#ff0000");
  EXPECT_EQ(line.Value("stroke-width"), "1.4");
  EXPECT_EQ(line.Value("stroke-linecap"), "square");
  EXPECT_EQ(line.Value("stroke-dasharray"), "");
}

TEST_F(SvgPictureTest, DashesALineByItsWidthAndEndsItFlat) {
  const PenLook pen{RedInk, 1.5, true};
  EXPECT_EQ(LookOfLine(pen, "stroke-dasharray"), "6,3");
  EXPECT_EQ(LookOfLine(pen, "stroke-linecap"), "");
}

TEST_F(SvgPictureTest, DrawsThePenWithoutAWidthOnePixelWide) {
  EXPECT_EQ(LookOfLine({RedInk, 0}, "stroke-width"), "1");
  EXPECT_EQ(LookOfLine({RedInk, 0, true}, "stroke-dasharray"), "4,2");
}

TEST_F(SvgPictureTest, LeavesACircleEmptyOrFillsIt) {
  const Element empty = Only(CircleStroke{{10, 20, 8, 8}, {RedInk, 2}, {}});
  EXPECT_EQ(empty.name, "circle");
  EXPECT_EQ(empty.Value("cx") + ' ' + empty.Value("cy") + ' ' + empty.Value("r"), "14 24 4");
  EXPECT_EQ(empty.Value("fill") + ' ' + empty.Value("stroke"), "none #ff0000");
  EXPECT_EQ(Only(CircleStroke{{10, 20, 8, 8}, {RedInk, 2}, GreenInk}).Value("fill"), "#008000");
}

TEST_F(SvgPictureTest, HasAnEllipseWhereAWindowIsStretched) {
  const Element ellipse = Only(CircleStroke{{10, 20, 8, 6}, {RedInk, 2}, {}});
  EXPECT_EQ(ellipse.name, "ellipse");
  EXPECT_EQ(ellipse.Value("rx") + ' ' + ellipse.Value("ry"), "4 3");
}

TEST_F(SvgPictureTest, FillsABoxWithoutAnEdge) {
  const Element box = Only(BoxStroke{{1, 2, 30.25, 4}, GreenInk});
  EXPECT_EQ(box.name, "rect");
  EXPECT_EQ(box.Value("x") + ' ' + box.Value("y") + ' ' + box.Value("width") + ' ' + box.Value("height"),
            "1 2 30.25 4");
  EXPECT_EQ(box.Value("fill") + '/' + box.Value("stroke"), "#008000/");
}

TEST_F(SvgPictureTest, HasADotWithItsEdge) {
  const Element dot = Only(DotStroke{{10, 20}, 3.5, {RedInk, 1.4}, GreenInk});
  EXPECT_EQ(dot.name, "circle");
  EXPECT_EQ(dot.Value("r"), "3.5");
  EXPECT_EQ(dot.Value("fill") + ' ' + dot.Value("stroke"), "#008000 #ff0000");
}

TEST_F(SvgPictureTest, FillsAPolygonWithoutAnEdge) {
  const Element polygon = Only(PolygonStroke{QPolygonF({{1, 2}, {3, 4.5}, {-5, 6}}), GreenInk});
  EXPECT_EQ(polygon.name, "polygon");
  EXPECT_EQ(polygon.Value("points"), "1,2 3,4.5 -5,6");
  EXPECT_EQ(polygon.Value("fill") + '/' + polygon.Value("stroke"), "#008000/");
}

TEST_F(SvgPictureTest, BeginsATextBelowItsCorner) {
  const Element text = TextOf(TextStroke{{10, 20}, "1.5", RedInk, true});
  EXPECT_EQ(text.text, "1.5");
  EXPECT_EQ(text.Value("x"), "10");
  EXPECT_NEAR(std::stod(text.Value("y")), 20 + QFontMetricsF(TextFont()).ascent(), 0.006);
  EXPECT_EQ(text.Value("font-size") + ' ' + text.Value("fill"), "13 #ff0000");
}

TEST_F(SvgPictureTest, LaysATextOnAHaloOfItsOwnShape) {
  const std::vector<Element> elements = ElementsOf(Svg({TextStroke{{10, 20}, "1.5", RedInk, true}}));
  ASSERT_THAT(Names(elements), ElementsAre("use", "text"));
  EXPECT_EQ(elements[0].Value("xlink:href"), "#" + elements[1].Value("id"));
  EXPECT_EQ(elements[0].Value("stroke") + ' ' + elements[0].Value("stroke-width"), "#ffffff 3");
  EXPECT_EQ(elements[0].Value("fill"), "#ffffff");
  EXPECT_FALSE(elements[1].own.hasAttribute("fill")); // or its halo would have its colour
}

// Pasted into one web page they would take each other's texts for their halos.
TEST_F(SvgPictureTest, SharesNoIdWithAnotherPicture) {
  const auto idIn = [](const std::string& text) {
    return ElementsOf(Svg({TextStroke{{10, 20}, text, RedInk, true}}))[1].Value("id");
  };
  EXPECT_NE(idIn("1.5"), idIn("2.5"));
  EXPECT_EQ(idIn("1.5"), idIn("1.5")); // the same picture has the same bytes
  EXPECT_THAT(idIn("1.5"), StartsWith("t"));
}

TEST_F(SvgPictureTest, LaysATextWithoutAHaloOnAWhiteBox) {
  const std::vector<Element> elements = ElementsOf(Svg({TextStroke{{10, 20}, "1.5", RedInk, false}}));
  ASSERT_THAT(Names(elements), ElementsAre("rect", "text"));
  EXPECT_EQ(elements[0].Value("x") + ' ' + elements[0].Value("y"), "10 20");
  EXPECT_NEAR(std::stod(elements[0].Value("width")), QFontMetricsF(TextFont()).horizontalAdvance("1.5"), 0.006);
  EXPECT_EQ(elements[0].Value("fill"), "#ffffff");
}

TEST_F(SvgPictureTest, SetsALabelAboutItsCentre) {
  const Element label = TextOf(LabelAlong({1, 0}));
  const QFontMetricsF metrics(LabelFont(12));
  EXPECT_EQ(label.text.toStdString(), "\u221210 kN");
  EXPECT_NEAR(std::stod(label.Value("x")), 40 - metrics.horizontalAdvance(label.text) / 2, 0.006);
  EXPECT_NEAR(std::stod(label.Value("y")), 30 + metrics.capHeight() / 2, 0.006);
  EXPECT_EQ(label.Value("font-size") + '/' + label.Value("transform"), "12/");
}

TEST_F(SvgPictureTest, TurnsALabelAboutItsCentre) {
  EXPECT_EQ(TextOf(LabelAlong({0.6, -0.8})).Value("transform"), "translate(40,30)rotate(-53.13)");
  EXPECT_EQ(TextOf(LabelAlong({0, 1})).Value("transform"), "translate(40,30)rotate(90)");
  EXPECT_NEAR(std::stod(TextOf(LabelAlong({0, 1})).Value("y")), QFontMetricsF(LabelFont(12)).capHeight() / 2, 0.006);
}

TEST_F(SvgPictureTest, FramesALabelInABoxInsteadOfAHalo) {
  LabelStroke label = LabelAlong({1, 0});
  label.box = {50, 16};
  label.frame = GreenInk;
  const std::vector<Element> elements = ElementsOf(Svg({label}));
  ASSERT_THAT(Names(elements), ElementsAre("rect", "text"));
  EXPECT_EQ(elements[0].Value("x") + ' ' + elements[0].Value("y"), "15 22");
  EXPECT_EQ(elements[0].Value("rx"), "2");
  EXPECT_EQ(elements[0].Value("stroke") + ' ' + elements[0].Value("stroke-width"), "#008000 1");
  EXPECT_EQ(elements[0].Value("fill"), "#ffffff");
}

TEST_F(SvgPictureTest, NamesEachTextOnce) {
  const std::vector<Stroke> strokes(5, TextStroke{{10, 20}, "1.5", RedInk, true});
  std::set<std::string> ids;
  for (const Element& each : ElementsOf(Svg(strokes))) {
    if (each.name == "text") ids.insert(each.Value("id"));
  }
  EXPECT_EQ(ids.size(), strokes.size());
}

TEST_F(SvgPictureTest, EscapesWhatMeansSomethingToXml) {
  EXPECT_THAT(Svg({TextStroke{{}, "a<b & \"c\">", RedInk, true}}), HasSubstr(">a&lt;b &amp; &quot;c&quot;&gt;<"));
  EXPECT_EQ(TextOf(TextStroke{{}, "a<b & \"c\">", RedInk, true}).text, "a<b & \"c\">");
}

TEST_F(SvgPictureTest, ReplacesWhatXmlCannotHold) {
  EXPECT_EQ(TextOf(TextStroke{{},
                              "a\x01"
                              "b\x1F"
                              "c\td",
                              RedInk,
                              true})
                .text,
            "a b c d");
  EXPECT_EQ(TextOf(TextStroke{{}, "a\xFFz", RedInk, true}).text, QString("a\uFFFDz"));
}

TEST_F(SvgPictureTest, KeepsBlanksNextToEachOther) {
  EXPECT_THAT(Svg({}), HasSubstr(" xml:space=\"preserve\""));
  EXPECT_THAT(Svg({TextStroke{{}, "T  tension", RedInk, true}}), HasSubstr(">T  tension<"));
}

TEST_F(SvgPictureTest, NamesTheFontOfTheScreenAndOneForMachinesWithoutIt) {
  const std::string family = QFontInfo(TextFont()).family().toStdString();
  EXPECT_THAT(Svg({}), HasSubstr(" font-family=\"" + family + ", sans-serif\""));
}

TEST_F(SvgPictureTest, GroupsWhatFollowsEachOtherAndLooksAlike) {
  const LineStroke red{{1, 2, 3, 4}, {RedInk, 1}};
  const LineStroke green{{1, 2, 3, 4}, {GreenInk, 1}};
  const auto groups = [](const std::string& svg) { return QString::fromStdString(svg).count("<g "); };
  EXPECT_EQ(groups(Svg({red, red, red})), 2); // and the ground
  EXPECT_EQ(groups(Svg({red, green, red})), 4);
}

TEST_F(SvgPictureTest, KeepsTheOrderOfWhatIsDrawn) {
  const std::vector<Stroke> strokes{DotStroke{{1, 2}, 3, {RedInk, 1}, GreenInk}, LineStroke{{1, 2, 3, 4}, {RedInk, 1}},
                                    TextStroke{{}, "a", RedInk, false}, BoxStroke{{1, 2, 3, 4}, GreenInk}};
  EXPECT_THAT(Names(ElementsOf(Svg(strokes))), ElementsAre("circle", "polyline", "rect", "text", "rect"));
}

TEST_F(SvgPictureTest, IsTheSameInEveryLocale) {
  const std::vector<Stroke> strokes{LineStroke{{1.5, 2.25, 12345.678, 4}, {RedInk, 1.4}}, LabelAlong({0.6, -0.8})};
  const std::string before = Svg(strokes);
  const std::string locale = std::setlocale(LC_ALL, nullptr);
  for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "German_Germany"}) std::setlocale(LC_ALL, name);
  QLocale::setDefault(QLocale(QLocale::German));
  const std::string after = Svg(strokes);
  QLocale::setDefault(QLocale::c());
  std::setlocale(LC_ALL, locale.c_str());
  EXPECT_EQ(after, before);
  EXPECT_THAT(after, Not(HasSubstr("12345,")));
}

} // namespace
} // namespace strutwright
