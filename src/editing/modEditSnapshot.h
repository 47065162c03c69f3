#pragma once

#include "Grid.h"

#include <cstdint>
#include <string>
#include <vector>

namespace strutwright {

/// All texts of a grid, header row and row numbers included, row by row.
struct GridTexts {
  int rows = 1;
  int columns = 1;
  std::vector<std::string> texts{""};

  bool operator==(const GridTexts&) const = default;
};

/// What an undo step keeps: the model as its grids hold it, and what belongs to it.  Without the file name, a save
/// after an undone Open would put one model over the other's file.
struct EditSnapshot {
  GridTexts joints;
  GridTexts members;
  std::int16_t gridCapacity = 0;
  std::string currentFileName;
  int modelNumber = 0; ///< distinguishes the models that were opened or begun

  bool operator==(const EditSnapshot&) const = default;
};

/// The state as it is now.  The window's caption is not part of it; who shows one keeps it beside the snapshot.
EditSnapshot TakeSnapshot();

/// Brings a state back: ends the analysis, writes the grids, the capacity, the file name and the model's number,
/// rebuilds the model and draws it.  The current cells stay where they are as far as the grids have them.
void RestoreSnapshot(const EditSnapshot& snapshot);

} // namespace strutwright
