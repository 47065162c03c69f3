#pragma once

#include "modHandLesson.h"

#include <array>
#include <functional>
#include <optional>
#include <string>

#include <QDialog>

class QCheckBox;
class QKeyEvent;
class QLabel;
class QLayout;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QSpinBox;
class QTabBar;
class QTimer;

namespace strutwright {

class CommandFrame;
class PictureArea;

/// The hand methods, a window beside the frame: reactions, members without force, joints, sections and the force
/// diagram of the truss, step by step.  It follows the model while it is open.
class frmHand : public QDialog {
 public:
  explicit frmHand(CommandFrame& frame);

  /// Reads the model where it has become another one, and shows the page that was shown last.
  void Begin();

  /// Shows the joint of a node.
  void ShowJoint(int node);

  /// The truss has been drawn anew.
  void Follow();

 protected:
  void hideEvent(QHideEvent* event) override;

 private:
  QWidget* BuildSteps();
  QWidget* BuildJoint();
  QWidget* BuildStroke();
  QLayout* BuildButtons();
  QPushButton* AddButton(const QString& name, const QString& caption, const QString& toolTip,
                         const std::function<void()>& command);

  HandTopic Topic() const;
  int& Step() { return Steps[static_cast<std::size_t>(Topic())]; }
  HandTelling Telling();
  void ShowPage();
  void ShowControls();
  void ChooseTopic();
  void GoTo(int step);
  void TakeJoint(int node);
  void Cut(const SectionStroke& stroke, double reach);
  void CutAsTyped();
  void PointAtLine(int key);
  bool TakeKey(const QKeyEvent& event);
  void Play(bool on);
  void PlayOn();
  void SavePicture();
  std::string ModelFile() const;

  CommandFrame& Frame;
  HandLesson Lesson;
  std::array<int, HandTopicCount> Steps{};
  int Joint = 0;                       ///< the joint that is shown in place of a step; 0 for none
  std::optional<SectionStroke> Stroke; ///< the section that is shown
  double Reach = 0;                    ///< how near a node counted as hit by it, m
  bool ShownWithResults = false;       ///< the page was told while the tables held the results of an analysis
  QTabBar* topicTab = nullptr;
  PictureArea* Picture = nullptr;
  QPlainTextEdit* toldTxt = nullptr;
  QLabel* lineLbl = nullptr;
  QWidget* StepPart = nullptr;
  QWidget* JointPart = nullptr;
  QWidget* StrokePart = nullptr;
  QLabel* stepLbl = nullptr;
  QPushButton* btnFirst = nullptr;
  QPushButton* btnBack = nullptr;
  QPushButton* btnNext = nullptr;
  QPushButton* btnLast = nullptr;
  QPushButton* btnPlay = nullptr;
  QPushButton* btnWorked = nullptr;
  QSpinBox* jointSpin = nullptr;
  QCheckBox* computedChk = nullptr;
  std::array<QLineEdit*, 4> strokeTxt{};
  QTimer* playTimer = nullptr;
};

} // namespace strutwright
