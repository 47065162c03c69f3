#pragma once

#include "modCheckLists.h"
#include "modCheckText.h"

#include <vector>

#include <QLabel>
#include <QListWidget>
#include <QTableWidget>

namespace strutwright {

/// A text that can be selected.  description: what it is about; its name for people is what it says.
QLabel* NewLabel(const QString& name, const QString& description);

/// A list of lines, of which one that is about nodes or members can be chosen.
class LineList : public QListWidget {
 public:
  LineList(const QString& name, const QString& description);

  /// Shows these lines, none of them chosen.
  void Show(const std::vector<CheckLine>& lines);
};

/// The figures of the check: what, how much, and where it is worst.
class FigureTable : public QTableWidget {
 public:
  FigureTable();

  /// Shows these rows, all of them in sight and none chosen.
  void Show(const std::vector<CheckRow>& rows);
};

} // namespace strutwright
