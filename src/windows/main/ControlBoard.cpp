#include "ControlBoard.h"

#include "EditingState.h"
#include "FormParts.h"
#include "modModelStore.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace strutwright {

namespace {

constexpr int Gap = 6; // pixels
constexpr int BoxPadding = 14;

QHBoxLayout* Row(const std::initializer_list<QWidget*>& widgets) {
  auto* row = new QHBoxLayout;
  row->setSpacing(Gap);
  for (QWidget* each : widgets) row->addWidget(each);
  row->addStretch();
  return row;
}

/// A caption whose mnemonic leads to `buddy`, where it has one.
QGroupBox* GroupBox(const QString& title, const std::initializer_list<QLayout*>& rows) {
  auto* panel = new QGroupBox(title);
  auto* column = new QVBoxLayout(panel);
  column->setContentsMargins(Gap, Gap, Gap, Gap);
  column->setSpacing(Gap);
  for (QLayout* each : rows) column->addLayout(each);
  return panel;
}

QWidget* Column(const std::initializer_list<QWidget*>& widgets) {
  auto* whole = new QWidget;
  auto* column = new QVBoxLayout(whole);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(Gap);
  for (QWidget* each : widgets) column->addWidget(each);
  column->addStretch();
  return whole;
}

} // namespace

ControlBoard::ControlBoard(QWidget* parent) : QFrame(parent) {
  setObjectName("CBpic");
  setAccessibleName("Control board");
  auto* whole = new QHBoxLayout(this);
  whole->setContentsMargins(Gap, Gap, Gap, Gap);
  whole->setSpacing(Gap);
  whole->addWidget(BuildGrids(), 1);
  whole->addWidget(Column({BuildNodePanel(), BuildMemberPanel()}));
  auto* right = new QVBoxLayout;
  right->setSpacing(Gap);
  right->addWidget(BuildSwitches());
  right->addWidget(BuildScales());
  DBbtn = AddButton("DBbtn", "Minimise Contr&ol Board", "Gives the room of the board to the drawing");
  for (QPushButton* button : {animateBtn, DBbtn}) {
    button->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    right->addWidget(button);
  }
  right->addStretch();
  whole->addLayout(right);
}

ModelLayers ControlBoard::Layers() const {
  return {.supports = SupportsChk->isChecked(),
          .loads = loadsChk->isChecked(),
          .grid = gridChk->isChecked(),
          .memberNumbers = memberChk->isChecked(),
          .nodeNumbers = nodeChk->isChecked()};
}

QWidget* ControlBoard::BuildGrids() {
  auto* whole = new QWidget;
  auto* column = new QVBoxLayout(whole);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(Gap);
  auto* options = new QHBoxLayout;
  const std::array<QString, 4> captions{"&Joints Data", "&Member Data", "Joint Res&ults", "Member Resu&lts"};
  for (std::size_t index = 0; index < captions.size(); ++index) {
    auto* option = new QRadioButton(captions.at(index));
    option->setObjectName("viewOpt_" + QString::number(index));
    option->setToolTip("Shows this grid");
    viewOpt.at(index) = option;
    options->addWidget(option);
  }
  options->addStretch();
  viewOpt[0]->setChecked(true);
  column->addLayout(options);

  Grids = new QStackedWidget;
  GrJointsView = new DataGridView(GrJoints, "GrJoints");
  GrMembersView = new DataGridView(GrMembers, "GrMembers");
  jResGrView = new DataGridView(jResGr, "jResGr");
  mResGrView = new DataGridView(mResGr, "mResGr");
  GrJointsView->setAccessibleName("Joints data");
  GrMembersView->setAccessibleName("Member data");
  jResGrView->setAccessibleName("Joint results");
  mResGrView->setAccessibleName("Member results");
  GrJointsView->setToolTip("Support: 0 free, 1 restrained in y, 2 restrained in x, 3 in both.\n"
                           "x to the right, y upwards. Type to edit a cell, Enter for the next row.");
  GrMembersView->setToolTip("PS: prestress force, tension positive. Type to edit a cell, Enter for the next row.");
  jResGrView->setToolTip("Deflections and reactions, positive to the right and upwards");
  mResGrView->setToolTip("Tension positive. T: tension, C: compression. s: stress, dL: elongation.");
  GrJointsView->SetEmptyHint("Click the first cell of x(m) and type x of node 1; press the right arrow and type y.\n"
                             "Enter goes down to node 2, the left arrow back to x.\n"
                             "Or press F7 and click in the drawing, or paste a table from a spreadsheet.");
  GrMembersView->SetEmptyHint("Enter the nodes first. Then type the numbers of the two nodes that member 1 joins.\n"
                              "Or press F8 and click two nodes in the drawing.");
  for (DataGridView* grid : {GrJointsView, GrMembersView, jResGrView, mResGrView}) Grids->addWidget(grid);
  column->addWidget(Grids, 1);

  grTxtBox = new GridEditBox(Grids);
  GrJointsView->SetEditBox(*grTxtBox);
  GrMembersView->SetEditBox(*grTxtBox);
  return whole;
}

