#include "modMoodle.h"

#include "Markup.h"
#include "PreciseText.h"
#include "modHtml.h"
#include "modModelStore.h"
#include "modSheet.h"
#include "modSlips.h"

#include <cmath>
#include <cstddef>

namespace strutwright {

namespace {

constexpr int DigitsInMoodle = 6;
constexpr const char* PictureName = "truss.png";

/// A text that nothing in it can end.
std::string InCData(const std::string& text) {
  std::string parts;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool ends = text.compare(at, 3, "]]>") == 0;
    parts += ends ? "]]]]><![CDATA[" : std::string(1, text[at]);
    if (ends) ++at;
  }
  return "<![CDATA[" + parts + "]]>";
}

std::string TextElement(const std::string& text) { return "<text>" + EscapedMarkup(text) + "</text>"; }

/// A slash parts categories unless it is doubled.
std::string CategoryName(const std::string& name) {
  std::string path = "$course$/top/";
  for (const char c : name) path += c == '/' ? "//" : std::string(1, c);
  return path;
}

/// A text within an embedded answer, where some signs part its fields.
std::string InCloze(const std::string& text) {
  std::string escaped;
  for (const char c : text) {
    if (std::string("\\}~#/\"").find(c) != std::string::npos) escaped += '\\';
    escaped += c;
  }
  return escaped;
}

AnswerQuantity QuantityAsked(const Question& question) {
  switch (question.kind) {
  case AskKind::Force: return AnswerQuantity::MemberForce;
  case AskKind::Reaction: return AnswerQuantity::Force;
  case AskKind::Displacement: return AnswerQuantity::Length;
  case AskKind::Stiffness: return AnswerQuantity::Stiffness;
  default: return AnswerQuantity::Number;
  }
}

std::string NumberInMoodle(double value) { return PreciseText(value, DigitsInMoodle); }

/// {1:NUMERICAL:=12.5:0.13#Right~%0%-12.5:0.13#Likely slip: ...}; the first that fits counts.
std::string NumericalAnswer(const KeyedQuestion& keyed) {
  std::string answer = "{1:NUMERICAL:=" + keyed.answer + ":" + NumberInMoodle(keyed.tolerance) + "#Right";
  if (IsMeasured(keyed.question)) {
    for (const Slip& slip : GeneralSlips(keyed.value, QuantityAsked(keyed.question))) {
      if (std::fabs(slip.value - keyed.value) <= 2 * keyed.tolerance) continue;
      const double tolerance = keyed.tolerance * std::fabs(slip.value / keyed.value);
      answer += "~%0%" + NumberInMoodle(slip.value) + ":" + NumberInMoodle(tolerance) + "#" +
                InCloze("Likely slip: " + slip.name);
    }
  }
  return answer + "}";
}

std::string Replaced(std::string text, const std::string& blanksBy) {
  for (std::size_t at = text.find(' '); at != std::string::npos; at = text.find(' ', at + blanksBy.size())) {
    text.replace(at, 1, blanksBy);
  }
  return text;
}

std::string MembersAnswer(const KeyedQuestion& keyed) {
  std::string answer = "{1:SHORTANSWER:=" + keyed.answer;
  if (keyed.answer.find(' ') != std::string::npos) {
    answer += "~=" + Replaced(keyed.answer, ", ") + "~=" + Replaced(keyed.answer, ",");
  }
  return answer + "}";
}

std::string ClozeOf(const KeyedQuestion& keyed) {
  return keyed.question.kind == AskKind::ZeroMembers ? MembersAnswer(keyed) : NumericalAnswer(keyed);
}

std::string QuestionsHtml(const ClassVariant& variant) {
  std::string html;
  for (const KeyedQuestion& each : variant.questions) {
    const std::string unit = UnitOf(each.question);
    html += "<p>" + EscapedMarkup(TextOf(variant.model, each.question)) + ": " + ClozeOf(each) + " " + unit + "</p>\n";
  }
  return html;
}

std::string TableHtml(const WorkedTable& table) {
  std::vector<HtmlColumn> columns;
  for (const WorkedColumn& each : table.columns) columns.push_back({each.heading, each.isText});
  return HtmlTable(columns, table.rows);
}

} // namespace

std::string MoodleBegin(const std::string& category) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<quiz>\n  <question type=\"category\">\n    <category>\n      " +
         TextElement(CategoryName(category)) + "\n    </category>\n    <info format=\"html\">\n      " +
         TextElement("") + "\n    </info>\n    <idnumber></idnumber>\n  </question>\n";
}

std::string MoodleText(const ClassVariant& variant, int width, int height) {
  std::string html = "<p>All joints are pins, and all members weigh nothing. x is positive to the right and y upwards, "
                     "also of loads, reactions and displacements. A member force is positive in tension.</p>\n";
  html += "<p><img src=\"@@PLUGINFILE@@/" + std::string(PictureName) + "\" alt=\"The truss\" width=\"" +
          std::to_string(width) + "\" height=\"" + std::to_string(height) + "\"></p>\n";
  for (const WorkedTable& table : DataTables(variant.model)) html += TableHtml(table);
  return html + QuestionsHtml(variant);
}

std::string MoodleQuestion(const ClassPlan& plan, const ClassVariant& variant, const std::string& text,
                           const std::string& png) {
  const std::string feedback = "<p>" + EscapedMarkup(SetName(plan)) +
                               (variant.varied.empty() ? "" : ": " + EscapedMarkup(variant.varied)) + "</p>";
  return "  <question type=\"cloze\">\n    <name>\n      " + TextElement(variant.student) +
         "\n    </name>\n    <questiontext format=\"html\">\n      <text>" + InCData(text) +
         "</text>\n      <file name=\"" + PictureName + "\" path=\"/\" encoding=\"base64\">" + Base64(png) +
         "</file>\n    </questiontext>\n    <generalfeedback format=\"html\">\n      <text>" + InCData(feedback) +
         "</text>\n    </generalfeedback>\n    <penalty>0.3333333</penalty>\n    <hidden>0</hidden>\n"
         "    <idnumber></idnumber>\n  </question>\n";
}

std::string MoodleEnd() { return "</quiz>\n"; }

} // namespace strutwright
