#pragma once

#include "CheckReport.h"

#include <string>
#include <vector>

namespace strutwright {

// The check of the answer as the window keeps it: made after each analysis, gone with the model that it is about.
// A failure inside the check is no failure of the analysis: it is kept, and shown where the check is shown.

/// Judges the analysis that has just ended, with or without results.
void CheckLastAnalysis();

/// The model is about to change, or results end: the last report is about an analysis that is no longer there, and no
/// mechanism is shown.
void DropCheck();

/// Whether the report is about the model in the tables.
bool CheckIsCurrent();

/// Judges the model in the tables anew where the report is about another one; without results then.
void BringCheckUpToDate();

/// What the status panel says: "5 digits", "Mechanism - see Check" and the like; empty without an analysis.
std::string CheckStatusText();
CheckLevel CheckStatusLevel();

/// The verdict in one sentence, or why there is none.
std::string CheckVerdict();

/// Everything the check has to say, as text for the clipboard.
std::string CheckReportText();

/// Makes what a cure proposes an edit of the model: a member with the E and A of a member beside it, or a support.
/// Ends the analysis and draws anew.  A cure that names a node the model has not does nothing, nor does one that is
/// about rigidity: see FillRigidity.
void ApplyCure(const Cure& cure);

/// What can be done about members without rigidity.
struct RigidityOffer {
  std::string text;    ///< a sentence; empty where every member has rigidity
  bool usable = false; ///< E and A can be filled in
};

/// E, A: what stands in the control board's fields, in kN/mm2 and mm2.
RigidityOffer OfferRigidity(const std::string& E, const std::string& A);

/// Gives every member of the grid whose E or A is not above zero these, and leaves what is above zero.  Ends the
/// analysis and draws anew.  Does nothing where either text is no number above zero.
void FillRigidity(const std::string& E, const std::string& A);

} // namespace strutwright
