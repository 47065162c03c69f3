#pragma once

#include "CheckReport.h"

#include <functional>

#include <QGroupBox>
#include <QTimer>

class QLabel;
class QPushButton;

namespace strutwright {

class CommandFrame;
class LineList;

/// The mechanisms in the check window: one motion at a time, which swings in the display, and what would stop it.
class MechanismBox : public QGroupBox {
 public:
  /// fillInRigidity: what the cure that is no part of the truss does.
  MechanismBox(CommandFrame& frame, std::function<void()> fillInRigidity);

  /// Shows the motion that the display shows.
  void Refresh();

  /// usable: the control board's E and A can be filled in.
  void SetRigidityUsable(bool usable);

  /// Enables the buttons for what is shown and chosen now.
  void EnableButtons();

  /// Starts or stops the clock by what there is to see.  It goes on when a step has been drawn, so that a large truss
  /// leaves time for everything else.
  void RunClock();
  void StopClock() { MotionTimer.stop(); }

  LineList& Cures() { return *curesList; }

 private:
  void BuildMotionButtons();
  void BuildCures();
  void Turn(int by);
  void Tick();
  const Cure* ChosenCure() const;
  void ApplyChosenCure();

  CommandFrame& Frame;
  std::function<void()> FillInRigidity;
  bool RigidityUsable = false;
  QLabel* motionLbl = nullptr;
  QWidget* motionButtons = nullptr;
  QPushButton* btnPreviousMotion = nullptr;
  QPushButton* btnNextMotion = nullptr;
  QPushButton* btnAnimateMotion = nullptr;
  QWidget* curesPart = nullptr;
  LineList* curesList = nullptr;
  QPushButton* btnApplyCure = nullptr;
  QTimer MotionTimer;
};

} // namespace strutwright
