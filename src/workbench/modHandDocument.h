#pragma once

#include "WorkedDocument.h"
#include "modHandLesson.h"

#include <string>

namespace strutwright {

/// An equation or a solution of the hand methods as a formula: "0.8 F3 - F4 + 0.6 (-12.5) = 0", "F4 = 10 kN (tension)".
Formula FormulaOfHand(const std::string& text);

/// Whether the whole solution by hand can be written down: of a determinate truss it can.
bool HasHandDocument(const HandLesson& lesson);

/// The solution by hand from the reactions to the last joint, with its figures.  Only the first steps of a large truss
/// have figures of their own.  The lesson must have one.
/// name: of the model.
WorkedDocument HandDocument(const HandLesson& lesson, const std::string& name);

} // namespace strutwright
