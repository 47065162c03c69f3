#include "ClassFixture.h"
#include "modMoodle.h"

#include <iterator>
#include <map>
#include <regex>
#include <set>

#include <QXmlStreamReader>

namespace strutwright {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr const char* Png = "\x89PNG picture";

/// An element of the bank as a reader of XML sees it: its path, attributes and text.
struct Element {
  std::string path;
  std::map<std::string, std::string> attributes;
  std::string text;
};

std::vector<Element> ElementsOf(const std::string& xml) {
  QXmlStreamReader reader(QByteArray::fromStdString(xml));
  std::vector<Element> elements;
  std::vector<std::size_t> open;
  while (!reader.atEnd()) {
    reader.readNext();
    if (reader.isStartElement()) {
      Element element{open.empty() ? "" : elements[open.back()].path + "/", {}, ""};
      element.path += reader.name().toString().toStdString();
      for (const auto& each : reader.attributes()) {
        element.attributes[each.name().toString().toStdString()] = each.value().toString().toStdString();
      }
      open.push_back(elements.size());
      elements.push_back(element);
    } else if (reader.isCharacters()) {
      elements[open.back()].text += reader.text().toString().toStdString();
    } else if (reader.isEndElement()) {
      open.pop_back();
    }
  }
  EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
  return elements;
}

class MoodleTest : public ClassTest {
 protected:
  /// The bank of a plan with a picture that is none.
  static std::vector<Element> BankOf(const ClassPlan& plan, const std::string& category = "Set") {
    return ElementsOf(XmlOf(plan, category));
  }

  static std::string XmlOf(const ClassPlan& plan, const std::string& category = "Set") {
    std::string xml = MoodleBegin(category);
    for (const ClassVariant& variant : MakeVariants(plan)) {
      xml += MoodleQuestion(plan, variant, MoodleText(variant, 640, 300), Png);
    }
    return xml + MoodleEnd();
  }

  static std::vector<Element> At(const std::vector<Element>& elements, const std::string& path) {
    std::vector<Element> found;
    for (const Element& each : elements) {
      if (each.path == path) found.push_back(each);
    }
    return found;
  }

