#include "AnalysisTexts.h"

#include "modModelStore.h"
#include "modNumberText.h"
#include "modRenumbering.h"

namespace strutwright {

namespace {

std::string WhatIsWrong(MemberFault fault) {
  switch (fault) {
  case MemberFault::EBelowZero: return "E-value";
  case MemberFault::ABelowZero: return "A-value";
  case MemberFault::NoLength: return "has no length";
  case MemberFault::NoNode: break;
  }
  return "node numbers";
}

std::string WhatIsNotValid(StretchFault fault) {
  switch (fault) {
  case StretchFault::E: return "E is not valid";
  case StretchFault::A: return "area is not valid";
  case StretchFault::EAndA: break;
  }
  return "E and A are not valid";
}

} // namespace

std::string IgnoredText(const MemberAtFault& atFault) {
  return "Error: member index " + std::to_string(atFault.member) + " " + WhatIsWrong(atFault.fault) +
         "\nMember ignored";
}

std::string NoStretchText(int m, StretchFault fault) {
  return "Ignoring member " + std::to_string(m) + " as " + WhatIsNotValid(fault);
}

std::string NoSuchMemberText(int m) { return "Error: member index of " + std::to_string(m) + " called"; }

std::string UnknownNodeText(const UnknownNode& unknown, const std::string& cure) {
  const std::string there =
      NodeCount == 0 ? "the model has no nodes" : "the nodes are numbered 1 to " + std::to_string(NodeCount);
  return "Member " + std::to_string(unknown.member) + " names node " + NumberText(unknown.node) +
         ", which does not exist: " + there + ".\n" + cure;
}

std::string AnalysisFailureText(int code) {
  return "Structure is unstable - Aborting analysis\nFailed Check " + std::to_string(code);
}

std::string SolvingText() {
  const std::string solving = "Solving the equations";
  return RenumberingWouldHelp() ? solving + " (Tools > Renumber Nodes Along the Span makes this faster)" : solving;
}

} // namespace strutwright
