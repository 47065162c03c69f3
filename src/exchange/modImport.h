#pragma once

#include "modDrawnTruss.h"
#include "modModelFile.h"

#include <string>
#include <vector>

namespace strutwright {

/// A model that came in from another program's file, apart from the one that is open.
struct ImportedModel {
  StoredModel model;
  std::vector<std::string> remarks; ///< what was left out or assumed, a sentence each, without a full stop
  std::vector<DrawnLayer> layers;   ///< of a drawing
};

/// Whether a text can be a table, JSON or DXF, by how it begins.
bool CanBeImported(const std::string& text);

/// Whether ImportText takes a text for a drawing, so that its options matter.
bool IsDrawing(const std::string& text, const std::string& name);

/// Reads a table, JSON or DXF.  The text shows which it is; the end of `name` does where it shows nothing.
/// Throws ImportError, and nothing has changed then.
ImportedModel ImportText(const std::string& text, const std::string& name, const DrawingOptions& options);

} // namespace strutwright
