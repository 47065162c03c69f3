#include "MainStatusBar.h"

#include "EventGuard.h"
#include "InputBarrier.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

namespace strutwright {

namespace {

constexpr int HintTime = 10000; // ms
constexpr int Percent = 100;
constexpr int ProgressWidth = 140; // pixels

/// Black and white are legible on these under a light and under a dark desktop theme.
QString LookOf(CheckLevel level) {
  const QString look("QLabel { padding: 0 6px; %1 }");
  if (level == CheckLevel::Doubtful) return look.arg("background: #ffb347; color: black; border-radius: 3px;");
  if (level == CheckLevel::Bad) return look.arg("background: #c62828; color: white; border-radius: 3px;");
  return look.arg("");
}

} // namespace

MainStatusBar::MainStatusBar(QWidget* parent) : QStatusBar(parent) {
  setObjectName("stsBar");
  Coordinates = AddPanel("stsBar_Coords", "Position of the mouse in the truss display, m", 24);
  MouseMode = AddPanel("stsBar_MouseMode", "What a click in the truss display does", 16);
  Analysis = AddPanel("stsBar_Analysis", "Whether there are results of an analysis", 14);
  Check = AddPanel("stsBar_Check", "How far the results can be trusted; a click, or F6, says more", 9);
  Check->installEventFilter(this);
  Live = AddPanel("stsBar_Live", "Whether every edit is analysed at once", 0);
  AddOffer();
  Hint = new QLabel(this);
  Hint->setObjectName("stsBar_Hint");
  Hint->setAccessibleName("Hint");
  Hint->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // a long one must not make the window wider
  addWidget(Hint, 1);
  Rigidity = new QPushButton("Give New Members E and A", this);
  Rigidity->setObjectName("stsBar_Rigidity");
  Rigidity->setToolTip("Gives members that are drawn E and A from the control board, and those that have none yet");
  Rigidity->hide();
  addPermanentWidget(Rigidity);
  OnSignal(Rigidity, &QPushButton::clicked, this, [this] {
    EndOffer();
    RigidityListener();
  });
  Progress = new QProgressBar(this);
  Progress->setObjectName("stsBar_Progress");
  Progress->setAccessibleName("Progress");
  Progress->setRange(0, Percent);
  Progress->setMaximumWidth(ProgressWidth);
  Progress->hide();
  addPermanentWidget(Progress);
  Cancel = new QPushButton("Cancel", this);
  Cancel->setObjectName("stsBar_Cancel");
  Cancel->setToolTip("Stops the work; an analysis is then left without results");
  Cancel->hide();
  addPermanentWidget(Cancel);
  connect(Cancel, &QPushButton::clicked, this, [this] { Cancelled = true; });
  HintTimer.setSingleShot(true);
  connect(&HintTimer, &QTimer::timeout, this, [this] { Say(Note); });
}

/// In words that say why it is there.
void MainStatusBar::AddOffer() {
  Offer = new QPushButton("Numbers overlap: show Clear Drawing", this);
  Offer->setObjectName("stsBar_Offer");
  Offer->setToolTip("The drawing prints numbers over each other; the clear drawing never does (Ctrl+D)");
  Offer->setFlat(true);
  Offer->setCursor(Qt::PointingHandCursor);
  Offer->setStyleSheet("QPushButton { color: palette(link); text-decoration: underline; padding: 0 6px; }");
  Offer->hide();
  addWidget(Offer);
  connect(Offer, &QPushButton::clicked, this, [this] {
    if (OfferListener) OfferListener();
  });
}

void MainStatusBar::OfferClearDrawing(bool offer) { Offer->setVisible(offer); }

QLabel* MainStatusBar::AddPanel(const QString& name, const QString& description, int characters) {
  auto* panel = new QLabel(this);
  panel->setObjectName(name);
  panel->setToolTip(description);
  panel->setAccessibleName(description);
  panel->setMinimumWidth(characters * fontMetrics().averageCharWidth());
  addWidget(panel);
  return panel;
}

void MainStatusBar::ShowCoordinates(const QString& text) { Coordinates->setText(text); }

void MainStatusBar::ShowMouseMode(const QString& text) { MouseMode->setText(text); }

void MainStatusBar::ShowAnalysis(const QString& text) { Analysis->setText(text); }

void MainStatusBar::ShowCheck(const QString& text, CheckLevel level) {
  Check->setText(text);
  Check->setStyleSheet(LookOf(level));
}

void MainStatusBar::ShowLive(const QString& text) { Live->setText(text); }

void MainStatusBar::OfferRigidity() { Rigidity->show(); }

void MainStatusBar::EndOffer() { Rigidity->hide(); }

bool MainStatusBar::eventFilter(QObject* watched, QEvent* event) {
  const bool clicked = watched == Check && event->type() == QEvent::MouseButtonRelease && !Check->text().isEmpty();
  if (clicked && CheckListener) CheckListener();
  return QStatusBar::eventFilter(watched, event);
}

void MainStatusBar::ShowHint(const QString& text) {
  Say(text);
  HintTimer.start(HintTime);
}

void MainStatusBar::ShowNote(const QString& text) {
  Note = text;
  if (!HintTimer.isActive() && Progress->isHidden()) Say(Note);
}

void MainStatusBar::Say(const QString& text) {
  Hint->setText(text);
  Hint->setToolTip(text);
}

bool MainStatusBar::ShowProgress(const QString& text, double fraction) {
  if (Progress->isHidden()) {
    Cancelled = false;
    Progress->show();
    Cancel->show();
    FocusBefore = QApplication::focusWidget();
    Cancel->setFocus();
  }
  Hint->setText(text + " ...");
  Progress->setValue(qRound(Percent * fraction));
  const InputBarrier barrier(Cancel);
  QCoreApplication::processEvents();
  return !Cancelled;
}

void MainStatusBar::EndProgress() {
  Progress->hide();
  Cancel->hide();
  Say(Note);
  if (FocusBefore) FocusBefore->setFocus();
  FocusBefore = nullptr;
}

} // namespace strutwright
