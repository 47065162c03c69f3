#include "frmNodeDetails.h"

#include "CommandFrame.h"
#include "DataGridView.h"
#include "EventGuard.h"
#include "FormParts.h"
#include "InspectorParts.h"
#include "modModelEditing.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace strutwright {

frmNodeDetails::frmNodeDetails(CommandFrame& frame) : QDialog(&frame), Frame(frame) {
  setObjectName("frmNodeDetails");
  setWindowTitle("Node Details");
  LayOutNodeDetails(Details);
  auto* whole = new QVBoxLayout(this);
  const QString columnText = "-1.234567E+09";
  whole->addWidget(AddInspectorGrid(Details.grProperties, "grProperties", "Properties", columnText).captioned);
  whole->addWidget(AddInspectorGrid(Details.grResults, "grResults", "Results (if available)", columnText).captioned);
  whole->addWidget(BuildLoad());
  whole->addWidget(BuildButtons());
  txtForce->setFocus();
}

/// The views have to go before the grids that they show.
frmNodeDetails::~frmNodeDetails() { qDeleteAll(findChildren<QTableView*>()); }

QWidget* frmNodeDetails::BuildLoad() {
  txtForce = NewField("txtForce", "Size of the load, kN");
  txtAngle = NewField("txtAngle", "Direction of the load in degrees: 0 along x, 90 along y");
  QPushButton* cmdApply = NewButton("cmdApply", "Apply", "Applies this load to the node and ends the analysis");
  cmdApply->setDefault(true);
  OnSignal(cmdApply, &QPushButton::clicked, this, [this] { Apply(); });
  auto* force = new QLabel("Force");
  auto* angle = new QLabel("Angle");
  force->setBuddy(txtForce);
  angle->setBuddy(txtAngle);
  auto* frame = new QGroupBox("Specify Node Load");
  auto* places = new QGridLayout(frame);
  places->addWidget(force, 0, 0);
  places->addWidget(txtForce, 0, 1);
  places->addWidget(new QLabel("kN"), 0, 2);
  places->addWidget(angle, 1, 0);
  places->addWidget(txtAngle, 1, 1);
  places->addWidget(new QLabel("degrees"), 1, 2);
  places->addWidget(AddMode(0, "Overwrite previous loads", LoadMode::Overwrite), 2, 0, 1, 3);
  places->addWidget(AddMode(1, "Add to previous loads", LoadMode::Add), 3, 0, 1, 3);
  places->addWidget(cmdApply, 4, 0, 1, 3, Qt::AlignRight);
  return frame;
}

QRadioButton* frmNodeDetails::AddMode(int index, const QString& caption, LoadMode mode) {
  auto* button = new QRadioButton(caption);
  button->setObjectName("optForce_" + QString::number(index));
  button->setToolTip(mode == LoadMode::Overwrite ? "The applied load takes the place of what the node bears"
                                                 : "The applied load is added to what the node bears");
  button->setChecked(mode == Mode);
  OnSignal(button, &QRadioButton::toggled, this, [this, mode](bool chosen) {
    if (chosen) Mode = mode;
  });
  return button;
}

QWidget* frmNodeDetails::BuildButtons() {
  QPushButton* cmdDelete =
      NewButton("cmdDelete", "Delete node", "Deletes this node and every member that meets it, after a question");
  QPushButton* cmdOK = NewButton("cmdOK", "OK", "Closes this window");
  OnSignal(cmdDelete, &QPushButton::clicked, this, [this] { Delete(); });
  OnSignal(cmdOK, &QPushButton::clicked, this, [this] { accept(); });
  return ButtonRow(*cmdDelete, *cmdOK);
}

void frmNodeDetails::setNode(std::int16_t node) {
  Node = node;
  ShowNodeDetails(Details, node);
}

void frmNodeDetails::Apply() {
  Frame.Edit("Apply Load", [this] {
    ApplyNodeLoad(Details, Node, txtForce->text().toStdString(), txtAngle->text().toStdString(), Mode);
  });
}

void frmNodeDetails::Delete() {
  Frame.Edit("Delete Node", [this] { DeleteNode(Node, true); });
  accept();
}

} // namespace strutwright