QWidget* ControlBoard::BuildNodePanel() {
  nLineNoTxt = AddBox("nLineNoTxt", "11", "Number of nodes on the line, both ends included", 5);
  nLineX1Txt = AddBox("nLineX1Txt", "0", "x of the first end of the line, m", 5);
  nLineY1Txt = AddBox("nLineY1Txt", "0", "y of the first end of the line, m", 5);
  nLineX2Txt = AddBox("nLineX2Txt", "10", "x of the second end of the line, m", 5);
  nLineY2Txt = AddBox("nLineY2Txt", "0", "y of the second end of the line, m", 5);
  nLineBtn = AddButton("nLineBtn", "&Generate", "Adds the nodes of the line after those that there are");
  xnlTxt = AddBox("xnlTxt", "0", "Load in x, kN, positive to the right", 5);
  ynlTxt = AddBox("ynlTxt", "-10", "Load in y, kN, positive upwards", 5);
  nodesTxt = AddBox("nodesTxt", "1-3,5", "Numbers of the nodes that get the load, such as 1-3,5", 12);
  nodeLoadBtn = AddButton("nodeLoadBtn", "A&pply", "Gives the load to the listed nodes");
  return GroupBox("Node Data",
                  {Row({Caption("Line of", nLineNoTxt), nLineNoTxt, Caption("nodes (inclusive)"), nLineBtn}),
                   Row({Caption("F&rom:", nLineX1Txt), nLineX1Txt, nLineY1Txt, Caption("to"), nLineX2Txt, nLineY2Txt,
                        Caption("m")}),
                   Row({Caption("Node Load (&kN):", xnlTxt), Caption("x"), xnlTxt, Caption("y"), ynlTxt}),
                   Row({Caption("for nodes"), nodesTxt, nodeLoadBtn})});
}

QWidget* ControlBoard::BuildMemberPanel() {
  eTxt = AddBox("eTxt", "200", "Elastic modulus, kN/mm2", 6);
  aTxt = AddBox("aTxt", "1000", "Cross-section area, mm2", 6);
  memTxt = AddBox("memTxt", "1-3,5", "Numbers of the members that get E and the area, such as 1-10,12,15", 7);
  EABtn = AddButton("EABtn", "Appl&y", "Gives E and the area to the listed members");
  return GroupBox("Member Data", {Row({Caption("E Value", eTxt), eTxt, Caption("kN/mm2"), Caption("Area", aTxt), aTxt,
                                       Caption("mm2")}),
                                  Row({Caption("for mem&bers", memTxt), memTxt, Caption("(eg: 1-10,12,15)"), EABtn})});
}

