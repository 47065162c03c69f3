#include "WorkingPane.h"

#include "EventGuard.h"
#include "modWorkedFiles.h"
#include "modWorking.h"

#include <QEvent>
#include <QPalette>
#include <QUrl>

namespace strutwright {

namespace {

constexpr double FaintShare = 0.55; // of the text's colour in that of a zero, the rest is the ground's

QString NameOfMix(const QPalette& theme, double share) {
  const QColor text = theme.color(QPalette::Text);
  const QColor base = theme.color(QPalette::Base);
  const auto mix = [share](int one, int other) { return qRound(other + share * (one - other)); };
  return QColor(mix(text.red(), base.red()), mix(text.green(), base.green()), mix(text.blue(), base.blue())).name();
}

FormulaInk InkOf(const QPalette& theme) {
  return {NameOfMix(theme, 1).toStdString(), NameOfMix(theme, FaintShare).toStdString(), true};
}

} // namespace

WorkingPane::WorkingPane(QWidget* parent) : QTextBrowser(parent) {
  setObjectName("txtWorking");
  setAccessibleName("Working of the last step");
  setAccessibleDescription("Each number with a link shows where it comes from: Tab goes to the next, Enter follows it");
  setToolTip("The working of the last step: click a number to see where it comes from, point at it for all its digits");
  setOpenLinks(false);
  OnSignal(this, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) {
    if (Follower) Follower(link.fileName().toStdString());
  });
}

/// Nothing is laid out that nobody sees.
void WorkingPane::ShowStep() {
  IsStale = !isVisible();
  if (IsStale) return;
  setHtml(QString::fromStdString(WorkedHtml(StepWorking(), InkOf(palette()))));
}

void WorkingPane::showEvent(QShowEvent* event) {
  QTextBrowser::showEvent(event);
  if (IsStale) Guard([this] { ShowStep(); });
}

void WorkingPane::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) Guard([this] { ShowStep(); });
}

} // namespace strutwright
