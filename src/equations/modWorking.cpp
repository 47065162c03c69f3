#include "modWorking.h"

#include "AnalysisTexts.h"
#include "EquationPages.h"
#include "modAnalysis.h"
#include "modEquationCells.h"
#include "modEquationTexts.h"
#include "modExercise.h"
#include "modModelStore.h"
#include "modNumberText.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <sstream>
#include <utility>

namespace strutwright {

namespace {

constexpr std::string_view NoModelText =
    "There is no model yet: enter nodes and members in the grids below, then press Show Force or Add Member 1.";
constexpr std::string_view NothingPressedText =
    "Press Show Force, Add Member 1 or Show Global K: the working of each step stands here.";
constexpr std::string_view TryFirstText =
    "Try It asks for this step: answer its questions, then its working stands here.";
constexpr std::string_view NotFiniteText =
    "Some of these numbers have no value: a coordinate, E, A or a load is too large or too small to compute with. "
    "Correct it in the grids.";

bool IsFinite(const FreedomValues& values) {
  return !values || std::all_of(values->begin(), values->end(), [](float value) { return std::isfinite(value); });
}

/// Whether the numbers that the last step brought are all numbers.
bool IsFinite(const EquationPage& page) {
  if (page.lastStep == EquationStep::AddMember && page.viewStiffness && !page.viewStiffness->Shares().empty()) {
    const MemberMatrix& k = page.viewStiffness->Shares().back().k;
    for (int row = 1; row <= 4; ++row) {
      for (int column = 1; column <= 4; ++column) {
        if (!std::isfinite(k(row, column))) return false;
      }
    }
  }
  return IsFinite(page.loads) && IsFinite(page.displacements) && IsFinite(page.memberForces) &&
         IsFinite(page.reactions);
}

/// Whether the last step added a member's own matrix; its working says all that the sentence above the grids does.
bool IsSharedMember(const EquationPage& page) {
  return page.lastStep == EquationStep::AddMember && page.matrixOf == page.lastMember && page.lastFreedoms[1] != 0;
}

void WriteStep(const EquationPage& page, WorkingWriter& writer) {
  switch (page.lastStep) {
  case EquationStep::None:
  case EquationStep::ClearStiffness: return;
  case EquationStep::ShowForces: return WriteLoads(page, writer);
  case EquationStep::AddMember: return WriteMember(page, writer);
  case EquationStep::ShowGlobalK: return WriteWholeMatrix(page, writer);
  case EquationStep::Restrict: return WriteRestriction(page, writer);
  case EquationStep::Solve:
  case EquationStep::SolveFailed: return WriteSolution(page, writer);
  case EquationStep::MemberForces: return WriteMemberForces(page, writer);
  case EquationStep::SupportReactions: return WriteReactions(page, writer);
  }
}

/// A page that the document turns by itself.
class SolutionWriter {
 public:
  explicit SolutionWriter(WorkedDocument& document) : Document(document) {}

  void Step(const std::string& title, EquationStep step) {
    Page.lastStep = step;
    if (!title.empty()) Document.blocks.emplace_back(WorkedHeading{2, title});
    const WorkedDocument working = StepWorking(Page, WorkingExtent::Document);
    Document.blocks.insert(Document.blocks.end(), working.blocks.begin(), working.blocks.end());
  }

  /// One member after the other, or where there are too many of them a table of what their matrices are made of.
  void BuildMatrix() {
    if (NodeCount > MaxWorkedNodes) return TabulateMembers();
    Document.blocks.emplace_back(WorkedHeading{2, "2. The stiffness matrix, member by member"});
    while (const std::optional<NextShare> next = TakeNextMember(Page)) {
      for (const MemberFault fault : next->faults) Say(IgnoredText({Page.lastMember, fault}));
      if (next->share) Page.viewStiffness->Add(*next->share);
      Step("", EquationStep::AddMember);
    }
    Step("", EquationStep::ShowGlobalK);
  }

  void Say(const std::string& text) { Document.blocks.emplace_back(WorkedParagraph{text}); }

  EquationPage Page;

