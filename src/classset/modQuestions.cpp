#include "modQuestions.h"

#include "ClassFault.h"
#include "ClassTexts.h"
#include "modModelStore.h"
#include "modNumberText.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

namespace strutwright {

namespace {

constexpr int MatrixRows = 4;

struct AskName {
  std::string_view name;
  AskKind kind;
};

constexpr std::array<AskName, 11> AskNames{{{"forces", AskKind::Force},
                                            {"force", AskKind::Force},
                                            {"reactions", AskKind::Reaction},
                                            {"reaction", AskKind::Reaction},
                                            {"displacement", AskKind::Displacement},
                                            {"displacements", AskKind::Displacement},
                                            {"zero-members", AskKind::ZeroMembers},
                                            {"zero-member", AskKind::ZeroMembers},
                                            {"determinacy", AskKind::Determinacy},
                                            {"k", AskKind::Stiffness},
                                            {"K", AskKind::Stiffness}}};

constexpr const char* AsksThereAre = "forces:7,9, reactions, displacement:4y, zero-members, determinacy or k:2";

bool IsOfNodes(AskKind kind) { return kind == AskKind::Reaction || kind == AskKind::Displacement; }
bool IsOfMembers(AskKind kind) { return kind == AskKind::Force || kind == AskKind::Stiffness; }

[[noreturn]] void RefuseAsk(const std::string& text) {
  throw ClassFault(InQuotes(text) + " is nothing to ask for: choose " + AsksThereAre);
}

AskKind KindNamed(std::string_view name, const std::string& whole) {
  const auto found =
      std::find_if(AskNames.begin(), AskNames.end(), [name](const AskName& each) { return each.name == name; });
  if (found == AskNames.end()) RefuseAsk(whole);
  return found->kind;
}

/// "7", "4y", "1-5".
void ReadItems(Ask& ask, std::string_view part, const std::string& whole) {
  char direction = ' ';
  if (IsOfNodes(ask.kind) && (part.ends_with('x') || part.ends_with('y'))) {
    direction = part.back();
    part.remove_suffix(1);
  }
  const std::size_t dash = part.find('-');
  const std::optional<int> first = WholeNumber(part.substr(0, dash));
  const std::optional<int> last = dash == std::string_view::npos ? first : WholeNumber(part.substr(dash + 1));
  constexpr int Most = 32767;
  if (!first || !last || *first < 1 || *last < *first || *last > Most) RefuseAsk(whole);
  for (int number = *first; number <= *last; ++number) ask.items.push_back({number, direction});
}

bool HoldsIn(const StoredModel& model, int node, char direction) {
  const float code = model.nodes(node, NodeSupport);
  return code != 0 && code != (direction == 'x' ? 1.0F : 2.0F);
}

void AddOnce(std::vector<Question>& questions, const Question& question) {
  if (std::find(questions.begin(), questions.end(), question) == questions.end()) questions.push_back(question);
}

std::string ThereIsNo(const char* what, int number, int count) {
  return std::string("There is no ") + what + " " + std::to_string(number) + ": choose one from 1 to " +
         std::to_string(count);
}

std::string Place(int number, char direction) { return std::to_string(number) + direction; }

void AddOfNode(std::vector<Question>& questions, const StoredModel& model, AskKind kind, const Ask::Item& item) {
  if (item.number > model.nodeCount) throw ClassFault(ThereIsNo("node", item.number, model.nodeCount));
  bool any = false;
  for (const char direction : {'x', 'y'}) {
    if (item.direction != ' ' && item.direction != direction) continue;
    if (kind == AskKind::Reaction && !HoldsIn(model, item.number, direction)) continue;
    AddOnce(questions, {kind, item.number, direction});
    any = true;
  }
  if (any) return;
  throw ClassFault("No support holds node " + std::to_string(item.number) +
                   (item.direction == ' ' ? "" : std::string(" in ") + item.direction) +
                   ": ask for a reaction that there is");
}

void AddOfMember(std::vector<Question>& questions, const StoredModel& model, AskKind kind, int member) {
  if (member > model.memberCount) throw ClassFault(ThereIsNo("member", member, model.memberCount));
  if (kind == AskKind::Force) return AddOnce(questions, {kind, member});
  for (int row = 1; row <= MatrixRows; ++row) {
    for (int column = 1; column <= MatrixRows; ++column) AddOnce(questions, {kind, member, ' ', row, column});
  }
}

std::vector<Ask::Item> AllOf(const StoredModel& model, AskKind kind) {
  std::vector<Ask::Item> all;
  for (int m = 1; IsOfMembers(kind) && m <= model.memberCount; ++m) all.push_back({m, ' '});
  for (int n = 1; IsOfNodes(kind) && n <= model.nodeCount; ++n) {
    if (kind == AskKind::Displacement || HoldsIn(model, n, 'x') || HoldsIn(model, n, 'y')) all.push_back({n, ' '});
  }
  return all;
}

void AddQuestions(std::vector<Question>& questions, const StoredModel& model, const Ask& ask) {
  if (!IsOfNodes(ask.kind) && !IsOfMembers(ask.kind)) return AddOnce(questions, {ask.kind});
  for (const Ask::Item& item : ask.items.empty() ? AllOf(model, ask.kind) : ask.items) {
    if (IsOfNodes(ask.kind)) {
      AddOfNode(questions, model, ask.kind, item);
    } else {
      AddOfMember(questions, model, ask.kind, item.number);
    }
  }
}

std::string FreedomName(const StoredModel& model, int member, int row) {
  const int node = RoundNodeNumber(model.members(member, row <= 2 ? MemberNodeI : MemberNodeJ));
  return std::to_string(node) + (row % 2 == 1 ? "x" : "y");
}

std::string MatrixText(const StoredModel& model, const Question& question) {
  const std::string member = std::to_string(question.number);
  return "Stiffness of member " + member + " in global axes, row " + FreedomName(model, question.number, question.row) +
         ", column " + FreedomName(model, question.number, question.column);
}

const char* PositiveIn(char direction) { return direction == 'x' ? "positive to the right" : "positive upwards"; }

} // namespace

Ask ReadAsk(const std::string& text) {
  const std::size_t colon = text.find(':');
  Ask ask{KindNamed(text.substr(0, colon), text), {}};
  if (colon == std::string::npos) {
    if (ask.kind == AskKind::Stiffness) RefuseAsk(text);
    return ask;
  }
  if (!IsOfNodes(ask.kind) && !IsOfMembers(ask.kind)) RefuseAsk(text);
  std::string_view rest = std::string_view(text).substr(colon + 1);
  for (;;) {
    const std::size_t comma = rest.find(',');
    ReadItems(ask, TrimBlanks(rest.substr(0, comma)), text);
    if (comma == std::string_view::npos) return ask;
    rest.remove_prefix(comma + 1);
  }
}

std::string NameOf(const Question& question) {
  switch (question.kind) {
  case AskKind::Force: return "force " + std::to_string(question.number);
  case AskKind::Reaction: return "reaction " + Place(question.number, question.direction);
  case AskKind::Displacement: return "displacement " + Place(question.number, question.direction);
  case AskKind::ZeroMembers: return "zero-members";
  case AskKind::Determinacy: return "determinacy";
  case AskKind::Stiffness: break;
  }
  return "k " + std::to_string(question.number) + " " + std::to_string(question.row) + std::to_string(question.column);
}

std::string TextOf(const StoredModel& model, const Question& question) {
  const std::string number = std::to_string(question.number);
  switch (question.kind) {
  case AskKind::Force: return "Force of member " + number + ", tension positive";
  case AskKind::Reaction:
    return "Reaction at node " + number + " in " + question.direction + ", " + PositiveIn(question.direction);
  case AskKind::Displacement:
    return "Displacement of node " + number + " in " + question.direction + ", " + PositiveIn(question.direction);
  case AskKind::ZeroMembers: return "Members without force: their numbers, or none";
  case AskKind::Determinacy: return "Degree of static indeterminacy, 0 for a determinate truss";
  case AskKind::Stiffness: break;
  }
  return MatrixText(model, question);
}

std::string UnitOf(const Question& question) {
  switch (question.kind) {
  case AskKind::Force:
  case AskKind::Reaction: return "kN";
  case AskKind::Displacement: return "mm";
  case AskKind::Stiffness: return "kN/mm";
  default: return "";
  }
}

bool IsMeasured(const Question& question) {
  return question.kind != AskKind::ZeroMembers && question.kind != AskKind::Determinacy;
}

std::vector<Question> QuestionsAbout(const StoredModel& model, const std::vector<Ask>& asks) {
  std::vector<Question> questions;
  for (const Ask& ask : asks) AddQuestions(questions, model, ask);
  if (questions.empty())
    throw ClassFault("There is nothing in the model to ask for: build a truss with supports first");
  return questions;
}

} // namespace strutwright
