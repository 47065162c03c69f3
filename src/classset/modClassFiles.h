#pragma once

#include "modClassSet.h"

#include <set>
#include <string>
#include <string_view>

namespace strutwright {

/// What a class set can consist of.
enum class ClassFormat { Pdf, Html, Moodle, Tex, Stw, Csv };

/// Their names, as --format lists them.
inline constexpr std::string_view ClassFormatNames = "pdf,html,moodle,tex,stw,csv";

/// Reads a list such as "pdf,csv".  Throws ClassFault.
std::set<ClassFormat> ReadClassFormats(const std::string& list);

/// Makes the variants and a folder with all that the formats ask for: of each student a folder with model.stw and the
/// sheet, and beside these key.csv, the teacher's key and moodle.xml.  Nothing is left of a set that fails.
/// Throws ClassFault, FileError and WorkCancelled.
void MakeClassSet(const ClassPlan& plan, const std::set<ClassFormat>& formats, const std::string& folder);

} // namespace strutwright
