#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace strutwright {

/// Whether a name ends so, in letters of either case, and has something before it.
bool HasEnding(std::string name, std::string_view ending);

/// The path of the model's file, or where it has none the model's name, with another ending: "pdf".
std::string NameWithEnding(const std::string& model, const std::string& extension);

/// The name under which a document of the model is to be saved, as the user chose it; empty where there is none.  It is
/// asked for apart from the dialog's own properties, so that the dialog does not suggest it for the model.
std::string AskDocumentName(const std::string& model, const std::string& title, const std::string& extension,
                            const std::string& filter);

/// Writes what `bytes` makes; no path writes nothing.  A failure shows "Error while saving file ", the name and the
/// reason, and leaves an older file as it was.
void SaveDocument(const std::string& path, const std::function<std::string()>& bytes);

} // namespace strutwright
