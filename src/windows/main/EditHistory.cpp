#include "EditHistory.h"

#include "EventGuard.h"
#include "FileEvents.h"
#include "FileState.h"
#include "ModelEvents.h"
#include "modModelHomes.h"
#include "modModelStore.h"
#include "modOptions.h"

#include <utility>

#include <QUndoCommand>

namespace strutwright {

namespace {

bool HoldSameTexts(const EditSnapshot& one, const EditSnapshot& other) {
  return one.joints == other.joints && one.members == other.members;
}

} // namespace

/// The stack redoes a step as it takes it; by then it has been done.
class EditHistory::Step : public QUndoCommand {
 public:
  Step(EditHistory& history, const QString& what, std::shared_ptr<const State> before,
       std::shared_ptr<const State> after)
      : QUndoCommand(what), History(history), Before(std::move(before)), After(std::move(after)) {}

  void undo() override {
    Guard([this] { History.Restore(*Before); });
  }
  void redo() override {
    if (std::exchange(Done, true)) Guard([this] { History.Restore(*After); });
  }

 private:
  EditHistory& History;
  std::shared_ptr<const State> Before;
  std::shared_ptr<const State> After;
  bool Done = false;
};

void EditHistory::Run(const QString& what, const std::function<void()>& command) {
  const std::shared_ptr<const State> before = Take();
  try {
    command();
  } catch (...) {
    Keep(what, before);
    throw;
  }
  Keep(what, before);
}

std::shared_ptr<const EditHistory::State> EditHistory::Take() const {
  State state{TakeSnapshot(), Caption};
  if (Last && *Last == state) return Last;
  return std::make_shared<const State>(std::move(state));
}

void EditHistory::Leave(const State& state) {
  LeaveModel(state.model.modelNumber, state.model.currentFileName);
  Left[state.model.modelNumber] = {state.caption, state.model.gridCapacity};
}

/// A file that the model has been saved to since belongs to it for good: undoing an edit must not let the next Save
/// write over the file from before.
void EditHistory::Restore(const State& state) {
  if (state.model.modelNumber != TheFiles.Opened.open) return RestoreAnother(state);
  EditSnapshot model = state.model;
  model.currentFileName = CurrentFileName;
  model.gridCapacity = GridCapacity;
  RestoreSnapshot(model);
  if (GridCapacity != state.model.gridCapacity) LayOutForCapacity();
}

void EditHistory::RestoreAnother(const State& state) {
  Leave(*Take());
  if (!Left.contains(state.model.modelNumber)) Leave(state); // no step has replaced it
  const Belongings belongings = Left.at(state.model.modelNumber);
  EditSnapshot model = state.model;
  model.currentFileName = FileNameOfModel(model.modelNumber);
  model.gridCapacity = belongings.gridCapacity;
  RestoreSnapshot(model);
  if (GridCapacity != state.model.gridCapacity) LayOutForCapacity();
  FileEvents().CaptionChanged(belongings.caption.toStdString());
  ModelEvents().ModelReplaced();
}

/// A command that has changed no text of the grids, such as an Open that was cancelled, is no step; an Open or a New
/// is one all the same where the file has changed.
void EditHistory::Keep(const QString& what, const std::shared_ptr<const State>& before) {
  Last = before;
  std::shared_ptr<const State> after = Take();
  const bool another = after->model.modelNumber != before->model.modelNumber;
  if (another) Leave(*before);
  const bool sameFile =
      after->model.currentFileName == before->model.currentFileName && after->caption == before->caption;
  if (HoldSameTexts(before->model, after->model) && (!another || sameFile)) {
    TheFiles.Opened.open = before->model.modelNumber; // what was opened is what was open
    return;
  }
  Last = after;
  Stack.push(new Step(*this, what, before, after)); // the stack owns it
}

} // namespace strutwright
