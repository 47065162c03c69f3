#include "EditHistory.h"

#include "EventGuard.h"

#include <utility>

#include <QUndoCommand>

namespace strutwright {

namespace {

constexpr int DeepestHistory = 500;

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

EditHistory::EditHistory(QWidget& frame) : Frame(frame) { Stack.setUndoLimit(DeepestHistory); }

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
  State state{TakeSnapshot(), Frame.windowTitle()};
  if (Last && *Last == state) return Last;
  return std::make_shared<const State>(std::move(state));
}

void EditHistory::Restore(const State& state) {
  RestoreSnapshot(state.model);
  Frame.setWindowTitle(state.caption);
}

void EditHistory::Keep(const QString& what, const std::shared_ptr<const State>& before) {
  Last = before;
  const std::shared_ptr<const State> after = Take();
  if (after == before) return;
  Last = after;
  Stack.push(new Step(*this, what, before, after)); // the stack owns it
}

} // namespace strutwright
