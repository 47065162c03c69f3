#include "EditHistory.h"

#include "EventGuard.h"
#include "FileEvents.h"
#include "FileState.h"
#include "ModelEvents.h"
#include "modModelStore.h"
#include "modOptions.h"

#include <utility>

#include <QUndoCommand>

namespace strutwright {

namespace {

/// A command that has changed no text of the grids, such as an Open that was cancelled, is no step.
bool HoldSameTexts(const EditSnapshot& one, const EditSnapshot& other) {
  return one.joints == other.joints && one.members == other.members;
}

} // namespace

/// The stack redoes a step as it takes it; by then it has been done.
class EditHistory::Step : public QUndoCommand {
 public:
  Step(EditHistory& history, const QString& what, std::shared_ptr<const State> before,
       std::shared_ptr<const State> after)
      : QUndoCommand(what), History(history), Before(std::move(before)), After(std::move(after)),
        WithFile(Before->model.currentFileName != After->model.currentFileName || Before->caption != After->caption) {}

  void undo() override {
    Guard([this] { History.Restore(*Before, WithFile); });
  }
  void redo() override {
    if (std::exchange(Done, true)) Guard([this] { History.Restore(*After, WithFile); });
  }

 private:
  EditHistory& History;
  std::shared_ptr<const State> Before;
  std::shared_ptr<const State> After;
  bool WithFile; ///< the step has changed which file the model belongs to
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

/// A file that the model has been saved to since belongs to it for good: undoing an edit must not let the next Save
/// write over the file from before.
void EditHistory::Restore(const State& state, bool withFile) {
  EditSnapshot model = state.model;
  if (!withFile) {
    model.currentFileName = CurrentFileName;
    model.gridCapacity = GridCapacity;
  }
  RestoreSnapshot(model);
  if (GridCapacity != state.model.gridCapacity) LayOutForCapacity();
  if (!withFile) return;
  FileEvents().CaptionChanged(state.caption.toStdString());
  ModelEvents().ModelReplaced();
}

void EditHistory::Keep(const QString& what, const std::shared_ptr<const State>& before) {
  Last = before;
  const std::shared_ptr<const State> after = Take();
  if (HoldSameTexts(before->model, after->model)) return;
  Last = after;
  Stack.push(new Step(*this, what, before, after)); // the stack owns it
}

} // namespace strutwright
