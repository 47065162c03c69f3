#include "MechanismBox.h"

#include "CheckParts.h"
#include "CommandFrame.h"
#include "DisplayState.h"
#include "EventGuard.h"
#include "FormParts.h"
#include "Platform.h"
#include "WorkbenchState.h"
#include "modCheck.h"
#include "modMotionView.h"

#include <algorithm>
#include <optional>
#include <utility>

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace strutwright {

namespace {

constexpr int SwingInterval = 50; // ms

bool IsDrawingWithMouse() {
  return std::any_of(TheMouse.RubberBands.begin(), TheMouse.RubberBands.end(),
                     [](const std::optional<RubberShape>& band) { return band.has_value(); });
}

} // namespace

MechanismBox::MechanismBox(CommandFrame& frame, std::function<void()> fillInRigidity)
    : QGroupBox("Mechanism"), Frame(frame), FillInRigidity(std::move(fillInRigidity)) {
  setObjectName("mechanismBox");
  auto* column = new QVBoxLayout(this);
  motionLbl = NewLabel("motionLbl", "The motion that the display shows");
  column->addWidget(motionLbl);
  BuildMotionButtons();
  column->addWidget(motionButtons);
  BuildCures();
  column->addWidget(curesPart);
  MotionTimer.setParent(this);
  MotionTimer.setObjectName("MotionTimer");
  MotionTimer.setSingleShot(true);
  OnSignal(&MotionTimer, &QTimer::timeout, this, [this] { Tick(); });
}

void MechanismBox::BuildMotionButtons() {
  motionButtons = new QWidget;
  auto* row = new QHBoxLayout(motionButtons);
  row->setContentsMargins(0, 0, 0, 0);
  btnPreviousMotion = NewButton("btnPreviousMotion", "< &Previous", "Shows the motion before this one");
  btnNextMotion = NewButton("btnNextMotion", "&Next >", "Shows the next independent motion");
  btnAnimateMotion = NewButton("btnAnimateMotion", "&Animate", "Lets the motion swing in the truss display");
  btnAnimateMotion->setCheckable(true);
  btnAnimateMotion->setChecked(true);
  for (QPushButton* each : {btnPreviousMotion, btnNextMotion}) row->addWidget(each);
  row->addStretch();
  row->addWidget(btnAnimateMotion);
  OnSignal(btnPreviousMotion, &QPushButton::clicked, this, [this] { Turn(-1); });
  OnSignal(btnNextMotion, &QPushButton::clicked, this, [this] { Turn(1); });
  OnSignal(btnAnimateMotion, &QPushButton::toggled, this, [this] {
    HoldMotion();
    RunClock();
    Frame.RedrawWhatCanBeDrawn(false);
  });
}

void MechanismBox::BuildCures() {
  curesPart = new QWidget;
  auto* column = new QVBoxLayout(curesPart);
  column->setContentsMargins(0, 0, 0, 0);
  curesList = new LineList("curesList", "What would stop this motion; choose a line to see its nodes");
  btnApplyCure = NewButton("btnApplyCure", "A&dd It", "Adds the chosen member or support to the truss; can be undone");
  auto* row = new QHBoxLayout;
  row->addWidget(curesList, 1);
  row->addWidget(btnApplyCure, 0, Qt::AlignTop);
  column->addWidget(Caption("Any one of these would &stop it:", curesList));
  column->addLayout(row);
  OnSignal(curesList, &QListWidget::itemActivated, this, [this] { ApplyChosenCure(); });
  OnSignal(btnApplyCure, &QPushButton::clicked, this, [this] { ApplyChosenCure(); });
}

void MechanismBox::Refresh() {
  const bool any = ShownMechanism() != nullptr;
  motionLbl->setText(QString::fromStdString(MotionText()));
  motionButtons->setVisible(any);
  curesPart->setVisible(any);
  curesList->Show(CureLines());
  curesList->setMaximumHeight(curesList->minimumHeight()); // the other lists may need the room
  EnableButtons();
  RunClock();
}

void MechanismBox::SetRigidityUsable(bool usable) {
  RigidityUsable = usable;
  EnableButtons();
}

void MechanismBox::EnableButtons() {
  btnPreviousMotion->setEnabled(TheCheck.motion > 1);
  btnNextMotion->setEnabled(TheCheck.motion != 0 && TheCheck.motion < MotionCount());
  const Cure* cure = ChosenCure();
  btnApplyCure->setEnabled(cure != nullptr && (!cure->IsRigidity() || RigidityUsable));
}

void MechanismBox::Turn(int by) {
  ShowMotion(TheCheck.motion + by);
  Refresh();
  Frame.RedrawWhatCanBeDrawn(false);
}

void MechanismBox::RunClock() {
  if (window()->isVisible() && ShownMechanism() != nullptr && btnAnimateMotion->isChecked()) {
    MotionTimer.start(SwingInterval);
  } else {
    MotionTimer.stop();
  }
}

/// Under an open box nothing moves, nor while the mouse draws: a redraw would take its lines away.
void MechanismBox::Tick() {
  if (!MessageIsOpen() && !IsDrawingWithMouse()) {
    SwingMotion();
    Frame.RedrawWhatCanBeDrawn(false);
  }
  RunClock();
}

/// nullptr where none is chosen.
const Cure* MechanismBox::ChosenCure() const {
  const Mechanism* shown = ShownMechanism();
  const int row = curesList->currentRow();
  if (shown == nullptr || curesList->selectedItems().isEmpty()) return nullptr;
  return row >= 0 && row < static_cast<int>(shown->cures.size()) ? &shown->cures[static_cast<std::size_t>(row)]
                                                                 : nullptr;
}

void MechanismBox::ApplyChosenCure() {
  const Cure* chosen = ChosenCure();
  if (chosen == nullptr) return;
  if (chosen->IsRigidity()) return FillInRigidity();
  const Cure cure = *chosen;
  Frame.Run([this, cure] {
    if (!IsOffered(cure)) return; // a pending edit has changed the model
    Frame.Edit(cure.IsMember() ? "Add Member" : "Add Support", [&cure] { ApplyCure(cure); });
  });
}

} // namespace strutwright
