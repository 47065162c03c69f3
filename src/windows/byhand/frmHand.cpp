#include "frmHand.h"

#include "CommandFrame.h"
#include "EventGuard.h"
#include "FileState.h"
#include "FormParts.h"
#include "HandStrokes.h"
#include "PictureArea.h"
#include "Platform.h"
#include "modHandDocument.h"
#include "modSketchFiles.h"
#include "modWorkedFiles.h"

#include <algorithm>
#include <string>

#include <QAction>
#include <QCheckBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHideEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QSplitter>
#include <QTabBar>
#include <QTimer>
#include <QVBoxLayout>

namespace strutwright {

namespace {

constexpr int PlayPause = 900; // ms a step
constexpr QSize HandWindow{940, 700};
constexpr int FiguresWidth = 590;
constexpr int TextWidth = 330;
constexpr std::array<const char*, HandTopicCount> TopicNames{"&Reactions", "&Zero Members", "&Joints", "&Sections",
                                                             "&Force Diagram"};
constexpr std::array<const char*, HandTopicCount> TopicHints{
    "The whole truss cut free: click a node to see its joint",
    "Members that bear nothing, found before any number is known",
    "Click a node to see its joint, or step through the order", "Drag a line across the truss, or type its ends",
    "Point at a line to light it in both diagrams; the arrows up and down do the same"};

template <class Control>
Control* NamedPart(Control* control, const QString& name, const QString& description) {
  control->setObjectName(name);
  control->setAccessibleName(description);
  control->setToolTip(description);
  return control;
}

QWidget* RowOfParts(const std::initializer_list<QWidget*>& parts) {
  auto* part = new QWidget;
  auto* row = new QHBoxLayout(part);
  row->setContentsMargins(0, 0, 0, 0);
  for (QWidget* each : parts) row->addWidget(each);
  return part;
}

} // namespace

frmHand::frmHand(CommandFrame& frame) : QDialog(&frame), Frame(frame) {
  setObjectName("frmHand");
  setWindowTitle("Hand Methods");
  topicTab = NamedPart(new QTabBar, "topicTab", "The pages of the lesson");
  for (const char* name : TopicNames) topicTab->addTab(name);
  topicTab->setUsesScrollButtons(false);
  PictureNotices notices;
  notices.clicked = [this](int point) {
    if (Topic() != HandTopic::Sections) ShowJoint(point + 1); // there it was a line too short to cut
  };
  notices.drawn = [this](const SketchStroke& stroke, double reach) {
    Cut({stroke.x0, stroke.y0, stroke.x1, stroke.y1}, reach);
  };
  notices.pointed = [this](int key) { PointAtLine(key); };
  notices.keyPressed = [this](const QKeyEvent& event) { return TakeKey(event); };
  Picture = new PictureArea(notices, this);
  toldTxt = NamedPart(new QPlainTextEdit, "toldTxt", "What this step says, with its equations");
  toldTxt->setReadOnly(true);
  toldTxt->setTabChangesFocus(true);
  lineLbl = NamedPart(new QLabel, "lineLbl", "What can be done here, or the line under the pointer");
  lineLbl->setTextFormat(Qt::PlainText);
  auto* split = new QSplitter;
  split->addWidget(Picture);
  split->addWidget(toldTxt);
  split->setStretchFactor(0, 5);
  split->setStretchFactor(1, 3);
  split->setSizes({FiguresWidth, TextWidth});
  split->setChildrenCollapsible(false);
  auto* controls = new QHBoxLayout;
  StepPart = BuildSteps();
  JointPart = BuildJoint();
  StrokePart = BuildStroke();
  for (QWidget* part : {StepPart, JointPart, StrokePart}) controls->addWidget(part);
  controls->addStretch();
  auto* whole = new QVBoxLayout(this);
  whole->addWidget(topicTab);
  whole->addWidget(split, 1);
  whole->addWidget(lineLbl);
  whole->addLayout(controls);
  whole->addLayout(BuildButtons());
  for (const char* command : {"mnuAnalyse", "mnuUndo", "mnuRedo"}) addAction(Frame.findChild<QAction*>(command));
  playTimer = new QTimer(this);
  playTimer->setObjectName("playTimer");
  playTimer->setInterval(PlayPause);
  OnSignal(playTimer, &QTimer::timeout, this, [this] { PlayOn(); });
  OnSignal(topicTab, &QTabBar::currentChanged, this, [this] { ChooseTopic(); });
  resize(SizeOnScreen(*this, HandWindow));
}

QWidget* frmHand::BuildSteps() {
  btnFirst = NewButton("btnFirst", "|<", "Back to the beginning (Home in the figures)");
  btnBack = NewButton("btnBack", "&Back", "One step back (arrow left in the figures)");
  btnNext = NewButton("btnNext", "&Next", "One step forward (arrow right in the figures)");
  btnLast = NewButton("btnLast", ">|", "To the end (End in the figures)");
  btnFirst->setAccessibleName("First step");
  btnLast->setAccessibleName("Last step");
  btnPlay = NewButton("btnPlay", "Pl&ay", "Steps forward by itself");
  btnPlay->setCheckable(true);
  stepLbl = NamedPart(new QLabel, "stepLbl", "Which step is shown, and how many there are");
  for (QPushButton* each : {btnFirst, btnLast}) each->setMaximumWidth(36);
  OnSignal(btnFirst, &QPushButton::clicked, this, [this] { GoTo(0); });
  OnSignal(btnBack, &QPushButton::clicked, this, [this] { GoTo(Step() - 1); });
  OnSignal(btnNext, &QPushButton::clicked, this, [this] { GoTo(Step() + 1); });
  OnSignal(btnLast, &QPushButton::clicked, this, [this] { GoTo(Lesson.LastStep(Topic())); });
  OnSignal(btnPlay, &QPushButton::toggled, this, [this](bool on) { Play(on); });
  return RowOfParts({btnFirst, btnBack, stepLbl, btnNext, btnLast, btnPlay});
}

QWidget* frmHand::BuildJoint() {
  jointSpin =
      NamedPart(new QSpinBox, "jointSpin", "The node whose joint is shown; the lowest value goes back to the order");
  jointSpin->setSpecialValueText("by order");
  computedChk =
      NamedPart(new QCheckBox("Co&mputed"), "computedChk",
                "Shows the joint with the forces of the analysis, at the end all of them beside those by hand");
  OnSignal(jointSpin, &QSpinBox::valueChanged, this, [this](int node) { TakeJoint(node); });
  OnSignal(computedChk, &QCheckBox::toggled, this, [this] { ShowPage(); });
  return RowOfParts({Caption("Join&t:", jointSpin), jointSpin, computedChk});
}

QWidget* frmHand::BuildStroke() {
  constexpr std::array<const char*, 4> Names{"strokeX0Txt", "strokeY0Txt", "strokeX1Txt", "strokeY1Txt"};
  constexpr std::array<const char*, 4> Tips{"x of the line's beginning in m", "y of the line's beginning in m",
                                            "x of the line's end in m", "y of the line's end in m"};
  for (std::size_t k = 0; k < strokeTxt.size(); ++k) {
    strokeTxt.at(k) = NewField(Names.at(k), Tips.at(k));
    strokeTxt.at(k)->setMaximumWidth(9 * fontMetrics().averageCharWidth() + 12);
    OnSignal(strokeTxt.at(k), &QLineEdit::returnPressed, this, [this] { CutAsTyped(); });
  }
  QPushButton* cut = AddButton("btnCut", "C&ut", "Cuts the truss along the typed line", [this] { CutAsTyped(); });
  QPushButton* propose = AddButton("btnPropose", "Pr&opose", "Cuts the truss near its middle",
                                   [this] { Cut(Lesson.ProposedStroke(), 0); });
  return RowOfParts({Caption("&Line from", strokeTxt[0]), strokeTxt[0], strokeTxt[1], Caption("to", strokeTxt[2]),
                     strokeTxt[2], strokeTxt[3], Caption("m"), cut, propose});
}

QLayout* frmHand::BuildButtons() {
  auto* row = new QHBoxLayout;
  row->addWidget(
      AddButton("btnCopyPicture", "&Copy Picture", "Puts the figures on the clipboard", [this] { Picture->Copy(); }));
  row->addWidget(AddButton("btnCopyText", "Copy Te&xt", "Puts what this step says on the clipboard",
                           [this] { TheClipboard().SetText(toldTxt->toPlainText().toStdString(), ""); }));
  row->addWidget(AddButton("btnSavePicture", "Sa&ve Picture...", "Saves the figures as PNG, SVG or TikZ",
                           [this] { SavePicture(); }));
  row->addWidget(AddButton("btnPrint", "&Print...", "Prints this step with its figures", [this] {
    PrintSketchPage("Hand Methods - " + Frame.ModelName(), toldTxt->toPlainText().toStdString(), Picture->Sheet());
  }));
  btnWorked = AddButton("btnWorked", "&Worked Solution...", "Saves the whole solution by hand as PDF, HTML or LaTeX",
                        [this] { SaveWorked(HandDocument(Lesson, Frame.ModelName()), ModelFile()); });
  row->addWidget(btnWorked);
  row->addStretch();
  row->addWidget(AddButton("btnClose", "Clos&e", "Closes this window (Escape)", [this] { close(); }));
  return row;
}

QPushButton* frmHand::AddButton(const QString& name, const QString& caption, const QString& toolTip,
                                const std::function<void()>& command) {
  QPushButton* button = NewButton(name, caption, toolTip);
  OnSignal(button, &QPushButton::clicked, this, [this, command] { Frame.Run(command); });
  return button;
}

void frmHand::Begin() {
  if (!Lesson.IsCurrent()) {
    Lesson.Read();
    Joint = 0;
    Stroke.reset();
    Steps.fill(0);
  }
  ShowPage();
}

void frmHand::Follow() {
  if (!isVisible()) return;
  if (Lesson.IsCurrent()) {
    // The same truss: only what an analysis has added, or its end has taken, can be new.
    if (ShownWithResults != HandLesson::HasComputed()) ShowPage();
    return;
  }
  btnPlay->setChecked(false);
  Lesson.Read();
  if (Joint > Lesson.Truss().nodeCount) Joint = 0;
  ShowPage();
}

HandTopic frmHand::Topic() const { return static_cast<HandTopic>(std::max(topicTab->currentIndex(), 0)); }

HandTelling frmHand::Telling() {
  Step() = std::clamp(Step(), 0, Lesson.LastStep(Topic()));
  if (Topic() == HandTopic::Sections && Stroke) return Lesson.TellSection(*Stroke, Reach);
  if (Topic() == HandTopic::Joints) {
    const bool computed = computedChk->isChecked() && computedChk->isEnabled();
    if (Joint > 0) return Lesson.TellJoint(Joint, computed);
    if (computed) return Lesson.TellComputed(Step());
  }
  return Lesson.Tell(Topic(), Step());
}

void frmHand::ShowPage() {
  ShownWithResults = HandLesson::HasComputed();
  ShowControls();
  HandTelling telling = Telling();
  toldTxt->setPlainText(QString::fromStdString(TextOf(telling)));
  Picture->ShowSheet(std::move(telling.sheet), Topic() == HandTopic::Sections && Lesson.WhyNothing().empty());
  PointAtLine(0);
}

/// Of the controls below the figures only those of the page are there.
void frmHand::ShowControls() {
  StepPart->setVisible(Topic() != HandTopic::Sections);
  JointPart->setVisible(Topic() == HandTopic::Joints);
  StrokePart->setVisible(Topic() == HandTopic::Sections);
  const int last = Lesson.LastStep(Topic());
  const int step = std::clamp(Step(), 0, last);
  stepLbl->setText(QString("%1 / %2").arg(step).arg(last));
  for (QPushButton* each : {btnFirst, btnBack}) each->setEnabled(step > 0);
  for (QPushButton* each : {btnNext, btnLast, btnPlay}) each->setEnabled(step < last);
  computedChk->setEnabled(HandLesson::HasComputed());
  btnWorked->setEnabled(HasHandDocument(Lesson));
  const QSignalBlocker silent(jointSpin);
  jointSpin->setRange(0, Lesson.Truss().nodeCount);
  jointSpin->setValue(Joint);
}

void frmHand::ChooseTopic() {
  btnPlay->setChecked(false);
  ShowPage();
}

void frmHand::GoTo(int step) {
  if (Topic() == HandTopic::Joints) Joint = 0;
  Step() = std::clamp(step, 0, Lesson.LastStep(Topic()));
  ShowPage();
}

void frmHand::ShowJoint(int node) {
  Joint = node;
  const QSignalBlocker silent(topicTab);
  topicTab->setCurrentIndex(static_cast<int>(HandTopic::Joints));
  ShowPage();
}

void frmHand::TakeJoint(int node) {
  Joint = node;
  ShowPage();
}

void frmHand::Cut(const SectionStroke& stroke, double reach) {
  Stroke = stroke;
  Reach = reach;
  const auto texts = StrokeTexts(stroke);
  for (std::size_t k = 0; k < strokeTxt.size(); ++k) strokeTxt.at(k)->setText(QString::fromStdString(texts.at(k)));
  ShowPage();
}

void frmHand::CutAsTyped() {
  std::array<std::string, 4> texts;
  for (std::size_t k = 0; k < texts.size(); ++k) texts.at(k) = strokeTxt.at(k)->text().toStdString();
  const StrokeReading reading = ReadStroke(texts);
  if (!reading.fault.empty()) return lineLbl->setText(QString::fromStdString(reading.fault));
  Stroke = reading.stroke;
  Reach = 0;
  ShowPage();
}

void frmHand::PointAtLine(int key) {
  const bool diagram = Topic() == HandTopic::ForceDiagram;
  Picture->Light(diagram ? key : 0);
  const std::string text = diagram ? Lesson.LineText(key) : "";
  const char* hint = TopicHints.at(static_cast<std::size_t>(Topic()));
  lineLbl->setText(text.empty() ? QString(hint) : QString::fromStdString(text));
}

/// Keys in the figures.  Those that a page has no use for go on.
bool frmHand::TakeKey(const QKeyEvent& event) {
  const int nodes = Lesson.Truss().nodeCount;
  const int last = Lesson.LastStep(Topic());
  const bool back = (event.modifiers() & Qt::ShiftModifier) != 0;
  switch (event.key()) {
  case Qt::Key_Left: GoTo(Step() - 1); return true;
  case Qt::Key_Right: GoTo(Step() + 1); return true;
  case Qt::Key_Home: GoTo(0); return true;
  case Qt::Key_End: GoTo(last); return true;
  case Qt::Key_N:
    if (nodes == 0 || Topic() == HandTopic::Sections) return false;
    ShowJoint(back ? (Joint <= 1 ? nodes : Joint - 1) : Joint % nodes + 1);
    return true;
  case Qt::Key_Up:
  case Qt::Key_Down:
    if (Topic() != HandTopic::ForceDiagram || last == 0) return false;
    PointAtLine(event.key() == Qt::Key_Down ? Picture->Lit() % last + 1
                                            : (Picture->Lit() <= 1 ? last : Picture->Lit() - 1));
    return true;
  default: return false;
  }
}

void frmHand::Play(bool on) {
  if (on) {
    playTimer->start();
  } else {
    playTimer->stop();
  }
}

/// Under an open box nothing moves.
void frmHand::PlayOn() {
  if (MessageIsOpen()) return;
  GoTo(Step() + 1);
  if (Step() == Lesson.LastStep(Topic())) btnPlay->setChecked(false);
}

/// The model's file, or where it has none its name.
std::string frmHand::ModelFile() const { return CurrentFileName.empty() ? Frame.ModelName() : CurrentFileName; }

void frmHand::SavePicture() { SaveSketchPicture(Picture->Drawn(), Picture->Sheet(), Picture->Lit(), ModelFile()); }

void frmHand::hideEvent(QHideEvent* event) {
  QDialog::hideEvent(event);
  if (!event->spontaneous()) btnPlay->setChecked(false);
}

} // namespace strutwright
