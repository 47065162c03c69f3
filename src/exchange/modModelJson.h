#pragma once

#include "ModelRows.h"

#include <string>

namespace strutwright {

/// The open model as one line of JSON, every number with the digits that read back to the same float.
/// file: what it calls the model.
std::string ModelToJson(const std::string& file);

/// Reads what ModelToJson writes, also with its keys in another order, spread over lines, or with keys of other
/// programs, which are left out.  Loads, support, prestress, the numbers and the capacity may be missing.
/// Throws ImportError for the first value that is wrong.
ModelRows RowsFromJson(const std::string& text);

} // namespace strutwright
