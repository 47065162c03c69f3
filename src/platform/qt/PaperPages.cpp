#include "PaperPages.h"

#include "BusyPointer.h"
#include "FileSystem.h"

#include <algorithm>

#include <QAbstractTextDocumentLayout>
#include <QFont>
#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPalette>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace strutwright {

namespace {

constexpr double FootSize = 8; // points
constexpr double FootLines = 2.5;
constexpr double RoomBelowHeading = 4; // that a page must have, in heights of the heading

/// The text black on white, whatever the desktop's colours are.
void PaintBody(QPainter& painter, const QTextDocument& text, const QRectF& page) {
  painter.save();
  painter.translate(0, -page.top());
  painter.setClipRect(page);
  QAbstractTextDocumentLayout::PaintContext context;
  context.clip = page;
  context.palette.setColor(QPalette::Text, Qt::black);
  text.documentLayout()->draw(&painter, context);
  painter.restore();
}

int PageOf(double y, double pageHeight) { return static_cast<int>(y / pageHeight); }

/// Whether a heading stands at the foot of a page without what it heads.
bool IsLeftBehind(const QTextBlock& heading, const QAbstractTextDocumentLayout& layout, double pageHeight) {
  const QRectF place = layout.blockBoundingRect(heading);
  const double room = RoomBelowHeading * place.height();
  const int page = PageOf(place.top(), pageHeight);
  if (PageOf(place.bottom() + room, pageHeight) > page) return true;
  QTextBlock below = heading.next();
  while (below.isValid() && below.blockFormat().headingLevel() > 0) below = below.next();
  // The paragraph below a picture explains it.
  for (int block = 0; block < 2 && below.isValid(); ++block, below = below.next()) {
    if (PageOf(layout.blockBoundingRect(below).bottom(), pageHeight) > page) return true;
  }
  return false;
}

/// Begins a page with each such heading.  From the first on, because each moves those that follow.
void KeepHeadingsTogether(QTextDocument& text) {
  const double pageHeight = text.pageSize().height();
  for (QTextBlock block = text.begin(); block.isValid(); block = block.next()) {
    if (block.blockFormat().headingLevel() == 0 || !IsLeftBehind(block, *text.documentLayout(), pageHeight)) continue;
    QTextBlockFormat format = block.blockFormat();
    format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    QTextCursor(block).setBlockFormat(format);
    text.markContentsDirty(0, text.characterCount()); // or what follows is not laid out anew
  }
}

QFont FootFont() {
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setPointSizeF(FootSize);
  return font;
}

double FootHeight(QPaintDevice& device) { return FootLines * QFontMetricsF(FootFont(), &device).height(); }

void PaintFoot(QPainter& painter, const QString& title, const QString& number) {
  const QRectF paper(0, 0, painter.device()->width(), painter.device()->height());
  const QFontMetricsF metrics(FootFont(), painter.device());
  const double room = paper.width() - 2 * metrics.horizontalAdvance(number);
  painter.setFont(FootFont());
  painter.setPen(Qt::black);
  painter.drawText(paper, Qt::AlignBottom | Qt::AlignLeft | Qt::TextSingleLine,
                   metrics.elidedText(title, Qt::ElideMiddle, room));
  painter.drawText(paper, Qt::AlignBottom | Qt::AlignRight | Qt::TextSingleLine, number);
}

} // namespace

QPageLayout LayoutOf(const PaperDocument& document) {
  const auto orientation = document.landscape ? QPageLayout::Landscape : QPageLayout::Portrait;
  return {QPageSize(QPageSize::A4), orientation, PageMargins, QPageLayout::Millimeter};
}

void LayOut(QTextDocument& text, const PaperDocument& document, QPagedPaintDevice& device) {
  text.documentLayout()->setPaintDevice(&device);
  text.setDocumentMargin(0);
  text.setHtml(QString::fromStdString(document.html));
  text.setPageSize(QSizeF(device.width(), device.height() - FootHeight(device)));
  KeepHeadingsTogether(text);
}

int PaintPages(const PaperDocument& document, QPagedPaintDevice& device, PageRange range) {
  const BusyPointer busy; // a few seconds for hundreds of pages
  QPainter painter;
  if (!painter.begin(&device)) throw FileError("The pages could not be made");
  painter.setRenderHint(QPainter::LosslessImageRendering);
  QTextDocument text;
  LayOut(text, document, device);
  const int count = text.pageCount();
  const int last = range.last > 0 ? std::min(range.last, count) : count;
  const int first = std::min(range.first, count);
  for (int page = first; page <= last; ++page) {
    if (page > first && !device.newPage()) throw FileError("The pages could not be made");
    PaintBody(painter, text, QRectF(QPointF(0, (page - 1) * text.pageSize().height()), text.pageSize()));
    PaintFoot(painter, QString::fromStdString(document.title), QStringLiteral("Page %1 of %2").arg(page).arg(count));
  }
  if (!painter.end()) throw FileError("The pages could not be made");
  return count;
}

} // namespace strutwright