QWidget* ControlBoard::BuildSwitches() {
  SupportsChk = AddSwitch("SupportsChk", "Show &Supports", "Draws the supports, green", true);
  loadsChk = AddSwitch("loadsChk", "Sho&w Loads", "Draws the applied loads, red, with their values in kN", true);
  gridChk = AddSwitch("gridChk", "Show Grid", "Draws the grid with its values in m, grey", true);
  memberChk = AddSwitch("memberChk", "Show Member Nos.", "Writes the members' numbers, red", true);
  nodeChk = AddSwitch("nodeChk", "Show Node Nos.", "Writes the nodes' numbers, black", true);
  ReactionsChk = AddSwitch("ReactionsChk", "Show Reactio&ns", "Draws the reactions, green, in kN", false);
  MbrForcesChk = AddSwitch("MbrForcesChk", "Show Member Forces", "Draws the members' forces, blue, in kN", false);
  DSDchk = AddSwitch("DSDchk", "Show Deflected Shape", "Draws the displaced truss, red and dashed", false);
  clearChk = AddSwitch("clearChk", "Clear Drawing (&Z)",
                       "Draws symbols and labels in pixels, so that no label stands on another", false);
  auto* whole = new QWidget;
  auto* column = new QVBoxLayout(whole);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(Gap / 3);
  for (QCheckBox* each :
       {SupportsChk, loadsChk, gridChk, memberChk, nodeChk, ReactionsChk, MbrForcesChk, DSDchk, clearChk}) {
    column->addWidget(each);
  }
  return whole;
}

QWidget* ControlBoard::BuildScales() {
  udDeflectionScale = new ScaleSpinner("udDeflectionScale", this);
  udDeflectionScale->setAccessibleName("Deflection scale");
  udDeflectionScale->setToolTip("How many mm the drawing shows for each mm of deflection");
  lblDeflectionScale = new QLabel("100 mm/mm");
  lblDeflectionScale->setObjectName("lblDeflectionScale");
  udLoadsScale = new ScaleSpinner("udLoadsScale", this);
  udLoadsScale->setAccessibleName("Forces scale");
  udLoadsScale->setToolTip("How many kN a load or reaction arrow of 1 m stands for");
  lblLoadsScale = new QLabel("10 kN/m");
  lblLoadsScale->setObjectName("lblLoadsScale");
  animateBtn = AddButton("animateBtn", "An&imate", "Lets the deflected shape grow and shrink for ten seconds");
  auto* whole = new QWidget;
  auto* grid = new QGridLayout(whole);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setVerticalSpacing(Gap / 2);
  grid->addWidget(Caption("Deflection S&cale", udDeflectionScale), 0, 0);
  grid->addWidget(udDeflectionScale, 0, 1);
  grid->addWidget(lblDeflectionScale, 0, 2);
  grid->addWidget(Caption("Forces Scale", udLoadsScale), 1, 0);
  grid->addWidget(udLoadsScale, 1, 1);
  grid->addWidget(lblLoadsScale, 1, 2);
  grid->setColumnStretch(2, 1);
  return whole;
}

QLineEdit* ControlBoard::AddBox(const QString& name, const QString& text, const QString& description, int characters) {
  auto* box = new QLineEdit(text, this);
  box->setObjectName(name);
  box->setAccessibleName(description);
  box->setToolTip(description);
  box->setFixedWidth(characters * box->fontMetrics().horizontalAdvance('0') + BoxPadding);
  return box;
}

QCheckBox* ControlBoard::AddSwitch(const QString& name, const QString& caption, const QString& toolTip, bool ticked) {
  auto* box = new QCheckBox(caption, this);
  box->setObjectName(name);
  box->setToolTip(toolTip);
  box->setChecked(ticked);
  return box;
}

QPushButton* ControlBoard::AddButton(const QString& name, const QString& caption, const QString& toolTip) {
  auto* button = new QPushButton(caption, this);
  button->setObjectName(name);
  button->setToolTip(toolTip);
  // Many styles give a button a least width that a caption of one word does not need.
  button->setMinimumWidth(button->fontMetrics().horizontalAdvance(caption) + BoxPadding);
  button->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
  return button;
}

} // namespace strutwright