 private:
  void TabulateMembers() {
    Document.blocks.emplace_back(WorkedHeading{2, "2. The stiffness of the members"});
    Say("The matrices of trusses of up to " + std::to_string(MaxWorkedNodes) + " nodes are written out. This one has " +
        std::to_string(NodeCount) + ", so they are left out.");
    for (const MemberAtFault& each : MakeWholeMatrix(Page)) Say(IgnoredText(each));
    WorkedTable table{{{"Member"}, {"i"}, {"j"}, {"L (m)"}, {"c"}, {"s"}, {"EA/L (kN/mm)"}}, {}};
    for (int m = 1; m <= MemberCount; ++m) {
      const MemberAxis axis = AxisOf(m);
      const double EA = static_cast<double>(MemberTable(m, MemberE)) * MemberTable(m, MemberA);
      const auto stiffness = static_cast<float>(axis.length > 0 ? EA / axis.length : 0.0);
      table.rows.push_back({std::to_string(m), NumberText(MemberTable(m, MemberNodeI)),
                            NumberText(MemberTable(m, MemberNodeJ)), FineNumber(MemberLength(m)).text,
                            FineNumber(axis.c).text, FineNumber(axis.s).text, NumberAsShown(stiffness)});
    }
    Document.blocks.emplace_back(std::move(table));
  }

  WorkedDocument& Document;
};

void WriteSolutionOf(SolutionWriter& writer) {
  LayOutPage(writer.Page);
  writer.Step("1. The loads", EquationStep::ShowForces);
  writer.BuildMatrix();
  RestrictPage(writer.Page);
  writer.Step("3. The supports", EquationStep::Restrict);
  writer.Page.displacements = SolutionOf(writer.Page);
  if (!writer.Page.displacements) return writer.Step("4. The displacements", EquationStep::SolveFailed);
  writer.Step("4. The displacements", EquationStep::Solve);
  FindReactions(writer.Page);
  writer.Step("5. The member forces", EquationStep::MemberForces);
  writer.Step("6. The reactions", EquationStep::SupportReactions);
}

} // namespace

std::optional<NumberSource> SourceOfLink(const std::string& link) {
  using Kind = NumberSource::Kind;
  static const std::map<std::string, Kind> kinds{{"node", Kind::Node},    {"member", Kind::Member},
                                                 {"force", Kind::Member}, {"K", Kind::Stiffness},
                                                 {"P", Kind::Load},       {"D", Kind::Displacement}};
  std::istringstream words(link);
  std::string name;
  NumberSource source;
  words >> name >> source.first;
  const auto found = kinds.find(name);
  if (!words || found == kinds.end()) return std::nullopt;
  source.kind = found->second;
  if (source.kind == Kind::Stiffness && !(words >> source.second)) return std::nullopt;
  return source;
}

WorkedDocument StepWorking(const EquationPage& page, WorkingExtent extent) {
  WorkedDocument document{StepDoneText(page), {}, false};
  WorkingWriter writer(document, extent);
  if (NodeCount == 0 || MemberCount == 0) {
    writer.Say(std::string(NoModelText));
    return document;
  }
  if (page.lastStep == EquationStep::None) {
    writer.Say(std::string(NothingPressedText));
    return document;
  }
  if (extent == WorkingExtent::Pane && CurrentQuestion() != nullptr) {
    writer.Say(std::string(TryFirstText));
    return document;
  }
  // What is shown may belong to a model that has been changed since.
  const bool hasChanged = extent == WorkingExtent::Pane && (page.madeOf == nullptr || !page.madeOf->IsCurrent());
  if (hasChanged || page.viewDofCount != 2 * NodeCount || FindUnknownNode()) {
    writer.Say("The model has changed since this step was taken: press a step again to see its working.");
    return document;
  }
  if (page.lastStep == EquationStep::AddMember) WriteMemberHeading(page, writer);
  if (writer.IsForDocument() || !IsSharedMember(page)) writer.Say(StepDoneText(page));
  if (!IsFinite(page)) writer.Say(std::string(NotFiniteText));
  WriteStep(page, writer);
  return document;
}

WorkedDocument WorkedSolution(const std::string& name, const std::optional<WorkedPicture>& picture) {
  WorkedDocument document{"Worked solution: " + name, {}, NodeCount <= MaxWorkedNodes};
  if (NodeCount == 0 || MemberCount == 0) {
    document.blocks.emplace_back(WorkedParagraph{"There is no truss to work: it needs nodes and members."});
    return document;
  }
  if (const std::optional<UnknownNode> unknown = FindUnknownNode()) {
    document.blocks.emplace_back(
        WorkedParagraph{UnknownNodeText(*unknown, "Correct the member's node numbers first.")});
    return document;
  }
  document.blocks.emplace_back(WorkedParagraph{
      "The direct stiffness method, step by step. Lengths in m, displacements in mm, forces in kN, stiffness in kN/mm; "
      "x to the right, y upwards, tension positive. 3 x means: node 3, direction x."});
  if (picture) document.blocks.emplace_back(*picture);
  const FieldTable members = MemberTable; // a member's matrix leaves its traces in the table
  SolutionWriter writer(document);
  WriteSolutionOf(writer);
  MemberTable = members;
  return document;
}

} // namespace strutwright
