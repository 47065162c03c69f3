#include "FramePlace.h"

#include "ControlBoard.h"
#include "DisplayState.h"
#include "EditingState.h"
#include "MainCentre.h"
#include "Platform.h"
#include "WorkbenchState.h"
#include "WorkingPane.h"

#include <QMainWindow>
#include <QSettings>

namespace strutwright {

namespace {

QString PlaceFile() { return QString::fromStdString(DataFolder()) + "/window.ini"; }

} // namespace

bool TakeFramePlace(QMainWindow& frame, MainCentre& centre) {
  const QSettings place(PlaceFile(), QSettings::IniFormat);
  frame.restoreGeometry(place.value("geometry").toByteArray());
  centre.TakeShares(place.value("board").toByteArray());
  TheDisplay.WidthByForce = place.value("widthByForce", TheDisplay.WidthByForce).toBool();
  TheDisplay.ShowLegend = place.value("legend", TheDisplay.ShowLegend).toBool();
  TheWorkingPlace = {place.value("working", true).toBool(), place.value("workingBeside").toByteArray(),
                     place.value("workingUnder").toByteArray()};
  centre.Board().clearChk->setChecked(place.value("clear").toBool());
  TheEditing.rigidityFromBoard = place.value("rigidityFromBoard").toBool();
  return place.value("live").toBool();
}

void KeepFramePlace(const QMainWindow& frame, MainCentre& centre) {
  Files().CreateFolder(DataFolder());
  QSettings place(PlaceFile(), QSettings::IniFormat);
  place.setValue("geometry", frame.saveGeometry());
  place.setValue("board", centre.Shares());
  place.setValue("clear", centre.Board().clearChk->isChecked());
  place.setValue("widthByForce", TheDisplay.WidthByForce);
  place.setValue("legend", TheDisplay.ShowLegend);
  place.setValue("live", TheLive.on);
  place.setValue("working", TheWorkingPlace.shown);
  place.setValue("workingBeside", TheWorkingPlace.beside);
  place.setValue("workingUnder", TheWorkingPlace.under);
  place.setValue("rigidityFromBoard", TheEditing.rigidityFromBoard);
}

} // namespace strutwright
