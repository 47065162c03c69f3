#include "NumericKeyFilter.h"

#include "modModelEditing.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace strutwright {

namespace {

constexpr char32_t FirstPrintable = U' ';
constexpr char32_t DeleteKey = 0x7f; // what the Delete key of a keyboard writes

} // namespace

NumericKeyFilter::NumericKeyFilter(QObject& box, bool allowMinus) : QObject(&box), AllowMinus(allowMinus) {
  box.installEventFilter(this);
}

/// Keys that write nothing belong to the box, the window and its shortcuts.
bool NumericKeyFilter::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
  const auto* press = static_cast<QKeyEvent*>(event);
  const auto characters = press->text().toUcs4();
  const bool shortcut = (press->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
  if (shortcut || characters.isEmpty()) return false;
  auto key = static_cast<char32_t>(characters.first());
  if (key < FirstPrintable || key == DeleteKey) return false;
  FilterNumericKey(key, AllowMinus);
  return key == 0;
}

void FilterNumericBoxes(const QWidget& form) {
  for (const NumericBox& each : NumericBoxes) {
    const QString name = QString::fromUtf8(each.name.data(), static_cast<qsizetype>(each.name.size()));
    // The filter belongs to its box.
    if (auto* box = form.findChild<QLineEdit*>(name)) new NumericKeyFilter(*box, each.allowMinus);
  }
}

} // namespace strutwright
