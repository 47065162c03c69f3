#include "PaperPages.h"

#include "BusyPointer.h"
#include "FileSystem.h"
#include "HtmlNewPage.h"

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
    parts.push_back({document.title, parts.empty() ? part : styles + part, document.landscape});
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
  text.setPageSize(QSizeF(device.width(), device.height() - FootHeight(device)));
  KeepHeadingsTogether(text);
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
