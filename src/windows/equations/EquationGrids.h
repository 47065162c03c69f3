#pragma once

#include "EquationGridView.h"

#include <array>
#include <functional>

#include <QSplitter>

namespace strutwright {

struct BlankCell;

/// K, D and P side by side, in the order in which K D = P is written.  Their rows scroll together: a row of K, its
/// displacement and its load belong to one equation.
class EquationGrids : public QSplitter {
 public:
  /// chosen: called when another cell has become the current one, or another grid has the keyboard.
  /// answered: as EquationGridView says.
  EquationGrids(QWidget* parent, const std::function<void()>& chosen, const std::function<void(AnswerMove)>& answered);

  EquationGridView& Of(EquationGrid grid) const;
  const std::array<EquationGridView*, 3>& All() const { return Views; }

  /// The one that the grid commands are about.
  EquationGridView& Active() const { return *ActiveView; }

  /// Shows what the grids hold now.
  void Refresh();

  /// How wide they would be with all of their columns in sight.
  int FittingWidth() const;

  /// One line for headings leaves more room for rows; two need less width.
  void SetHeaderLines(int lines);

 private:
  EquationGridView* Add(EquationGrid grid, const QString& name, const QString& description);
  void ScrollTogether();

  std::function<void()> Chosen;
  std::function<void(AnswerMove)> Answered;
  std::array<EquationGridView*, 3> Views{};
  EquationGridView* ActiveView = nullptr;
};

} // namespace strutwright
