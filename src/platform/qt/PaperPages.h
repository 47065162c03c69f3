#pragma once

#include "Paper.h"

#include <QMarginsF>
#include <QPageLayout>

class QPagedPaintDevice;
class QTextDocument;

namespace strutwright {

/// Margins of a page, mm; on the left there is room to file it.
inline constexpr QMarginsF PageMargins{20, 15, 15, 12};

/// A range of pages, from 1; last 0: to the end.
struct PageRange {
  int first = 1;
  int last = 0;
};

/// A page of A4 for a document.
QPageLayout LayoutOf(const PaperDocument& document);

/// Lays a document out on the pages of a device, whose page layout is set and which must outlive it.  No heading stands
/// at the foot of a page without what it heads.
void LayOut(QTextDocument& text, const PaperDocument& document, QPagedPaintDevice& device);

/// Paints a document page by page, each with a line at its foot: the title and the page's number.
/// What stands behind HtmlNewPage begins on a page of its own.
/// device: its page layout is set; nothing has been painted on it.  Returns how many pages the document has.
/// Throws FileError where the device refuses.
int PaintPages(const PaperDocument& document, QPagedPaintDevice& device, PageRange range = {});

} // namespace strutwright