  static std::string QuestionOf(const ModelData& model, const std::string& ask) {
    return At(BankOf(PlanFor(SourceOf(model), 1, {}, {ask})), "quiz/question/questiontext/text").at(0).text;
  }
};

TEST_F(MoodleTest, IsACategoryAndAClozeQuestionForEachVariant) {
  const auto bank = BankOf(PrattPlan(3), "Set a/b");
  const auto questions = At(bank, "quiz/question");
  ASSERT_EQ(questions.size(), 4U);
  EXPECT_EQ(questions[0].attributes.at("type"), "category");
  for (int q = 1; q <= 3; ++q) EXPECT_EQ(questions[static_cast<std::size_t>(q)].attributes.at("type"), "cloze");
  EXPECT_EQ(At(bank, "quiz/question/category/text")[0].text, "$course$/top/Set a//b");
  EXPECT_EQ(At(bank, "quiz/question/name/text")[1].text, "s2");
  for (const char* path : {"quiz/question/generalfeedback/text", "quiz/question/penalty", "quiz/question/hidden"}) {
    EXPECT_EQ(At(bank, path).size(), 3U) << path;
  }
  EXPECT_EQ(At(bank, "quiz/question/questiontext")[0].attributes.at("format"), "html");
}

TEST_F(MoodleTest, HoldsTheDrawing) {
  const auto bank = BankOf(PrattPlan(1));
  const Element file = At(bank, "quiz/question/questiontext/file").at(0);
  EXPECT_EQ(file.attributes,
            (std::map<std::string, std::string>{{"name", "truss.png"}, {"path", "/"}, {"encoding", "base64"}}));
  EXPECT_EQ(QByteArray::fromBase64(QByteArray::fromStdString(file.text)).toStdString(), Png);
  EXPECT_THAT(At(bank, "quiz/question/questiontext/text")[0].text, HasSubstr("src=\"@@PLUGINFILE@@/truss.png\""));
}

/// The elements of Moodle's XML format that a bank of cloze questions has, with their attributes.
const std::map<std::string, std::set<std::string>> PublishedFormat{
    {"quiz", {}},
    {"quiz/question", {"type"}},
    {"quiz/question/category", {}},
    {"quiz/question/category/text", {}},
    {"quiz/question/info", {"format"}},
    {"quiz/question/info/text", {}},
    {"quiz/question/name", {}},
    {"quiz/question/name/text", {}},
    {"quiz/question/questiontext", {"format"}},
    {"quiz/question/questiontext/text", {}},
    {"quiz/question/questiontext/file", {"name", "path", "encoding"}},
    {"quiz/question/generalfeedback", {"format"}},
    {"quiz/question/generalfeedback/text", {}},
    {"quiz/question/penalty", {}},
    {"quiz/question/hidden", {}},
    {"quiz/question/idnumber", {}}};

TEST_F(MoodleTest, HasTheElementsAndAttributesOfThePublishedFormat) {
  for (const Element& each : BankOf(PrattPlan(2))) {
    ASSERT_TRUE(PublishedFormat.contains(each.path)) << each.path;
    std::set<std::string> attributes;
    for (const auto& [name, value] : each.attributes) attributes.insert(name);
    EXPECT_EQ(attributes, PublishedFormat.at(each.path)) << each.path;
  }
}

TEST_F(MoodleTest, IsUtf8WithTextsInCDataAndFilesInBase64) {
  const std::string xml = XmlOf(PrattPlan(2));
  EXPECT_THAT(xml, testing::StartsWith("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<quiz>\n"));
  EXPECT_THAT(xml, testing::EndsWith("</quiz>\n"));
  static const std::regex html(R"(<text><!\[CDATA\[<p>)");
  EXPECT_EQ(std::distance(std::sregex_iterator(xml.begin(), xml.end(), html), {}), 4); // questions and feedback
  static const std::regex file(
      R"(encoding="base64">([A-Za-z0-9+/]{4})*([A-Za-z0-9+/]{2}==|[A-Za-z0-9+/]{3}=)?</file>)");
  EXPECT_EQ(std::distance(std::sregex_iterator(xml.begin(), xml.end(), file), {}), 2);
}

// Embedded answers: {1:NUMERICAL:=ANSWER:TOLERANCE#FEEDBACK~%0%ANSWER:TOLERANCE#FEEDBACK} and
// {1:SHORTANSWER:=ANSWER~=ANSWER}.
TEST_F(MoodleTest, WritesEveryAnswerAsClozeQuestionsTakeIt) {
  const ClassPlan plan = PrattPlan(3);
  const std::string number = R"(-?[0-9.]+(e[-+]?[0-9]+)?)";
  const std::regex numerical(R"(\{1:NUMERICAL:=)" + number + ":" + number + "#Right(~%0%" + number + ":" + number +
                             R"(#Likely slip: [^{}~#]+)*\})");
  const std::regex shortAnswer(R"(\{1:SHORTANSWER:=(none|[0-9, ]+)(~=[0-9, ]+)*\})");
  static const std::regex answer(R"(\{[^}]*\})");
  for (const Element& each : At(BankOf(plan), "quiz/question/questiontext/text")) {
    std::size_t count = 0;
    for (std::sregex_iterator it(each.text.begin(), each.text.end(), answer), end; it != end; ++it, ++count) {
      EXPECT_TRUE(std::regex_match(it->str(), numerical) || std::regex_match(it->str(), shortAnswer)) << it->str();
    }
    EXPECT_EQ(count, MakeVariants(plan).front().questions.size());
  }
}

// A bar of 5 m that is pulled with 40 kN: the other end's reaction is -40 kN, the displacement 1 mm.
TEST_F(MoodleTest, HasAnswersWithTolerancesAndSlips) {
  const ModelData bar{{{0, 0, 0, 0, 3}, {5, 0, 40, 0, 1}}, {{1, 2}}};
  EXPECT_THAT(
      QuestionOf(bar, "forces:1"),
      HasSubstr("{1:NUMERICAL:=40:0.4#Right~%0%-40:0.4#Likely slip: T and C exchanged~%0%40000:400#Likely slip: "
                "N for kN~"));
  EXPECT_THAT(QuestionOf(bar, "reaction:1"), HasSubstr("{1:NUMERICAL:=-40:0.4#Right~%0%40:0.4#Likely slip: the sign~"));
  EXPECT_THAT(QuestionOf(bar, "displacement:2x"), HasSubstr("~%0%0.001:1e-05#Likely slip: m for mm~"));
  EXPECT_THAT(QuestionOf(bar, "determinacy"), HasSubstr("{1:NUMERICAL:=0:0#Right}"));
  EXPECT_THAT(QuestionOf(bar, "zero-members"), HasSubstr("{1:SHORTANSWER:=none}"));
}

// E A / L = 200 * 1000 / 5000 = 40 kN/mm.
TEST_F(MoodleTest, NamesTheSlipsOfAMatrix) {
  const ModelData bar{{{0, 0, 0, 0, 3}, {5, 0, 40, 0, 1}}, {{1, 2}}};
  EXPECT_THAT(QuestionOf(bar, "k:1"),
              HasSubstr("row 1x, column 1x: {1:NUMERICAL:=40:0.4#Right~%0%-40:0.4#Likely slip: the sign~%0%0.04:0.0004#"
                        "Likely slip: m for mm in the length~%0%40000:400#"));
}

TEST_F(MoodleTest, TakesListsOfMembersHoweverTheyAreParted) {
  const ModelData rhombus{{{0, 0, 0, 0, 3}, {4, 0, 0, 0, 3}, {2, 3, 0, -8, 0}, {5, 3, 0, 0, 0}},
                          {{1, 3}, {2, 3}, {2, 4}, {3, 4}}};
  EXPECT_THAT(QuestionOf(rhombus, "zero-members"), HasSubstr("{1:SHORTANSWER:=3 4~=3, 4~=3,4}"));
}

TEST_F(MoodleTest, GivesAZeroNoSlips) {
  const ModelData bar{{{0, 0, 0, 0, 3}, {5, 0, 40, 0, 1}}, {{1, 2}}};
  EXPECT_THAT(QuestionOf(bar, "reactions"),
              HasSubstr("Reaction at node 1 in y, positive upwards: {1:NUMERICAL:=0:0.04#Right} kN"));
}

TEST_F(MoodleTest, KeepsHostileNamesTexts) {
  ClassPlan plan = PrattPlan(1);
  plan.students = {"</text><b> & \"x\" {1:NUMERICAL:=1} ]]>"};
  plan.source.name = "a]]><script>.stw";
  const auto bank = BankOf(plan, "c]]></quiz>");
  EXPECT_EQ(At(bank, "quiz/question").size(), 2U);
  EXPECT_EQ(At(bank, "quiz/question/name/text")[0].text, plan.students[0]);
  const std::string text = At(bank, "quiz/question/questiontext/text")[0].text;
  EXPECT_THAT(text, Not(HasSubstr(plan.students[0])));
  EXPECT_THAT(At(bank, "quiz/question/generalfeedback/text")[0].text, HasSubstr("a]]&gt;&lt;script&gt;.stw"));
}

} // namespace
} // namespace strutwright
