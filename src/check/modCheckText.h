#pragma once

#include "CheckReport.h"

#include <string>
#include <vector>

namespace strutwright {

/// One figure of a report, and where it is worst.
struct CheckRow {
  std::string label;
  std::string value; ///< with its unit
  int worstNode = 0; ///< 0: none is named
  int worstMember = 0;
};

/// The figures of a report: digits, differences, residuals and energies as far as there are results, then mechanisms
/// and static indeterminacy.
std::vector<CheckRow> CheckRows(const CheckReport& report);

/// The report as plain text, a line each, for the clipboard and the command line.
std::string CheckText(const CheckReport& report);

} // namespace strutwright
