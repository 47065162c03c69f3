#pragma once

#include <QObject>
#include <QWidget>

namespace strutwright {

/// Discards keys typed into a text box that no number is written with.
class NumericKeyFilter : public QObject {
 public:
  /// box: the text box, which owns the filter from now on.
  NumericKeyFilter(QObject& box, bool allowMinus);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool AllowMinus;
};

/// Gives every numeric text box of a form its filter.
void FilterNumericBoxes(const QWidget& form);

} // namespace strutwright
