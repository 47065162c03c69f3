#include "frmMain.h"

// How the main frame is put together; what its controls do stands in frmMain.cpp.

#include "ChildArea.h"
#include "ControlBoard.h"
#include "DisplayState.h"
#include "EventGuard.h"
#include "MainStatusBar.h"
#include "Menus.h"
#include "NumericKeyFilter.h"
#include "WorkbenchState.h"
#include "frmAbout.h"
#include "frmCheck.h"
#include "frmEquations.h"
#include "frmGraph.h"
#include "modFileCommands.h"
#include "modGenerators.h"
#include "modScales.h"

#include <array>
#include <string>

#include <QIcon>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QToolBar>
#include <QVBoxLayout>

/// The icons lie in a static library, which has to be asked for them, and outside of any namespace.
static void LoadIcons() { Q_INIT_RESOURCE(icons); }

namespace strutwright {

namespace {

constexpr QSize StartSize{1180, 800};
constexpr QSize WindowFrame{8, 40}; // what the desktop puts around a window, at most
constexpr int ClockInterval = 100;  // ms

std::string Text(const QLineEdit* box) { return box->text().toStdString(); }

} // namespace

frmMain::frmMain() {
  LoadIcons();
  setObjectName("frmMain");
  setWindowTitle("Strutwright");
  setWindowIcon(QIcon(":/icons/strutwright.svg"));
  stsBar = new MainStatusBar(this);
  setStatusBar(stsBar);
  stsBar->SetCheckNotice([this] { Run([this] { ShowCheck(); }); });
  BuildToolBar();
  BuildCentre();
  ConnectBoard();
  ConnectSwitches();
  ConnectScales();
  ConnectPanels();
  BuildGridMenu();
  ConnectKeys();
  OnSignal(&History.Steps(), &QUndoStack::indexChanged, this, [this] { ShowEntryNote(); });
  resize(StartSize.boundedTo(screen()->availableSize() - WindowFrame));
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
  add("new", "New File", [this] { BeginNewModel(newModel); });
  add("open", "Open File", [this] { Edit("Open", [] { openModel(""); }); });
  add("save", "Save File", SaveFromMenu);
  bar->addSeparator();
  add("bracefold", "Bracefold", [this] { Graph->mnuGenerator_Click(); });
  add("analyse", "Run Analysis", [this] { runAnalysis(); });
  add("picture", "Save Truss Display as Picture", savePicture);
  add("options", "Options Box", [this] { ShowOptions(); });
  bar->addSeparator();
  add("about", "About", [this] { frmAbout(this).exec(); });
  addToolBar(bar);
}

void frmMain::BuildCentre() {
  auto* centre = new QWidget;
  Centre = new QVBoxLayout(centre);
  Centre->setContentsMargins(0, 0, 0, 0);
  Centre->setSpacing(0);
  BoardSplitter = new QSplitter(Qt::Vertical);
  BoardSplitter->setObjectName("BoardSplitter");
  Children = new ChildArea(BoardSplitter);
  CBpic = new ControlBoard(BoardSplitter);
  BoardSplitter->addWidget(Children);
  BoardSplitter->addWidget(CBpic);
  BoardSplitter->setChildrenCollapsible(false);
  BoardSplitter->setStretchFactor(0, 1);
  BoardSplitter->setStretchFactor(1, 0);
  BuildStrip();
  Centre->addWidget(BtnPic);
  Centre->addWidget(BoardSplitter, 1);
  setCentralWidget(centre);
  OnSignal(Children, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow* active) { ShowMenus(active); });
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
      if (chosen) Run([this, index] { ShowGrid(static_cast<int>(index)); });
    });
  }
  CBpic->grTxtBox->SetCommitter([this](const std::function<bool()>& take) { TakeCell(take); });
  OnSignal(CBpic->DBbtn, &QPushButton::clicked, this, [this] { Run([this] { HideBoard(); }); });
}

void frmMain::ConnectPanels() {
  ControlBoard& board = *CBpic;
  OnSignal(board.nLineBtn, &QPushButton::clicked, this, [this, &board] {
    Run([this, &board] {
      const NodeLineTexts texts{Text(board.nLineNoTxt), Text(board.nLineX1Txt), Text(board.nLineY1Txt),
                                Text(board.nLineX2Txt), Text(board.nLineY2Txt)};
      Edit("Node Line", [&] { GenerateNodeLine(texts); });
    });
  });
  const auto connectList = [this](QPushButton* button, const QString& what, QLineEdit* list, Grid& grid,
                                  QLineEdit* value1, QLineEdit* value2, int column) {
    OnSignal(button, &QPushButton::clicked, this, [=, this, &grid] {
      Run([&] {
        Edit(what, [&] { fillListedRows(Text(list), grid, Text(value1), Text(value2), column, column + 1); });
      });
    });
  };
  connectList(board.nodeLoadBtn, "Node Load", board.nodesTxt, GrJoints, board.xnlTxt, board.ynlTxt, NodeForceX);
  connectList(board.EABtn, "Member Properties", board.memTxt, GrMembers, board.eTxt, board.aTxt, MemberE);
  FilterNumericBoxes(board);
  for (QLineEdit* box : {board.eTxt, board.aTxt}) {
    OnSignal(box, &QLineEdit::textChanged, this, [this] {
      if (Check != nullptr && Check->isVisible()) Check->ShowRigidityOffer();
    });
  }
}

