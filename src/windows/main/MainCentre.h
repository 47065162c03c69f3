#pragma once

#include <functional>

#include <QByteArray>
#include <QWidget>

class QSplitter;
class QVBoxLayout;

namespace strutwright {

class ChildArea;
class CommandFrame;
class ControlBoard;

/// The middle of the main frame: the child windows above the control board, or above the strip `BtnPic` that brings the
/// hidden board back.
class MainCentre : public QWidget {
 public:
  /// redraw: draws the truss anew in the room that there is now; true: zoom to the extents.
  MainCentre(CommandFrame& frame, std::function<void(bool)> redraw);

  ChildArea& Children() { return *Area; }
  ControlBoard& Board() { return *CBpic; }

  /// How the room is shared between child windows and board, as bytes to keep; what is of no use changes nothing.
  QByteArray Shares() const;
  void TakeShares(const QByteArray& shares);

 private:
  void BuildStrip(CommandFrame& frame);
  void HideBoard();
  void ShowBoard();

  std::function<void(bool)> Redraw;
  QVBoxLayout* Column = nullptr;
  QSplitter* BoardSplitter = nullptr;
  ChildArea* Area = nullptr;
  ControlBoard* CBpic = nullptr;
  QWidget* BtnPic = nullptr;
};

} // namespace strutwright
