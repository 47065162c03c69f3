#include "QtPrinters.h"

#include "FileSystem.h"
#include "PaperPages.h"
#include "PathSpelling.h"

#include <algorithm>

#include <QApplication>
#include <QPrintDialog>
#include <QPrinter>

namespace strutwright {

bool QtPrinters::Print(const PaperDocument& document) {
  QPrinter printer(QPrinter::HighResolution);
  // The dialog is the system's there, which shows nothing without a printer.
  if (HasBackslashPaths && printer.outputFormat() != QPrinter::NativeFormat) {
    throw FileError("There is no printer: save as PDF instead");
  }
  printer.setPageLayout(LayoutOf(document));
  printer.setDocName(QString::fromStdString(document.title));
  QPrintDialog dialog(&printer, QApplication::activeWindow());
  dialog.setObjectName("PrintDialog");
  dialog.setWindowTitle("Print Report");
  dialog.setOption(QAbstractPrintDialog::PrintPageRange);
  if (dialog.exec() != QDialog::Accepted) return false;
  PaintPages(document, printer, {std::max(1, printer.fromPage()), printer.toPage()});
  return true;
}

} // namespace strutwright
