#include "GridCommands.h"

#include "CommandFrame.h"
#include "ControlBoard.h"
#include "EditingState.h"
#include "EventGuard.h"
#include "modModelStore.h"

#include <array>
#include <string_view>

#include <QAction>

namespace strutwright {

GridCommands::GridCommands(CommandFrame& frame, ControlBoard& board) : Frame(frame), Board(board), Shown(&GrJoints) {
  BuildMenu();
  for (DataGridView* view : {Board.GrJointsView, Board.GrMembersView, Board.jResGrView, Board.mResGrView}) {
    view->SetMenuNotice([this, view](const QPoint& place) { OpenMenu(*view, place); });
    view->addActions(mnuGrid->actions()); // for the keys, which belong to the grid that has the focus
  }
  EnableActions();
}

void GridCommands::BuildMenu() {
  struct Look {
    QString text;
    QKeySequence shortcut;
  };
  const std::array<Look, GridMenu.size()> looks{{{"&Copy", QKeySequence::Copy},
                                                 {"Cu&t", QKeySequence::Cut},
                                                 {"&Paste", QKeySequence::Paste},
                                                 {"&Delete", QKeySequence::Delete},
                                                 {"Select &All", QKeySequence::SelectAll},
                                                 {"Co&mpress", {}}}};
  mnuGrid = new QMenu(&Frame);
  mnuGrid->setObjectName("mnuGrid");
  for (std::size_t entry = 0; entry < GridMenu.size(); ++entry) {
    const std::string_view name = GridMenu.at(entry).name;
    auto* action = new QAction(looks.at(entry).text, &Frame);
    action->setObjectName(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())));
    action->setShortcut(looks.at(entry).shortcut);
    action->setShortcutContext(Qt::WidgetShortcut);
    OnSignal(action, &QAction::triggered, &Frame,
             [this, command = GridMenu.at(entry).command] { Frame.Run([this, command] { Run(command); }); });
    mnuGrid->addAction(action);
  }
}

void GridCommands::ShowGrid(std::size_t index) {
  Board.ShowGrid(static_cast<int>(index));
  const std::array<Grid*, 4> grids{&GrJoints, &GrMembers, &jResGr, &mResGr};
  Shown = grids.at(index);
  EnableActions();
}

void GridCommands::OpenMenu(DataGridView& view, const QPoint& place) {
  Shown = &view.Data();
  EnableActions();
  mnuGrid->popup(place);
}

void GridCommands::EnableActions() {
  const QList<QAction*> actions = mnuGrid->actions();
  for (qsizetype entry = 0; entry < actions.size(); ++entry) {
    actions[entry]->setEnabled(IsEnabled(GridMenu.at(static_cast<std::size_t>(entry)).command, *Shown));
  }
}

void GridCommands::Run(GridCommand command) {
  const QAction* entry = mnuGrid->actions().at(static_cast<qsizetype>(command));
  Frame.Edit(entry->text().remove('&'), [&] { RunGridCommand(command, *Shown); });
  if (command != GridCommand::SelectAll) return;
  for (DataGridView* view : {Board.GrJointsView, Board.GrMembersView, Board.jResGrView, Board.mResGrView}) {
    if (&view->Data() == Shown) view->ChooseSelection();
  }
}

} // namespace strutwright
