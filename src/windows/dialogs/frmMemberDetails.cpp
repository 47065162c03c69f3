#include "frmMemberDetails.h"

#include "CommandFrame.h"
#include "DataGridView.h"
#include "EventGuard.h"
#include "FormParts.h"
#include "InspectorParts.h"
#include "modModelEditing.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace strutwright {

frmMemberDetails::frmMemberDetails(CommandFrame& frame) : QDialog(&frame), Frame(frame) {
  setObjectName("frmMemberDetails");
  setWindowTitle("Member Details");
  LayOutMemberDetails(Details);
  new QVBoxLayout(this);
  BuildGrids();
  BuildButtons();
}

/// The views have to go before the grids that they show.
frmMemberDetails::~frmMemberDetails() { qDeleteAll(findChildren<QTableView*>()); }

void frmMemberDetails::BuildGrids() {
  const auto add = [this](Grid& grid, const QString& name, const QString& caption, const QString& columnText) {
    layout()->addWidget(AddInspectorGrid(grid, name, caption, columnText).captioned);
  };
  add(Details.grProperties, "grProperties", "Properties", "-1.234567E+09");
  add(Details.grStiffnessMatrix, "grStiffnessMatrix", "Stiffness Matrix", "-000000.00");
  add(Details.grResults, "grResults", "Results (if available)", "-1.234567E+09");
}

void frmMemberDetails::BuildButtons() {
  QPushButton* cmdDelete = NewButton("cmdDelete", "Delete member", "Deletes this member, after a question");
  QPushButton* cmdOK = NewButton("cmdOK", "OK", "Closes this window");
  cmdOK->setDefault(true);
  OnSignal(cmdDelete, &QPushButton::clicked, this, [this] { Delete(); });
  OnSignal(cmdOK, &QPushButton::clicked, this, [this] { accept(); });
  layout()->addWidget(ButtonRow(*cmdDelete, *cmdOK));
  cmdOK->setFocus();
}

void frmMemberDetails::setMember(std::int16_t member) {
  Member = member;
  ShowMemberDetails(Details, member);
}

void frmMemberDetails::Delete() {
  Frame.Edit("Delete Member", [this] { DeleteMember(Member, true); });
  accept();
}

} // namespace strutwright
