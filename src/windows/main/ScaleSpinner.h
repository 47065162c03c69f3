#pragma once

#include "modAnimation.h"

#include <QSpinBox>

namespace strutwright {

/// A spin box of which only the arrows show: its number means nothing to a user, only the direction of a change does.
class ScaleSpinner : public QSpinBox, public Spinner {
 public:
  ScaleSpinner(const QString& name, QWidget* parent);

  int Value() const override { return value(); }
  void SetValue(int value) override { setValue(value); }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};

} // namespace strutwright
