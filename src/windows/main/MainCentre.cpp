#include "MainCentre.h"

#include "ChildArea.h"
#include "CommandFrame.h"
#include "ControlBoard.h"
#include "EventGuard.h"

#include <utility>

#include <QCoreApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

namespace strutwright {

MainCentre::MainCentre(CommandFrame& frame, std::function<void(bool)> redraw) : Redraw(std::move(redraw)) {
  Column = new QVBoxLayout(this);
  Column->setContentsMargins(0, 0, 0, 0);
  Column->setSpacing(0);
  BoardSplitter = new QSplitter(Qt::Vertical);
  BoardSplitter->setObjectName("BoardSplitter");
  Area = new ChildArea(BoardSplitter);
  CBpic = new ControlBoard(BoardSplitter);
  BoardSplitter->addWidget(Area);
  BoardSplitter->addWidget(CBpic);
  BoardSplitter->setChildrenCollapsible(false);
  BoardSplitter->setStretchFactor(0, 1);
  BoardSplitter->setStretchFactor(1, 0);
  BuildStrip(frame);
  Column->addWidget(BtnPic);
  Column->addWidget(BoardSplitter, 1);
  OnSignal(CBpic->DBbtn, &QPushButton::clicked, this, [this, &frame] { frame.Run([this] { HideBoard(); }); });
}

void MainCentre::BuildStrip(CommandFrame& frame) {
  BtnPic = new QWidget;
  BtnPic->setObjectName("BtnPic");
  auto* row = new QHBoxLayout(BtnPic);
  row->setContentsMargins(0, 0, 0, 0);
  auto* show = new QPushButton("^^ Contr&ol Board ^^");
  show->setObjectName("maxCBbtn");
  show->setToolTip("Shows the control board again");
  row->addWidget(show, 1);
  BtnPic->hide();
  OnSignal(show, &QPushButton::clicked, this, [this, &frame] { frame.Run([this] { ShowBoard(); }); });
}

QByteArray MainCentre::Shares() const { return BoardSplitter->saveState(); }

void MainCentre::TakeShares(const QByteArray& shares) { BoardSplitter->restoreState(shares); }

void MainCentre::HideBoard() {
  CBpic->hide();
  Column->removeWidget(BtnPic);
  Column->addWidget(BtnPic);
  BtnPic->show();
  Redraw(false);
}

void MainCentre::ShowBoard() {
  CBpic->show();
  BtnPic->hide();
  Column->removeWidget(BtnPic);
  Column->insertWidget(0, BtnPic);
  // The drawing is framed in the room that the board leaves it.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
  Redraw(true);
}

} // namespace strutwright
