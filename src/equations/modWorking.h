#pragma once

#include "EquationsState.h"
#include "WorkedDocument.h"
#include "WorkingParts.h"

#include <optional>
#include <string>

namespace strutwright {

/// Where a number of the working comes from, as its link says.
struct NumberSource {
  enum class Kind {
    Node,         ///< first: its number
    Member,       ///< first: its number; also of its force
    Stiffness,    ///< first, second: row and column of K
    Load,         ///< first: its freedom
    Displacement, ///< first: its freedom
  };
  Kind kind{};
  int first = 0;
  int second = 0;

  bool operator==(const NumberSource&) const = default;
};

/// Nothing for a text that is no link of the working.
std::optional<NumberSource> SourceOfLink(const std::string& link);

/// The working of the page's last step: what was computed, with the numbers of the page put in.
/// Where there is nothing to show, a sentence says why and what to do.
WorkedDocument StepWorking(const EquationPage& page = TheEquations.page, WorkingExtent extent = WorkingExtent::Pane);

/// The whole method for the model in the tables, step by step, up to the reactions.  Trusses of more than
/// MaxWorkedNodes nodes come without their matrices.  Neither the model nor the equations view changes.
/// What keeps the truss from being solved ends the document with a sentence.
/// name: what a user calls the model.  picture: draws the truss; may be nothing.  Throws WorkCancelled.
WorkedDocument WorkedSolution(const std::string& name, const std::optional<WorkedPicture>& picture = std::nullopt);

} // namespace strutwright
