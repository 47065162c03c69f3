#include "TryPanel.h"

#include "EventGuard.h"
#include "Platform.h"
#include "modExercise.h"

#include <utility>

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace strutwright {

namespace {

QLabel* AddPanelLabel(QWidget* panel, const QString& name, const QString& description) {
  auto* label = new QLabel(panel);
  label->setObjectName(name);
  label->setAccessibleName(description);
  label->setToolTip(description);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

QPushButton* AddPanelButton(QWidget* panel, const QString& name, const QString& caption, const QString& toolTip) {
  auto* button = new QPushButton(caption, panel);
  button->setObjectName(name);
  button->setToolTip(toolTip);
  return button;
}

} // namespace

TryPanel::TryPanel(QWidget* parent, std::function<void()> changed) : QWidget(parent), Changed(std::move(changed)) {
  setObjectName("TryPanel");
  Build();
  setVisible(false);
}

void TryPanel::Build() {
  lblQuestion = AddPanelLabel(this, "lblQuestion", "What is asked");
  lblVerdict = AddPanelLabel(this, "lblVerdict", "What there is to say to the answer");
  lblScore = AddPanelLabel(this, "lblScore", "How the questions went so far");
  txtAnswer = new QLineEdit(this);
  txtAnswer->setObjectName("txtAnswer");
  txtAnswer->setAccessibleName("Your answer");
  txtAnswer->setToolTip("Type the answer, then press Enter");
  auto* answer = AddPanelButton(this, "btnAnswer", "Answer", "Judges what was typed; Enter does the same");
  auto* hint = AddPanelButton(this, "btnHint", "Hint (&X)", "Three hints, each says more; then the answer");
  auto* copy = AddPanelButton(this, "btnCopyScore", "Copy Score (&Q)", "Copies the score and how each question went");
  OnSignal(txtAnswer, &QLineEdit::returnPressed, this, [this] { Answer(); });
  OnSignal(answer, &QPushButton::clicked, this, [this] { Answer(); });
  OnSignal(hint, &QPushButton::clicked, this, [this] { Hint(); });
  OnSignal(copy, &QPushButton::clicked, this, [this] { CopyScore(); });
  auto* layout = new QGridLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(lblQuestion, 0, 0);
  layout->addWidget(txtAnswer, 0, 1);
  layout->addWidget(answer, 0, 2);
  layout->addWidget(hint, 0, 3);
  layout->addWidget(lblVerdict, 1, 0);
  layout->addWidget(lblScore, 1, 1, 1, 2);
  layout->addWidget(copy, 1, 3);
  layout->setColumnStretch(0, 2);
  layout->setColumnStretch(1, 1);
}

void TryPanel::Switch(bool on) {
  SwitchExercise(on);
  Clock.start();
  setVisible(on);
  lblVerdict->clear();
  ShowQuestion();
}

void TryPanel::BeginQuestions() {
  lblVerdict->clear();
  ShowQuestion();
}

void TryPanel::ShowQuestion() {
  const StepQuestion* question = CurrentQuestion();
  lblQuestion->setText(question != nullptr ? QString::fromStdString(question->text)
                                           : "Press a step: what it changes is asked here, one number after another.");
  txtAnswer->setEnabled(question != nullptr);
  txtAnswer->clear();
  if (question != nullptr && isVisible()) txtAnswer->setFocus();
  ShowScore();
}

void TryPanel::Answer() {
  if (CurrentQuestion() == nullptr) return;
  const AnswerReply reply = AnswerQuestion(txtAnswer->text().toStdString());
  lblVerdict->setText(QString::fromStdString(reply.text));
  if (!reply.isRight) {
    txtAnswer->selectAll();
    return ShowScore();
  }
  ShowQuestion();
  Changed();
}

void TryPanel::Hint() {
  const StepQuestion* before = CurrentQuestion();
  if (before == nullptr) return;
  lblVerdict->setText(QString::fromStdString(NextHint()));
  if (CurrentQuestion() == before) {
    txtAnswer->setFocus();
    return ShowScore();
  }
  ShowQuestion();
  Changed();
}

void TryPanel::CopyScore() { TheClipboard().SetText(ScoreReport(Seconds()), ""); }

void TryPanel::ShowScore() { lblScore->setText(QString::fromStdString(ScoreText(Seconds()))); }

} // namespace strutwright
