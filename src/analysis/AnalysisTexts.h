#pragma once

#include "AnalysisState.h"
#include "modAnalysis.h"
#include "modMember.h"

#include <string>

namespace strutwright {

// The words for what an analysis returns; the commands show them.

/// That a member is ignored, and why.
std::string IgnoredText(const MemberAtFault& atFault);

/// That member m has no elongation, and why.
std::string NoStretchText(int m, StretchFault fault);

/// That something was asked of a member with a number below 1.
std::string NoSuchMemberText(int m);

/// That a member names a node that does not exist.  cure: a sentence that says what to do.
std::string UnknownNodeText(const UnknownNode& unknown, const std::string& cure);

/// That the analysis is given up.  code: EmptyModelCheck or UnstableCheck.
std::string AnalysisFailureText(int code);

/// That the equations are being solved; where other node numbers would make that many times as fast, how to get them.
std::string SolvingText();

} // namespace strutwright
