#pragma once

#include "DrawingSurface.h"
#include "Formula.h"
#include "Paper.h"

#include <functional>
#include <string>
#include <variant>
#include <vector>

namespace strutwright {

// A worked solution as a value: a title and blocks one below the other.  Texts are UTF-8 and not escaped yet.  What
// writes it as a file stands in src/report.

struct WorkedHeading {
  int level = 2; ///< 2 or 3; the title is level 1
  std::string text;
};

struct WorkedParagraph {
  std::string text;
};

/// A formula in a line of its own.
struct WorkedFormula {
  Formula formula;
};

struct WorkedColumn {
  std::string heading;
  bool isText = false; ///< set to the left; numbers are set to the right
};

struct WorkedTable {
  std::vector<WorkedColumn> columns;
  std::vector<std::vector<std::string>> rows; ///< as many texts as there are columns
};

/// A picture of so many pixels, as what draws it.
struct WorkedPicture {
  int width = 0;
  int height = 0;
  std::function<void(DrawingSurface&)> draw;
  PaperPicture made = {}; ///< where it has been made already
};

/// Blank lines to write on by hand.
struct WorkedRoom {
  int lines = 1;
};

/// What follows begins on a page of its own.
struct WorkedNewPage {};

using WorkedBlock =
    std::variant<WorkedHeading, WorkedParagraph, WorkedFormula, WorkedTable, WorkedPicture, WorkedRoom, WorkedNewPage>;

struct WorkedDocument {
  std::string title;
  std::vector<WorkedBlock> blocks;
  bool landscape = false; ///< printed pages lie on their side
};

} // namespace strutwright
