#pragma once

#include "modPointing.h"

#include <vector>

#include <QImage>
#include <QPoint>
#include <QString>

class QPainter;

namespace strutwright {

class DisplayArea;

/// What the display says and marks about single nodes and members: the tip of the one that the mouse points at, the one
/// that keys have walked to, and those whose rows are selected.  Marks lie over the drawing and are never part of it.
class PointingHelp {
 public:
  /// area: whose surface shows the truss; must outlive this.
  explicit PointingHelp(DisplayArea& area) : Area(area) {}

  /// The mouse rests at a point of the surface: shows the tip of what is there.
  void MouseRests(double x, double y, const QPoint& globalPlace);

  /// The mouse has moved to a point of the surface: a tip that is shown goes over to what is there now.
  void MouseMoved(double x, double y, const QPoint& globalPlace);

  /// No tip any more.
  void HideTip();

  /// Goes to the next element of a kind, or the one before, marks it and shows its tip, which is also read to assistive
  /// tools.  The view moves to it where it is not seen: `redraw` then draws anew.
  template <typename Redraw>
  void Walk(ElementKind kind, bool forward, const Redraw& redraw) {
    Walked = ElementAfter(Walked, kind, forward);
    if (BringWalkedIntoView()) redraw();
    ShowWalked();
  }

  /// Where keys have walked to; none before, and after EndWalk.
  Element WalkedTo() const { return Walked; }
  void EndWalk();

  /// Marks these elements and no others.
  void Mark(std::vector<Element> elements);

  /// The drawing has changed, and what is marked with it.
  void DrawingChanged() { Marks = {}; }

  /// Paints the marks over the drawing.
  void Paint(QPainter& painter);

 private:
  bool BringWalkedIntoView();
  void ShowWalked();
  void ShowTip(Element element, const QPoint& globalPlace);
  void PaintMark(QPainter& painter, Element element, bool walked) const;

  DisplayArea& Area;
  Element Tipped; ///< whose tip the mouse has asked for
  Element Walked;
  std::vector<Element> Marked;
  QImage Marks; ///< as they were painted last, transparent elsewhere; null when they are to be painted anew
};

} // namespace strutwright
