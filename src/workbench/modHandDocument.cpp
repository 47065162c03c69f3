#include "modHandDocument.h"

#include "HandTexts.h"
#include "modHandFigures.h"
#include "modSketch.h"

#include <cctype>
#include <cstddef>
#include <sstream>
#include <utility>
#include <vector>

namespace strutwright {

namespace {

constexpr int DocumentWidth = 640; // pixels
constexpr int TrussHeight = 320;
constexpr int JointHeight = 230;
constexpr int DiagramHeight = 420;
constexpr std::size_t MostFigures = 120; // of joints
constexpr std::size_t MostEquations = 400;

bool IsDigit(char letter) { return std::isdigit(static_cast<unsigned char>(letter)) != 0; }

bool IsNumber(const std::string& word) {
  const std::size_t first = word[0] == '-' ? 1 : 0;
  return word.size() > first && IsDigit(word[first]) && IsDigit(word.back());
}

bool IsForceName(const std::string& word) {
  return word.size() > 1 && (word[0] == 'F' || word[0] == 'R') && IsDigit(word[1]);
}

Formula FormulaOfWord(const std::string& word) {
  if (word.size() == 1 && std::string("+-=").find(word[0]) != std::string::npos) return SignOf(word);
  if (word == "*") return SignOf("·");
  if (IsNumber(word)) return NumberOf(word);
  const bool inBrackets = word.size() > 2 && word.front() == '(' && word.back() == ')';
  if (inBrackets && IsNumber(word.substr(1, word.size() - 2))) {
    return BracketsAround(NumberOf(word.substr(1, word.size() - 2)));
  }
  const bool isNegative = word.size() > 2 && word[0] == '-';
  if (isNegative && IsForceName(word.substr(1))) return RowOf({SignOf("-"), FormulaOfWord(word.substr(1))});
  if (IsForceName(word)) return IndexOf(SymbolOf(word.substr(0, 1)), WordsOf(word.substr(1)));
  return WordsOf(" " + word);
}

/// Adds blocks to a document.
class HandWriter {
 public:
  HandWriter(const HandLesson& lesson, WorkedDocument& document) : Lesson(lesson), Document(document) {}

  void WriteAll() {
    Heading(2, "The truss");
    for (const std::string& sentence : Lesson.Verdict()) Paragraph(sentence);
    Picture(TrussHeight, {{TrussFigure(Lesson.Truss(), HandForces(Lesson.Truss()), {})}});
    Paragraph("Tension is positive, and so are reactions to the right and upward.");
    WriteReactions();
    WriteZeros();
    WriteSteps();
    WriteDiagram();
    WriteForces();
  }

 private:
  void Heading(int level, const std::string& text) { Document.blocks.emplace_back(WorkedHeading{level, text}); }
  void Paragraph(const std::string& text) { Document.blocks.emplace_back(WorkedParagraph{text}); }
  void Line(const std::string& text) { Document.blocks.emplace_back(WorkedFormula{FormulaOfHand(text)}); }

  void Picture(int height, SketchSheet sheet) {
    Document.blocks.emplace_back(
        WorkedPicture{DocumentWidth, height, [sheet = std::move(sheet)](DrawingSurface& surface) {
                        DrawSheet(surface, PlaceSheet(sheet, surface));
                      }});
  }

  void Equations(const std::vector<HandEquation>& equations, const std::vector<std::string>& solution) {
    std::size_t written = 0;
    for (const HandEquation& equation : equations) {
      if (++written > MostEquations) break;
      Paragraph(equation.title + ":");
      Line(equation.text);
    }
    if (written > MostEquations) Paragraph("and so on, " + std::to_string(equations.size()) + " equations in all.");
    if (!solution.empty()) Paragraph("Hence:");
    for (const std::string& text : solution) Line(text);
  }

  void WriteReactions() {
    const ReactionsFirst& first = Lesson.Solution().reactions;
    Heading(2, "Reactions");
    if (!first.found) return Paragraph(first.whyNot + ".");
    Picture(TrussHeight, Lesson.Tell(HandTopic::FirstReactions, Lesson.LastStep(HandTopic::FirstReactions)).sheet);
    Equations(first.equations, first.solution);
  }

  void WriteZeros() {
    if (Lesson.Zeros().empty()) return;
    Heading(2, "Members without force");
    for (const ZeroMember& zero : Lesson.Zeros())
      Paragraph("Member " + std::to_string(zero.member) + ": " + zero.text + ".");
    Picture(TrussHeight, {{ZeroFigure(Lesson.Truss(), Lesson.Zeros(), Lesson.Zeros().size())}});
  }

  void WriteSteps() {
    Heading(2, "Joints");
    const std::vector<HandStep>& steps = Lesson.Solution().steps;
    for (std::size_t k = 0; k < steps.size(); ++k) {
      const HandStep& step = steps[k];
      const bool isJoint = step.kind == HandStepKind::Joint;
      Heading(3,
              "Step " + std::to_string(k + 1) + (isJoint ? ": joint " + std::to_string(step.body.nodes.front()) : ""));
      Paragraph(step.reason + ".");
      if (k < MostFigures) WriteFigure(step);
      Equations(step.equations, step.solution);
    }
  }

  void WriteFigure(const HandStep& step) {
    if (step.kind == HandStepKind::Together) return;
    Sketch body = BodyFigure(Lesson.Truss(), step.body);
    if (step.kind == HandStepKind::Section) return Picture(TrussHeight, {{std::move(body)}});
    Picture(JointHeight, {{std::move(body), 0, 0, 0.5, 1}, {PolygonFigure(step.body, step.polygon), 0.5, 0, 0.5, 1}});
  }

  void WriteDiagram() {
    Heading(2, "Force diagram");
    const ForceDiagram& diagram = Lesson.Diagram();
    if (!diagram.whyNot.empty()) return Paragraph(diagram.whyNot + ".");
    const HandTelling all = Lesson.Tell(HandTopic::ForceDiagram, Lesson.LastStep(HandTopic::ForceDiagram));
    Picture(DiagramHeight, all.sheet);
    for (const std::string& remark : all.remarks) Paragraph(remark);
  }

  void WriteForces() {
    Heading(2, "All forces");
    WorkedTable table;
    table.columns = {{"Member", false}, {"Force in kN", false}, {"", true}};
    const HandForces& forces = Lesson.Solution().forces;
    for (const HandMember& member : Lesson.Truss().members) {
      const double force = forces.members[static_cast<std::size_t>(member.number)];
      const bool isNone = force >= -Lesson.Truss().nothing && force <= Lesson.Truss().nothing;
      table.rows.push_back({std::to_string(member.number), isNone ? "0" : HandNumber(force),
                            isNone      ? ""
                            : force > 0 ? "tension"
                                        : "compression"});
    }
    Document.blocks.emplace_back(std::move(table));
  }

  const HandLesson& Lesson;
  WorkedDocument& Document;
};

} // namespace

Formula FormulaOfHand(const std::string& text) {
  std::vector<Formula> parts;
  std::istringstream words(text);
  for (std::string word; words >> word;) parts.push_back(FormulaOfWord(word));
  return RowOf(std::move(parts));
}

bool HasHandDocument(const HandLesson& lesson) {
  const HandSolution& solution = lesson.Solution();
  return solution.determinacy.IsDeterminate() && solution.stop.empty();
}

WorkedDocument HandDocument(const HandLesson& lesson, const std::string& name) {
  WorkedDocument document;
  document.title = "Worked solution by hand: " + name;
  HandWriter(lesson, document).WriteAll();
  return document;
}

} // namespace strutwright