void frmMain::BuildGridMenu() {
  struct Look {
    QString text;
    QKeySequence shortcut;
  };
  const std::array<Look, GridMenu.size()> looks{{{"&Copy", QKeySequence::Copy},
                                                 {"Cu&t", QKeySequence::Cut},
                                                 {"&Paste", QKeySequence::Paste},
                                                 {"&Delete", QKeySequence::Delete},
                                                 {"Select &All", QKeySequence::SelectAll},
                                                 {"Co&mpress", {}}}};
  mnuGrid = new QMenu(this);
  mnuGrid->setObjectName("mnuGrid");
  for (std::size_t entry = 0; entry < GridMenu.size(); ++entry) {
    const std::string_view name = GridMenu.at(entry).name;
    auto* action = new QAction(looks.at(entry).text, this);
    action->setObjectName(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())));
    action->setShortcut(looks.at(entry).shortcut);
    action->setShortcutContext(Qt::WidgetShortcut);
    OnSignal(action, &QAction::triggered, this,
             [this, command = GridMenu.at(entry).command] { Run([this, command] { RunOnGrid(command); }); });
    mnuGrid->addAction(action);
  }
  for (DataGridView* view : {CBpic->GrJointsView, CBpic->GrMembersView, CBpic->jResGrView, CBpic->mResGrView}) {
    view->SetMenuNotice([this, view](const QPoint& place) { OpenGridMenu(*view, place); });
    view->addActions(mnuGrid->actions()); // for the keys, which belong to the grid that has the focus
  }
  EnableGridActions();
}

void frmMain::AddHistoryActions(MenuBuilder& build, QMenu& menu) {
  QAction* undo = build.Add(menu, "mnuUndo", "&Undo", QKeySequence::Undo, [this] { History.Undo(); });
  QAction* redo = build.Add(menu, "mnuRedo", "&Redo", QKeySequence::Redo, [this] { History.Redo(); });
  addActions({undo, redo}); // for the keys, whichever child window is active
  const QUndoStack* steps = &History.Steps();
  const auto show = [steps, undo, redo] {
    undo->setText(("&Undo " + steps->undoText()).trimmed());
    redo->setText(("&Redo " + steps->redoText()).trimmed());
    undo->setEnabled(steps->canUndo());
    redo->setEnabled(steps->canRedo());
  };
  connect(steps, &QUndoStack::indexChanged, undo, show);
  show();
}

void frmMain::AddGridActions(QMenu& menu) { menu.addActions(mnuGrid->actions()); }

void frmMain::RunOnGrid(GridCommand command) {
  const QAction* entry = mnuGrid->actions().at(static_cast<qsizetype>(command));
  Edit(entry->text().remove('&'), [&] { RunGridCommand(command, *menuGrid); });
}

void frmMain::ConnectSwitches() {
  for (QCheckBox* box : {CBpic->SupportsChk, CBpic->loadsChk, CBpic->gridChk, CBpic->memberChk, CBpic->nodeChk}) {
    OnSignal(box, &QCheckBox::toggled, this, [this] {
      TheDisplay.Layers = CBpic->Layers();
      Run([this] { Redraw(false); });
    });
  }
  OnSignal(CBpic->clearChk, &QCheckBox::toggled, this, [this](bool clear) {
    TheDisplay.Style = clear ? DrawingStyle::Clear : DrawingStyle::Described;
    ShowStyle();
    Run([this] { Redraw(false); });
  });
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
    if (!animating) CommitPendingEdit(); // the animation lets the user go on typing
    stepDeflectionScale(SpinnerWentUp(lastDeflectionSpin, static_cast<std::int16_t>(value)));
  });
  OnSignal(CBpic->udLoadsScale, &QSpinBox::valueChanged, this, [this](int value) {
    CommitPendingEdit();
    stepLoadsScale(SpinnerWentUp(lastLoadsSpin, static_cast<std::int16_t>(value)));
  });
  OnSignal(CBpic->animateBtn, &QPushButton::clicked, this, [this] { Run([this] { AnimateDSD(); }); });
}

/// Keys that stand in the captions of their menu entries and not in the menu's own column of keys.
void frmMain::ConnectKeys() {
  const auto connectKey = [this](Qt::Key key, const std::function<void()>& command) {
    OnSignal(new QShortcut(key, this), &QShortcut::activated, this, [this, command] { Run(command); });
  };
  connectKey(Qt::Key_F3, [this] { ZoomOut(); });
  connectKey(Qt::Key_F4, [this] { Redraw(true); });
  connectKey(Qt::Key_Escape, [this] { Graph->LeaveMode(); });
}

void frmMain::ShowMenus(QMdiSubWindow* active) {
  if (Graph == nullptr || Ending) return;
  menuBar()->clear();
  const bool equations = active != nullptr && active == EquationsWindow;
  for (QMenu* menu : equations ? Equations->Menus() : Graph->Menus()) menuBar()->addMenu(menu);
}

} // namespace strutwright
