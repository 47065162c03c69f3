#include "modReportFiles.h"

#include "Platform.h"
#include "modFileCommands.h"
#include "modSafeSave.h"

#include <algorithm>
#include <string_view>

namespace strutwright {

namespace {

bool EndsIn(std::string name, std::string_view ending) {
  std::transform(name.begin(), name.end(), name.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  return name.size() > ending.size() && name.ends_with(ending);
}

bool IsPdf(const std::string& path) { return EndsIn(path, ".pdf"); }

/// The path of the model's file, or the model's name, with another ending.
std::string SuggestedName(const Report& report, const std::string& extension) {
  const std::string& model = report.path.empty() ? report.name : report.path;
  const std::size_t name = model.find_last_of("\\/") + 1;
  const std::size_t point = model.find_last_of('.');
  const bool hasEnding = point != std::string::npos && point > name;
  return model.substr(0, hasEnding ? point : std::string::npos) + "." + extension;
}

/// The name that the user chose; empty where there is none.  It is asked for apart from the dialog's own properties, so
/// that the dialog does not suggest the report's name for the model.
std::string AskName(const Report& report, const std::string& title, const std::string& extension,
                    const std::string& filter) {
  const FileQuestion question{.title = title,
                              .flags = OverwritePrompt,
                              .defaultExtension = extension,
                              .initialFolder = "",
                              .filter = filter,
                              .fileName = SuggestedName(report, extension)};
  return TheFileDialog().Ask(FileDialogKind::Save, question).value_or("");
}

void SaveAs(const std::string& path, const std::function<std::string()>& bytes) {
  if (path.empty()) return;
  try {
    SaveWholeFile(path, bytes());
  } catch (const FileError& failure) {
    ReportSaveFailure(path, failure.what());
  }
}

} // namespace

bool IsNameOfReport(const std::string& path) { return IsPdf(path) || EndsIn(path, ".html"); }

void WriteReport(const Report& report, const std::string& path) {
  SaveWholeFile(path, IsPdf(path) ? ThePaper().Pdf(report.document) : report.document.html);
}

void SaveReportAsPdf(const Report& report) {
  SaveAs(AskName(report, "Save Report as PDF", "pdf", "PDF documents|*.pdf|All files|*.*"),
         [&report] { return ThePaper().Pdf(report.document); });
}

void SaveReportAsHtml(const Report& report) {
  SaveAs(AskName(report, "Save Report as HTML", "html", "HTML pages|*.html|All files|*.*"),
         [&report] { return report.document.html; });
}

void PrintReport(const Report& report) {
  try {
    ThePrinters().Print(report.document);
  } catch (const FileError& failure) {
    ShowMessage(MessageIcon::Information, std::string("The report could not be printed\n") + failure.what());
  }
}

} // namespace strutwright
