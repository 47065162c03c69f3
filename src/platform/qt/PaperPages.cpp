#include "PaperPages.h"

#include "BusyPointer.h"
#include "FileSystem.h"
#include "HtmlNewPage.h"
#include "PageDrawings.h"

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <QAbstractTextDocumentLayout>
#include <QFont>
#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPalette>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>

namespace strutwright {

namespace {

constexpr double FootSize = 8; // points
constexpr double FootLines = 2.5;
constexpr double RoomBelowHeading = 4; // that a page must have, in heights of the heading
constexpr int PartsHeaded = 3;         // parts below a heading among which a formula belongs to it

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

/// A table without headings holds a formula: its lines belong together, unlike the rows of other tables.
QTextTable* FormulaAt(const QTextFrame::iterator& part) {
  auto* table = qobject_cast<QTextTable*>(part.currentFrame());
  return table != nullptr && table->format().headerRowCount() == 0 ? table : nullptr;
}

/// Whether a formula that a page could hold stands on two.
bool IsCut(QTextTable& formula, const QAbstractTextDocumentLayout& layout, double pageHeight) {
  const QRectF place = layout.frameBoundingRect(&formula);
  return place.height() <= pageHeight && PageOf(place.top(), pageHeight) != PageOf(place.bottom(), pageHeight);
}

bool IsHeading(const QTextBlock& block) { return block.isValid() && block.blockFormat().headingLevel() > 0; }

/// Whether it is a sentence that leads to what is below.
bool LeadsOn(const QTextBlock& block) { return block.isValid() && block.text().endsWith(':'); }

/// Whether a heading stands at the foot of a page without what it heads.
bool IsLeftBehind(const QTextFrame::iterator& part, const QAbstractTextDocumentLayout& layout, double pageHeight) {
  const QTextBlock heading = part.currentBlock();
  const QRectF place = layout.blockBoundingRect(heading);
  const double room = RoomBelowHeading * place.height();
  const int page = PageOf(place.top(), pageHeight);
  if (PageOf(place.bottom() + room, pageHeight) > page) return true;
  QTextFrame::iterator next = part;
  for (int parts = 0; parts < PartsHeaded && !(++next).atEnd(); ++parts) {
    if (parts == 0 && IsHeading(next.currentBlock()) && IsLeftBehind(next, layout, pageHeight)) return true;
    QTextTable* formula = FormulaAt(next);
    if (formula != nullptr) return PageOf(layout.frameBoundingRect(formula).bottom(), pageHeight) > page;
  }
  QTextBlock below = heading.next();
  while (IsHeading(below)) below = below.next();
  // The paragraph below a picture explains it.
  for (int block = 0; block < 2 && below.isValid(); ++block, below = below.next()) {
    if (PageOf(layout.blockBoundingRect(below).bottom(), pageHeight) > page) return true;
  }
  return false;
}

void BeginPageWith(const QTextBlock& block) {
  QTextBlockFormat format = block.blockFormat();
  format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
  QTextCursor(block).setBlockFormat(format);
}

/// The sentence that leads to the formula goes with it.
void BeginPageWith(QTextTable& formula, const QTextBlock& before) {
  if (LeadsOn(before)) return BeginPageWith(before);
  QTextTableFormat format = formula.format();
  format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
  formula.setFormat(format);
}

/// Begins a page with each heading that would be left behind, and with each formula that would be cut.  From the first
/// on, because each moves those that follow.
void KeepTogether(QTextDocument& text) {
  const double pageHeight = text.pageSize().height();
  const QAbstractTextDocumentLayout& layout = *text.documentLayout();
  QTextBlock before; // the paragraph just above, if there is one
  for (QTextFrame::iterator part = text.rootFrame()->begin(); !part.atEnd(); ++part) {
    QTextTable* formula = FormulaAt(part);
    const bool isHeading = IsHeading(part.currentBlock());
    const bool moves = (formula != nullptr && IsCut(*formula, layout, pageHeight)) ||
                       (isHeading && IsLeftBehind(part, layout, pageHeight));
    if (moves && isHeading) BeginPageWith(part.currentBlock());
    if (moves && !isHeading) BeginPageWith(*formula, before);
    if (moves) text.markContentsDirty(0, text.characterCount()); // or what follows is not laid out anew
    before = part.currentBlock();
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

/// The parts of a document that begin on pages of their own, each with the styles.  Qt lays a document out anew from
/// its beginning for each heading that moves.
std::vector<PaperDocument> PartsOf(const PaperDocument& document) {
  constexpr std::string_view bodyTag = "<body>";
  const std::string_view html = document.html;
  const std::size_t body = html.find(bodyTag);
  const std::string styles(body == html.npos ? "" : html.substr(0, body + bodyTag.size()));
  std::vector<PaperDocument> parts;
  for (std::size_t begin = 0; begin != html.npos;) {
    const std::size_t end = html.find(HtmlNewPage, begin);
    const std::string part(html.substr(begin, end == html.npos ? end : end - begin));
    parts.push_back({document.title, parts.empty() ? part : styles + part, document.landscape, document.pictures});
    begin = end == html.npos ? end : end + HtmlNewPage.size();
  }
  return parts;
}

std::vector<std::unique_ptr<QTextDocument>> LaidOutParts(const PaperDocument& document, QPagedPaintDevice& device) {
  std::vector<std::unique_ptr<QTextDocument>> texts;
  for (const PaperDocument& part : PartsOf(document)) {
    texts.push_back(std::make_unique<QTextDocument>());
    LayOut(*texts.back(), part, device);
  }
  return texts;
}

/// A page of a text that is laid out.
struct TextPage {
  const QTextDocument* text;
  int page; ///< from 1

  QRectF Place() const { return {QPointF(0, (page - 1) * text->pageSize().height()), text->pageSize()}; }
};

std::vector<TextPage> PagesOf(const std::vector<std::unique_ptr<QTextDocument>>& texts) {
  std::vector<TextPage> pages;
  for (const auto& text : texts) {
    for (int page = 1; page <= text->pageCount(); ++page) pages.push_back({text.get(), page});
  }
  return pages;
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
  DrawPictures(text, document.pictures);
  text.setPageSize(QSizeF(device.width(), device.height() - FootHeight(device)));
  KeepTogether(text);
}

int PaintPages(const PaperDocument& document, QPagedPaintDevice& device, PageRange range) {
  const BusyPointer busy; // a few seconds for hundreds of pages
  QPainter painter;
  if (!painter.begin(&device)) throw FileError("The pages could not be made");
  painter.setRenderHint(QPainter::LosslessImageRendering);
  const auto texts = LaidOutParts(document, device);
  const std::vector<TextPage> pages = PagesOf(texts);
  const int count = static_cast<int>(pages.size());
  const int last = range.last > 0 ? std::min(range.last, count) : count;
  const int first = std::min(range.first, count);
  for (int page = first; page <= last; ++page) {
    if (page > first && !device.newPage()) throw FileError("The pages could not be made");
    const TextPage& each = pages[static_cast<std::size_t>(page - 1)];
    PaintBody(painter, *each.text, each.Place());
    PaintFoot(painter, QString::fromStdString(document.title), QStringLiteral("Page %1 of %2").arg(page).arg(count));
  }
  if (!painter.end()) throw FileError("The pages could not be made");
  return count;
}

} // namespace strutwright
