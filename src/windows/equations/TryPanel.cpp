#include "TryPanel.h"

#include "EventGuard.h"
#include "Platform.h"
#include "modEquationTexts.h"
#include "modExercise.h"

#include <utility>

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace strutwright {

namespace {

constexpr int PanelSpacing = 4; // pixels

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
  Clock.start();
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
  btnAnswer = AddPanelButton(this, "btnAnswer", "Answer", "Judges what was typed; Enter does the same");
  btnHint = AddPanelButton(this, "btnHint", "Hint (&X)", "Three hints, each says more; then the answer");
  btnCopyScore = AddPanelButton(this, "btnCopyScore", "Copy Score (&Q)", "Copies the score and how each question went");
  OnSignal(txtAnswer, &QLineEdit::textEdited, this, [](const QString& text) { KeepTyped(text.toStdString()); });
  OnSignal(txtAnswer, &QLineEdit::returnPressed, this, [this] { Answer(); });
  OnSignal(btnAnswer, &QPushButton::clicked, this, [this] { Answer(); });
  OnSignal(btnHint, &QPushButton::clicked, this, [this] { Hint(); });
  OnSignal(btnCopyScore, &QPushButton::clicked, this, [this] { CopyScore(); });
  Places = new QGridLayout(this);
  Places->setContentsMargins(0, 0, 0, 0);
  Places->setSpacing(PanelSpacing);
  Places->setColumnStretch(0, 1);
  Arrange(false);
}

void TryPanel::Arrange(bool isWide) {
  const int row = isWide ? 0 : 1;
  const int first = isWide ? 1 : 0;
  Places->addWidget(lblQuestion, 0, 0, 1, isWide ? 1 : 4);
  Places->addWidget(txtAnswer, row, first);
  Places->addWidget(btnAnswer, row, first + 1);
  Places->addWidget(btnHint, row, first + 2);
  Places->addWidget(btnCopyScore, row, isWide ? 5 : 3);
  Places->addWidget(lblScore, isWide ? 0 : 3, isWide ? 4 : 0, 1, isWide ? 1 : 4);
  Places->addWidget(lblVerdict, isWide ? 1 : 2, 0, 1, isWide ? 6 : 4);
  lblScore->setWordWrap(!isWide);
  lblVerdict->setMinimumHeight((isWide ? 1 : 2) * fontMetrics().lineSpacing());
}

void TryPanel::Switch(bool on) {
  SwitchExercise(on);
  Clock.start();
  setVisible(on);
  Begin();
}

void TryPanel::Begin() { lblVerdict->clear(); }

void TryPanel::ShowQuestion() {
  const StepQuestion* question = CurrentQuestion();
  const bool hasLine = question != nullptr && question->cells.empty();
  lblQuestion->setText(QString::fromStdString(question != nullptr ? question->text : StepToComeText()));
  txtAnswer->setVisible(hasLine);
  txtAnswer->setText(hasLine ? QString::fromStdString(question->typed) : QString());
  btnAnswer->setEnabled(question != nullptr);
  btnHint->setEnabled(question != nullptr);
  lblScore->setText(QString::fromStdString(ScoreText(Seconds())));
}

void TryPanel::GoToLine() {
  txtAnswer->setFocus();
  txtAnswer->selectAll();
}

void TryPanel::Answer() {
  const StepQuestion* question = CurrentQuestion();
  if (question == nullptr) return;
  lblVerdict->setText(QString::fromStdString(AnswerQuestion(question->typed).text));
  Changed();
}

void TryPanel::Turn(int by) {
  const StepQuestion* left = CurrentQuestion();
  if (left == nullptr) return;
  if (!left->typed.empty() && !left->isWrong) {
    const AnswerReply reply = AnswerQuestion(left->typed);
    lblVerdict->setText(QString::fromStdString(left->text + " " + reply.text));
  }
  if (CurrentQuestion() == left) TurnQuestion(by);
  Changed();
}

void TryPanel::Hint() {
  if (CurrentQuestion() == nullptr) return;
  lblVerdict->setText(QString::fromStdString(NextHint()));
  Changed();
}

void TryPanel::CopyScore() { TheClipboard().SetText(ScoreReport(Seconds()), ""); }

} // namespace strutwright
