#pragma once

#include "modEditSnapshot.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>

#include <QString>
#include <QUndoStack>

namespace strutwright {

/// What the user has changed in the model, as steps that can be undone and done again: copies of the grids' texts
/// before and after each command.  A step that brings another model back, which Open or New had replaced, brings the
/// file name, the caption and the capacity that this model had last.
class EditHistory {
 public:
  /// caption: the one that belongs to the model now; must outlive the history.
  explicit EditHistory(const QString& caption) : Caption(caption) { Stack.setUndoLimit(DeepestHistory); }

  /// Runs a command as one step, if it changes anything; also when it fails half-way.
  /// what: the command's name, as in "Undo Paste".
  void Run(const QString& what, const std::function<void()>& command);

  void Undo() { Stack.undo(); }
  void Redo() { Stack.redo(); }
  const QUndoStack& Steps() const { return Stack; }

 private:
  static constexpr int DeepestHistory = 500;

  class Step;
  struct State {
    EditSnapshot model;
    QString caption;

    bool operator==(const State&) const = default;
  };

  /// What a model had beside its texts and its file when it gave way to another one.
  struct Belongings {
    QString caption;
    std::int16_t gridCapacity = 0;
  };

  std::shared_ptr<const State> Take() const;
  void Leave(const State& state);
  void Restore(const State& state);
  void RestoreAnother(const State& state);
  void Keep(const QString& what, const std::shared_ptr<const State>& before);

  const QString& Caption;
  QUndoStack Stack;
  std::map<int, Belongings> Left;    ///< by the model's number
  std::shared_ptr<const State> Last; ///< the state after the last step, shared with the next one
};

} // namespace strutwright
