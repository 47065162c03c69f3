#include "PartMenu.h"

#include "CellEdits.h"
#include "CommandFrame.h"
#include "DisplayState.h"
#include "MenuBuilder.h"
#include "frmValues.h"
#include "modModelEditing.h"
#include "modModelStore.h"
#include "modNumberText.h"
#include "modSelection.h"

#include <cmath>
#include <string>
#include <vector>

namespace strutwright {

namespace {

std::string TextOf(const FieldTable& table, int number, int field) { return NumberText(table(number, field)); }

} // namespace

PartMenu::PartMenu(CommandFrame& frame, QMenu& popUp, MenuBuilder& build) : Frame(frame) {
  Title = popUp.addSection("");
  AddSupport(popUp, build, "mnuNodeFree", "&Free", 0);
  AddSupport(popUp, build, "mnuNodePin", "P&in", 3);
  AddSupport(popUp, build, "mnuNodeRollerX", "Roller (free in &x)", 1);
  AddSupport(popUp, build, "mnuNodeRollerY", "Roller (free in &y)", 2);
  OfNode << Add(popUp, build, "mnuNodeLoad", "Lo&ad...", &PartMenu::ChangeLoad)
         << Add(popUp, build, "mnuNodeHand", "&Joint by Hand...", &PartMenu::ShowJoint)
         << Add(popUp, build, "mnuNodeDelete", "Dele&te", &PartMenu::RemoveNode);
  OfMember << Add(popUp, build, "mnuMemberEA", "E and &A...", &PartMenu::ChangeRigidity)
           << Add(popUp, build, "mnuMemberPS", "Pr&estress...", &PartMenu::ChangePrestress)
           << Add(popUp, build, "mnuMemberDelete", "Dele&te", &PartMenu::RemoveMember);
  End = popUp.addSeparator();
  Offer(HUGE_VALF, HUGE_VALF);
}

QAction* PartMenu::Add(QMenu& popUp, MenuBuilder& build, const char* name, const QString& text,
                       void (PartMenu::*command)()) {
  return build.Add(popUp, name, text, {}, [this, command] { (this->*command)(); });
}

void PartMenu::AddSupport(QMenu& popUp, MenuBuilder& build, const char* name, const QString& text, int code) {
  OfNode << build.Add(popUp, name, text, {}, [this, code] {
    if (HasNode()) Frame.Edit("Support", [this, code] { EnterSupport(Node, code); });
  });
}

void PartMenu::Offer(float x, float y) {
  const Element part = DisplaySurface == nullptr ? Element{} : ElementAt(*DisplaySurface, x, -static_cast<double>(y));
  Node = part.kind == ElementKind::Node ? part.number : 0;
  Member = part.kind == ElementKind::Member ? part.number : 0;
  for (QAction* each : OfNode) each->setVisible(Node != 0);
  for (QAction* each : OfMember) each->setVisible(Member != 0);
  Title->setVisible(Node != 0 || Member != 0);
  End->setVisible(Node != 0 || Member != 0);
  Title->setText(Node != 0 ? "Node " + QString::number(Node) : "Member " + QString::number(Member));
}

bool PartMenu::HasNode() const { return Node >= 1 && Node <= NodeCount; }

bool PartMenu::HasMember() const { return Member >= 1 && Member <= MemberCount; }

void PartMenu::ShowJoint() {
  if (HasNode()) Frame.ShowJointByHand(Node);
}

void PartMenu::ChangeLoad() {
  if (!HasNode()) return;
  frmValues values(&Frame, "Load at Node " + std::to_string(Node),
                   {{"forceXTxt", "Force&X (kN)", TextOf(NodeTable, Node, NodeForceX)},
                    {"forceYTxt", "Force&Y (kN)", TextOf(NodeTable, Node, NodeForceY)}});
  if (values.exec() != QDialog::Accepted) return;
  const std::vector<std::string> texts = values.Texts();
  Frame.Edit("Load", [&] { EnterLoad(Node, texts[0], texts[1]); });
}

void PartMenu::RemoveNode() {
  if (HasNode()) Frame.Edit("Delete Node", [this] { DeleteNode(Node, true); });
}

void PartMenu::ChangeRigidity() {
  if (!HasMember()) return;
  frmValues values(&Frame, "E and A of Member " + std::to_string(Member),
                   {{"memberETxt", "&E (kN/mm2)", TextOf(MemberTable, Member, MemberE)},
                    {"memberATxt", "&A (mm2)", TextOf(MemberTable, Member, MemberA)}});
  if (values.exec() != QDialog::Accepted) return;
  const std::vector<std::string> texts = values.Texts();
  Frame.Edit("E and A", [&] { EnterRigidity(Member, texts[0], texts[1]); });
}

void PartMenu::ChangePrestress() {
  if (!HasMember()) return;
  frmValues values(&Frame, "Prestress of Member " + std::to_string(Member),
                   {{"memberPSTxt", "&PS (kN), tension positive", TextOf(MemberTable, Member, MemberPS)}});
  if (values.exec() != QDialog::Accepted) return;
  const std::vector<std::string> texts = values.Texts();
  Frame.Edit("Prestress", [&] { EnterPrestress(Member, texts[0]); });
}

void PartMenu::RemoveMember() {
  if (HasMember()) Frame.Edit("Delete Member", [this] { DeleteMember(Member, true); });
}

} // namespace strutwright
