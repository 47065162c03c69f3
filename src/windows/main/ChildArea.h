#pragma once

#include <QHash>
#include <QMdiArea>
#include <QRectF>

namespace strutwright {

/// Holds the child windows and keeps their share of the room when the frame changes its size.
class ChildArea : public QMdiArea {
 public:
  explicit ChildArea(QWidget* parent);

  /// Adds and shows a child window.  share: where it lies, as parts of the area's width and height.
  QMdiSubWindow* AddChild(QWidget& child, const QRectF& share);

  QSize minimumSizeHint() const override { return {320, 160}; }

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct Place {
    QRectF share;
    QRect geometry; ///< that follows from the share; another one is the user's
  };
  void Arrange(QMdiSubWindow* window, const QSize& size);

  QHash<QMdiSubWindow*, Place> Places;
};

} // namespace strutwright
