#pragma once

#include "FieldTable.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace strutwright {

// The model file: three 16-bit counts, then NodeTable, then MemberTable as 32-bit floats, all little-endian.
// Source: docs/format.md.

/// A model as a file gives it, apart from the one that is open.
struct StoredModel {
  std::int16_t capacity = 0;
  std::int16_t nodeCount = 0;
  std::int16_t memberCount = 0;
  FieldTable nodes{6};
  FieldTable members{10};
  std::size_t promisedValues = 0;  ///< table values that the counts promise
  std::size_t presentValues = 0;   ///< those of them that the bytes held; the others are read as zero
  std::size_t notFiniteValues = 0; ///< values that were infinite or not a number and are read as zero
};

/// The open model as a value: GridCapacity, both counts, both tables.
StoredModel ModelInTables();

/// A model as the bytes of a file.
std::string WriteModel(const StoredModel& model = ModelInTables());

/// The model as the grids hold it, as the bytes of a file; member fields 6 to 9 are zero.  The tables stay as they are.
std::string ModelInGrids();

/// Reads a model from the bytes of a file; what stands behind the member table is ignored.
/// Every count from 0 to 32767 is read, also one of nodes that no analysis takes: what was saved can be opened.
/// Throws FileError when the three counts are not there or one of them is negative.
StoredModel ReadModel(const std::string& bytes);

/// Makes a model that was read the open one, GridCapacity included.
void TakeModel(StoredModel model);

/// Saves the open model, as SaveBytes does.  Throws FileError.
void SaveModelFile(const std::string& path);

/// Reads a model file, and no more of it than the largest model takes.  Throws FileError.
StoredModel LoadModelFile(const std::string& path);

} // namespace strutwright
