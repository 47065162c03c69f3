#pragma once

#include "Grid.h"

#include <cstddef>
#include <map>
#include <string>
#include <tuple>
#include <vector>

namespace strutwright {

/// Cells of the data grids that a drag changes again and again before it becomes an edit, or none.
class CellEdits {
 public:
  /// Writes a text and remembers, the first time, what stood there.
  void Put(Grid& grid, int row, int column, const std::string& text);

  /// Writes what stood there at first.
  void PutBack();

  /// Writes after PutBack what was put last.
  void PutAgain();

  /// Whether what was put last into any cell is another text than stood there at first.
  bool ChangeAny() const;

 private:
  struct Cell {
    Grid* grid;
    int row;
    int column;
    std::string before;
    std::string after;
  };

  Cell& Find(Grid& grid, int row, int column);

  std::vector<Cell> Cells;
  std::map<std::tuple<Grid*, int, int>, std::size_t> Places; ///< in Cells
};

// What is entered where one looks.  Each works on the model as it stands in the grids, ends the analysis and draws the
// truss; a node or a member that is not there changes nothing.

/// code: as in NodeSupport.
void EnterSupport(int n, int code);

/// Loads in kN.
void EnterLoad(int n, const std::string& forceX, const std::string& forceY);

/// One component, in kN; the other stays.
void EnterLoadAlong(int n, bool alongY, const std::string& force);

/// E in kN/mm2, A in mm2.
void EnterRigidity(int m, const std::string& E, const std::string& A);

/// PS in kN.
void EnterPrestress(int m, const std::string& PS);

/// The largest round number, 1, 2 or 5 times a power of ten, not above a value above zero; 1 for any other value.
double RoundStep(double most);

} // namespace strutwright
