#include "modReportFiles.h"

#include "DocumentFiles.h"
#include "Platform.h"
#include "modSafeSave.h"

namespace strutwright {

namespace {

bool IsPdf(const std::string& path) { return HasEnding(path, ".pdf"); }

/// The path of the model's file, or the model's name.
const std::string& ModelOf(const Report& report) { return report.path.empty() ? report.name : report.path; }

} // namespace

bool IsNameOfReport(const std::string& path) { return IsPdf(path) || HasEnding(path, ".html"); }

void WriteReport(const Report& report, const std::string& path) {
  SaveWholeFile(path, IsPdf(path) ? ThePaper().Pdf(report.document) : report.document.html);
}

void SaveReportAsPdf(const Report& report) {
  SaveDocument(AskDocumentName(ModelOf(report), "Save Report as PDF", "pdf", "PDF documents|*.pdf|All files|*.*"),
               [&report] { return ThePaper().Pdf(report.document); });
}

void SaveReportAsHtml(const Report& report) {
  SaveDocument(AskDocumentName(ModelOf(report), "Save Report as HTML", "html", "HTML pages|*.html|All files|*.*"),
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
