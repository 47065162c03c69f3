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
constexpr double MuchTooHigh = 2; // no size makes a text of so many heights of the pane fit
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
  setHtml(QString::fromStdString(WorkedHtml(StepWorking(), InkOf(palette()))));
  FitText();
}

/// The largest size in which all of the text is in sight; its own size where there is none.
void WorkingPane::FitText() {
  const QSize room = maximumViewportSize();
  const auto fits = [&] {
    const QSizeF size = document()->size();
    return size.width() <= room.width() && size.height() <= room.height();
  };
  const auto set = [this](double share) {
    QFont size = font();
    size.setPointSizeF(share * font().pointSizeF());
    document()->setDefaultFont(size);
  };
  set(1);
  if (document()->size().height() > MuchTooHigh * room.height()) return;
  const auto found = std::find_if(TextSizes.begin(), TextSizes.end(), [&](double share) {
    set(share);
    return fits();
  });
  if (found == TextSizes.end()) set(1);
}

void WorkingPane::resizeEvent(QResizeEvent* event) {
  QTextBrowser::resizeEvent(event);
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
