#include "WorkingPane.h"

#include "EquationModel.h"
#include "EventGuard.h"
#include "modWorkedFiles.h"
#include "modWorking.h"

#include <algorithm>
#include <array>

#include <QEvent>
#include <QPalette>
#include <QTextDocument>
#include <QUrl>

namespace strutwright {

namespace {

constexpr std::array<double, 4> TextSizes{1, 0.92, 0.85, 0.78}; // of the window's own
constexpr double Rewrapped = 0.04;                              // a smaller text may also save lines
constexpr const char* DenseStyle = "p, h3 { margin-top: 2px; margin-bottom: 3px; } h3 { font-size: large; }"
                                   "td, th { padding-left: 6px; padding-right: 6px; }";

FormulaInk InkOf(const QPalette& theme) {
  return {theme.color(QPalette::Text).name().toStdString(), ZeroColour(theme).name().toStdString(), true};
}

} // namespace

WorkingPane::WorkingPane(QWidget* parent) : QTextBrowser(parent) {
  setObjectName("txtWorking");
  setAccessibleName("Working of the last step");
  setAccessibleDescription("Each number with a link shows where it comes from: Tab goes to the next, Enter follows it");
  setToolTip("The working of the last step: click a number to see where it comes from, point at it for all its digits");
  setOpenLinks(false);
  document()->setDefaultStyleSheet(DenseStyle);
  OnSignal(this, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) {
    if (Follower) Follower(link.fileName().toStdString());
  });
}

/// Nothing is laid out that nobody sees.
void WorkingPane::ShowStep() {
  IsStale = !isVisible();
  if (IsStale) return;
  clear(); // or the last text would be laid out in the new size
  SetTextSize(1);
  setHtml(QString::fromStdString(WorkedHtml(StepWorking(), InkOf(palette()))));
  FitText();
}

/// Each change lays all of the text out anew.
void WorkingPane::SetTextSize(double share) {
  QFont size = font();
  size.setPointSizeF(share * font().pointSizeF());
  if (size != document()->defaultFont()) document()->setDefaultFont(size);
}

/// Sets the largest size in which all of the text is in sight; its own size where there is none.  Only those sizes are
/// tried that can do.
void WorkingPane::FitText() {
  const QSizeF room = maximumViewportSize();
  const auto fits = [&] {
    const QSizeF size = document()->size();
    return size.width() <= room.width() && size.height() <= room.height();
  };
  SetTextSize(1);
  const QSizeF whole = document()->size();
  const double most = std::min(room.width() / whole.width(), room.height() / whole.height());
  for (const double share : TextSizes) {
    if (share > most + Rewrapped) continue;
    SetTextSize(share);
    if (fits()) return;
  }
  SetTextSize(1);
}

/// It is told of its viewport too, which a scroll bar of its own narrows.
void WorkingPane::resizeEvent(QResizeEvent* event) {
  QTextBrowser::resizeEvent(event);
  if (size() == FittedTo) return;
  FittedTo = size();
  Guard([this] { FitText(); });
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
