#pragma once

#include "modModelFile.h"
#include "modTables.h"

#include <cstddef>
#include <string>
#include <vector>

namespace strutwright {

/// The largest file that is imported.
inline constexpr std::size_t MaxImportBytes = std::size_t{64} << 20;

/// Whether a name ends in ".dxf", ".csv", ".txt", ".tsv" or ".json", in letters of either case.
bool IsNameToImport(const std::string& path);

/// The text of a file.  Throws FileError where it can't be read, is larger than MaxImportBytes or holds no text.
std::string ReadFileToImport(const std::string& path);

/// What is in a model: "3 nodes, 3 members, 2 supports, 1 loaded node".
std::string ContentsOf(const StoredModel& model);

/// A tolerance in m, from a text in mm.  Throws ImportError where the text is no number from 0.001 to 1000000.
double ToleranceOf(const std::string& millimetres);

/// E and A of a layer as they were typed.
struct TypedLayer {
  std::string layer;
  std::string E; ///< kN/mm2
  std::string A; ///< mm2
};

/// The table of what was typed; a layer whose E and A are both empty is left out.  Throws ImportError where a text is
/// no number.
LayerTable LayersTyped(const std::vector<TypedLayer>& typed);

/// Makes an imported model the open one, and writes it into the grids with every digit that it has.  It takes the place
/// of what was entered: CurrentFileName and GridCapacity stay.  Ends the analysis.
void ReplaceModel(StoredModel model);

} // namespace strutwright
