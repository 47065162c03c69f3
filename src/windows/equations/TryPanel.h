#pragma once

#include <functional>

#include <QElapsedTimer>
#include <QWidget>

class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace strutwright {

/// What Try It asks: the question, hints, what was said to the answer, the score.  What no cell shows is answered here.
class TryPanel : public QWidget {
 public:
  /// changed: called when an answer was judged or a hint given.
  TryPanel(QWidget* parent, std::function<void()> changed);

  /// Switches Try It on, with a new score and clock, or off.
  void Switch(bool on);

  /// Drops what was said to the last answer: new questions begin.
  void Begin();

  /// Shows the question to answer now, or what comes next where there is none.
  void ShowQuestion();

  /// Brings the keyboard to the line for the answer.
  void GoToLine();

  /// Judges what was typed.
  void Answer();

  /// Goes on to the next question, 1, or back, -1; what was typed and not judged yet is judged before.
  void Turn(int by);

  /// In a wide window two lines have room for everything.
  void Arrange(bool isWide);

 private:
  void Build();
  void Hint();
  void CopyScore();
  int Seconds() const { return static_cast<int>(Clock.elapsed() / 1000); }

  std::function<void()> Changed;
  QGridLayout* Places = nullptr;
  QLabel* lblQuestion = nullptr;
  QLineEdit* txtAnswer = nullptr;
  QPushButton* btnAnswer = nullptr;
  QPushButton* btnHint = nullptr;
  QPushButton* btnCopyScore = nullptr;
  QLabel* lblVerdict = nullptr;
  QLabel* lblScore = nullptr;
  QElapsedTimer Clock;
};

} // namespace strutwright
