#pragma once

#include "DrawingSurface.h"
#include "Sketch.h"

#include <string>

namespace strutwright {

/// Asks for a name, suggests that of the model, and saves a sheet of sketches there: as TikZ under a name that ends in
/// ".tex", otherwise as the surface saves it.  A failure shows "Error while saving file ", the name and the reason.
/// drawn: the surface that shows the sheet.  lit: the key of the lines that are lit up.
void SaveSketchPicture(DrawingSurface& drawn, const SketchSheet& sheet, int lit, const std::string& model);

/// Lets the user choose a printer and prints a page: a title, the sheet, and a text, a paragraph for each of its lines.
/// A failure shows "The page could not be printed" and the reason.
void PrintSketchPage(const std::string& title, const std::string& text, const SketchSheet& sheet);

} // namespace strutwright
