#pragma once

#include "EquationsState.h"
#include "WorkedDocument.h"
#include "WorkingParts.h"

#include <string>

namespace strutwright {

/// The working of the page's last step: what was computed, with the numbers of the page put in.
/// Where there is nothing to show, a sentence says why and what to do.
WorkedDocument StepWorking(const EquationPage& page = TheEquations.page, WorkingExtent extent = WorkingExtent::Pane);

/// The whole method for the model in the tables, step by step, up to the reactions.  Trusses of more than
/// MaxWorkedNodes nodes come without their matrices.  Neither the model nor the equations view changes.
/// What keeps the truss from being solved ends the document with a sentence.
/// name: what a user calls the model.  picture: draws the truss; may be nothing.  Throws WorkCancelled.
WorkedDocument WorkedSolution(const std::string& name, const std::optional<WorkedPicture>& picture = std::nullopt);

} // namespace strutwright
