#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace strutwright {

/// A cell that the grid does not have was named.
class GridRangeError : public std::out_of_range {
 public:
  GridRangeError(int row, int column);

  int row;
  int column;
};

/// What a grid reports to its listener, once a change.
struct GridChange {
  enum class Kind {
    Cell,      ///< the text of (row, column)
    Layout,    ///< the number of rows or columns, or many texts at once
    Selection, ///< the current cell or the selection
    Display    ///< the focus frame or the highlight
  };
  Kind kind = Kind::Cell;
  int row = 0;
  int column = 0;
};

/// A block of cells, both corners included.
struct GridBlock {
  int firstRow = 0;
  int firstColumn = 0;
  int lastRow = 0;
  int lastColumn = 0;

  bool operator==(const GridBlock&) const = default;
};

/// A table of cell texts whose row 0 and column 0 are fixed headers, with a current cell and a selection.
/// Rows and columns count from 0, headers included.  There is always at least the header row and column.
/// Naming a cell outside throws GridRangeError and changes nothing.
class Grid {
 public:
  /// Most data rows a grid can have: row numbers and counts are 16-bit.
  static constexpr int MaxDataRows = 32767;

  Grid() : Grid(1, 1) {}
  Grid(int rows, int columns);

  int RowCount() const { return Rows; }
  int ColumnCount() const { return Columns; }

  /// Keeps the texts that stay inside; new cells are empty.  Counts below 1 mean 1.
  /// More than MaxDataRows data rows throw std::length_error.  The current cell and the selection are moved
  /// inside where they lay outside, and from the headers to the first data row or column once there is one.
  void SetRowCount(int rows);
  void SetColumnCount(int columns);

  const std::string& Text(int row, int column) const;
  void SetText(int row, int column, std::string text);

  int CurrentRow() const { return Current.firstRow; }
  int CurrentColumn() const { return Current.firstColumn; }

  /// Makes a cell the current one and the whole selection.
  void SetCurrentCell(int row, int column);

  /// Extends the selection from the current cell to this one.
  void ExtendSelection(int row, int column);

  /// The selected cells, in ascending order whichever way the selection was drawn.
  GridBlock Selection() const;

  /// How the view frames the current cell: 0 not at all, 1 lightly, 2 heavily.
  int FocusFrame() const { return FocusFrameStyle; }
  void SetFocusFrame(int style);

  /// How the view marks the selection: 0 not at all, 1 always.
  int Highlight() const { return HighlightStyle; }
  void SetHighlight(int style);

  /// Calls `listener` after every change; an empty one ends that.
  void SetChangeNotice(std::function<void(const GridChange&)> listener) { Listener = std::move(listener); }

 private:
  void Check(int row, int column) const;
  void KeepCurrentInside();
  void Notify(const GridChange& change) const;

  int Rows = 1;
  int Columns = 1;
  std::vector<std::vector<std::string>> Cells;
  GridBlock Current; ///< first: the current cell; last: where the selection ends, in any direction
  int FocusFrameStyle = 2;
  int HighlightStyle = 1;
  std::function<void(const GridChange&)> Listener;
};

} // namespace strutwright
