#pragma once

#include <string>

namespace strutwright {

// Whether the model has been changed since it was saved.  Models are compared as the bytes of WriteModel, without
// GridCapacity, which is room for a model and was not entered.

/// Remembers what a file holds.
void NoteFile(const std::string& path, const std::string& model);

/// Whether a model would be lost if the program ended: a model with a CurrentFileName that differs from what that
/// file holds, or one without that none of the files holds.  An empty model without a CurrentFileName is not.
bool IsUnsaved(const std::string& model);

} // namespace strutwright
