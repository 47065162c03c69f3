#pragma once

#include <functional>

#include <QElapsedTimer>
#include <QWidget>

class QLabel;
class QLineEdit;

namespace strutwright {

/// Where the questions of Try It are answered: the question, a line to type into, hints, what was said, the score.
class TryPanel : public QWidget {
 public:
  /// changed: called when a question has been done, and what was blank can be shown.
  TryPanel(QWidget* parent, std::function<void()> changed);

  /// Switches Try It on, with a new score and clock, or off.
  void Switch(bool on);

  /// Shows the first of new questions, or that there are none, without what was said to the last one.
  void BeginQuestions();

  /// Shows the question to answer now, or that there is none.  The keyboard goes to its answer.
  void ShowQuestion();

 private:
  void Build();
  void Answer();
  void Hint();
  void CopyScore();
  void ShowScore();
  int Seconds() const { return static_cast<int>(Clock.elapsed() / 1000); }

  std::function<void()> Changed;
  QLabel* lblQuestion = nullptr;
  QLineEdit* txtAnswer = nullptr;
  QLabel* lblVerdict = nullptr;
  QLabel* lblScore = nullptr;
  QElapsedTimer Clock;
};

} // namespace strutwright
