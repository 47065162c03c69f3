#include "frmMain.h"

// How the main frame is put together; what its controls do stands in frmMain.cpp.

#include "ChildArea.h"
#include "ControlBoard.h"
#include "DisplayState.h"
#include "EventGuard.h"
#include "MainStatusBar.h"
#include "UiState.h"
#include "frmAbout.h"
#include "frmEquations.h"
#include "frmGraph.h"
#include "modFileCommands.h"
#include "modScales.h"

#include <QIcon>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QToolBar>
#include <QVBoxLayout>

/// The icons lie in a static library, which has to be asked for them, and outside of any namespace.
static void LoadIcons() { Q_INIT_RESOURCE(icons); }

namespace strutwright {

namespace {

constexpr QSize StartSize{1180, 800};
constexpr int ClockInterval = 100; // ms

} // namespace

frmMain::frmMain() {
  LoadIcons();
  setObjectName("frmMain");
  setWindowTitle("Strutwright");
  setWindowIcon(QIcon(":/icons/strutwright.svg"));
  stsBar = new MainStatusBar(this);
  setStatusBar(stsBar);
  BuildToolBar();
  BuildCentre();
  ConnectBoard();
  ConnectSwitches();
  ConnectScales();
  ConnectKeys();
  resize(StartSize);
  Timer1.setObjectName("Timer1");
  Timer1.setParent(this);
  OnSignal(&Timer1, &QTimer::timeout, this, [this] { Tick(); });
  Timer1.start(ClockInterval);
}

void frmMain::BuildToolBar() {
  auto* bar = new QToolBar("Tool bar", this);
  bar->setObjectName("Toolbar1");
  bar->setMovable(false);
  bar->setIconSize({24, 24});
  const auto add = [this, bar](const QString& icon, const QString& toolTip, const std::function<void()>& command) {
    QAction* action = bar->addAction(QIcon(":/icons/" + icon + ".svg"), toolTip);
    connect(action, &QAction::triggered, this, [this, command] { Run(command); });
    return action;
  };
  add("new", "New File", newModel);
  add("open", "Open File", [] { openModel(""); });
  add("save", "Save File", SaveFromMenu);
  bar->addSeparator();
  add("bracefold", "Bracefold", [] {})->setEnabled(false);
  add("analyse", "Run Analysis", [this] { runAnalysis(); });
  add("picture", "Save Truss Display as Picture", savePicture);
  add("options", "Options Box", [] {})->setEnabled(false);
  bar->addSeparator();
  add("about", "About", [this] { frmAbout(this).exec(); });
  addToolBar(bar);
}

void frmMain::BuildCentre() {
  auto* centre = new QWidget;
  Centre = new QVBoxLayout(centre);
  Centre->setContentsMargins(0, 0, 0, 0);
  Centre->setSpacing(0);
  auto* splitter = new QSplitter(Qt::Vertical);
  splitter->setObjectName("BoardSplitter");
  Children = new ChildArea(splitter);
  CBpic = new ControlBoard(splitter);
  splitter->addWidget(Children);
  splitter->addWidget(CBpic);
  splitter->setCollapsible(0, false);
  splitter->setCollapsible(1, false);
  splitter->setStretchFactor(0, 1);
  splitter->setStretchFactor(1, 0);
  BuildStrip();
  Centre->addWidget(BtnPic);
  Centre->addWidget(splitter, 1);
  setCentralWidget(centre);
  connect(Children, &QMdiArea::subWindowActivated, this, &frmMain::ShowMenus);
}

void frmMain::BuildStrip() {
  BtnPic = new QWidget;
  BtnPic->setObjectName("BtnPic");
  auto* row = new QHBoxLayout(BtnPic);
  row->setContentsMargins(0, 0, 0, 0);
  auto* show = new QPushButton("^^ Contr&ol Board ^^");
  show->setObjectName("maxCBbtn");
  show->setToolTip("Shows the control board again");
  row->addWidget(show, 1);
  BtnPic->hide();
  OnSignal(show, &QPushButton::clicked, this, [this] { Run([this] { ShowBoard(); }); });
}

void frmMain::ConnectBoard() {
  for (std::size_t index = 0; index < CBpic->viewOpt.size(); ++index) {
    OnSignal(CBpic->viewOpt.at(index), &QRadioButton::toggled, this, [this, index](bool chosen) {
      if (chosen) Run([this, index] { CBpic->ShowGrid(static_cast<int>(index)); });
    });
  }
  CBpic->grTxtBox->SetCommitter([this](const std::function<bool()>& take) { TakeCell(take); });
  OnSignal(CBpic->DBbtn, &QPushButton::clicked, this, [this] { Run([this] { HideBoard(); }); });
  for (QPushButton* later : {CBpic->nLineBtn, CBpic->nodeLoadBtn, CBpic->EABtn}) later->setEnabled(false);
}

void frmMain::ConnectSwitches() {
  for (QCheckBox* box : {CBpic->SupportsChk, CBpic->loadsChk, CBpic->gridChk, CBpic->memberChk, CBpic->nodeChk}) {
    OnSignal(box, &QCheckBox::toggled, this, [this] { Run([this] { Redraw(false); }); });
  }
  const auto connectResult = [this](QCheckBox* box, bool& flag, bool& guard) {
    OnSignal(box, &QCheckBox::toggled, this,
             [this, box, &flag, &guard] { Run([&] { ClickResultSwitch(*box, flag, guard); }); });
  };
  connectResult(CBpic->ReactionsChk, ShowReactions, reactionsGuard);
  connectResult(CBpic->MbrForcesChk, ShowMemberForces, forcesGuard);
  connectResult(CBpic->DSDchk, ShowDeflectedShape, deflectedGuard);
}

void frmMain::ConnectScales() {
  OnSignal(CBpic->udDeflectionScale, &QSpinBox::valueChanged, this, [this](int value) {
    stepDeflectionScale(SpinnerWentUp(lastDeflectionSpin, static_cast<std::int16_t>(value)));
  });
  OnSignal(CBpic->udLoadsScale, &QSpinBox::valueChanged, this,
           [this](int value) { stepLoadsScale(SpinnerWentUp(lastLoadsSpin, static_cast<std::int16_t>(value))); });
  OnSignal(CBpic->animateBtn, &QPushButton::clicked, this, [this] { Run([this] { AnimateDSD(); }); });
}

/// Keys that stand in the captions of their menu entries and not in the menu's own column of keys.
void frmMain::ConnectKeys() {
  const auto connectKey = [this](Qt::Key key, const std::function<void()>& command) {
    OnSignal(new QShortcut(key, this), &QShortcut::activated, this, [this, command] { Run(command); });
  };
  connectKey(Qt::Key_F3, [this] { ZoomOut(); });
  connectKey(Qt::Key_F4, [this] { Redraw(true); });
}

void frmMain::ShowMenus(QMdiSubWindow* active) {
  if (Graph == nullptr || Ending) return;
  menuBar()->clear();
  const bool equations = active != nullptr && active == EquationsWindow;
  for (QMenu* menu : equations ? Equations->Menus() : Graph->Menus()) menuBar()->addMenu(menu);
}

} // namespace strutwright
