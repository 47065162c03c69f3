#pragma once

#include "modReport.h"

#include <string>

namespace strutwright {

/// Whether a name ends in ".pdf" or ".html", in letters of either case: what WriteReport can write.
bool IsNameOfReport(const std::string& path);

/// Writes the report in the format that the name's ending says, HTML where it says none.
/// Throws FileError; an older file is then as it was.
void WriteReport(const Report& report, const std::string& path);

/// Asks for a name, suggests that of the model and writes the report there.
/// A failure shows "Error while saving file ", the name and the reason.
void SaveReportAsPdf(const Report& report);
void SaveReportAsHtml(const Report& report);

/// Lets the user choose a printer and prints.  A failure shows "The report could not be printed" and the reason.
void PrintReport(const Report& report);

} // namespace strutwright
