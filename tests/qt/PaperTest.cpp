#include "FileSystem.h"
#include "HtmlNewPage.h"
#include "PageDrawings.h"
#include "PaperPages.h"
#include "QtPaper.h"
#include "QtPrinters.h"
#include "ScratchFolder.h"
#include "WidgetsFixture.h"

#include <cstdlib>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>

#include <gmock/gmock.h>

namespace strutwright {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class PaperTest : public WidgetsTest {
 protected:
  PaperTest() {
    sheet.open(QIODevice::WriteOnly);
    writer.setPageLayout({QPageSize(QPageSize::A4), QPageLayout::Portrait, PageMargins, QPageLayout::Millimeter});
  }

  int PageOf(const QTextBlock& block) {
    const QRectF place = text.documentLayout()->blockBoundingRect(block);
    const int page = static_cast<int>(place.top() / text.pageSize().height());
    EXPECT_LE(place.bottom(), (page + 1) * text.pageSize().height() + 1) << block.text().toStdString() << " is cut";
    return page;
  }

  QBuffer sheet;
  QPdfWriter writer{&sheet};
  QTextDocument text;
  QtPaper paper;
  ScratchFolder folder;
};

std::string Lines(int count) {
  std::string html;
  for (int line = 0; line < count; ++line) html += "<p>line</p>";
  return html;
}

std::string Rows(int count) {
  std::string html = "<table><thead><tr><th>head</th></tr></thead>";
  for (int row = 0; row < count; ++row) html += "<tr><td>row</td></tr>";
  return html + "</table>";
}

std::string WithoutHeadings(int rows) {
  std::string html = "<table>";
  for (int row = 0; row < rows; ++row) html += "<tr><td>row</td></tr>";
  return html + "</table>";
}

int PagesIn(const std::string& pdf) {
  int count = 0;
  for (std::size_t at = pdf.find("/Type /Page\n"); at != std::string::npos; at = pdf.find("/Type /Page\n", at + 1))
    ++count;
  return count;
}

TEST_F(PaperTest, MakesPdfOfA4) {
  const std::string pdf = paper.Pdf({"a title", "<p>a line</p>"});
  EXPECT_THAT(pdf, StartsWith("%PDF-1.4"));
  EXPECT_THAT(pdf, HasSubstr("%%EOF"));
  EXPECT_THAT(pdf, HasSubstr("/MediaBox [0 0 595.000000 842.000000]"));
  EXPECT_EQ(PagesIn(pdf), 1);
}

TEST_F(PaperTest, DatesPdfAsTheEnvironmentSays) {
  qputenv("SOURCE_DATE_EPOCH", "1700000000"); // 14 November 2023, 22:13:20
  const std::string pdf = paper.Pdf({"Title", "<p>Text</p>"});
  qunsetenv("SOURCE_DATE_EPOCH");
  EXPECT_NE(pdf.find("/CreationDate (D:20231114221320"), std::string::npos);
  EXPECT_EQ(paper.Pdf({"Title", "<p>Text</p>"}).find("D:20231114221320"), std::string::npos);
}

TEST_F(PaperTest, LaysPagesOnTheirSide) {
  EXPECT_THAT(paper.Pdf({"a title", "<p>a line</p>", true}), HasSubstr("/MediaBox [0 0 842.000000 595.000000]"));
}

TEST_F(PaperTest, BreaksLongDocumentsIntoPages) {
  const std::string pdf = paper.Pdf({"a title", Lines(200)});
  EXPECT_GT(PagesIn(pdf), 3);
  EXPECT_EQ(PaintPages({"a title", Lines(200)}, writer), PagesIn(pdf));
}

TEST_F(PaperTest, PaintsARangeOfPages) {
  EXPECT_GT(PaintPages({"a title", Lines(200)}, writer, {2, 3}), 3);
  EXPECT_EQ(PagesIn(sheet.data().toStdString()), 2);
}

TEST_F(PaperTest, PaintsNoMorePagesThanThereAre) {
  EXPECT_EQ(PaintPages({"a title", "<p>a line</p>"}, writer, {1, 99}), 1);
  EXPECT_EQ(PagesIn(sheet.data().toStdString()), 1);
}

TEST_F(PaperTest, ThrowsWhereNothingCanBePainted) {
  sheet.close();
  QPdfWriter nowhere(QString::fromStdString(folder.Path("missing/a.pdf")));
  EXPECT_THROW(PaintPages({"a title", "<p>a line</p>"}, nowhere), FileError);
}

// Wherever on a page it would come to stand.
TEST_F(PaperTest, KeepsAHeadingWithWhatItHeads) {
  for (int before = 0; before < 60; ++before) {
    LayOut(text, {"", Lines(before) + "<h2>Results</h2><h3>Members</h3>" + Rows(5)}, writer);
    QTextBlock heading = text.begin();
    while (heading.text() != "Results") heading = heading.next();
    const int page = PageOf(heading);
    EXPECT_EQ(PageOf(heading.next()), page) << before;
    EXPECT_EQ(PageOf(heading.next().next()), page) << before;               // the table's headings
    EXPECT_EQ(PageOf(heading.next().next().next().next()), page) << before; // and its second row
  }
}

TEST_F(PaperTest, KeepsAHeadingWithAPicture) {
  const std::string png =
      QByteArray::fromStdString(paper.Picture(64, 58, [](DrawingSurface&) {}).png).toBase64().toStdString();
  const std::string picture =
      "<h2>Drawing</h2><p><img width=\"640\" height=\"576\" src=\"data:image/png;base64," + png + "\"></p>";
  for (int before = 0; before < 60; before += 3) {
    LayOut(text, {"", Lines(before) + picture}, writer);
    const QTextBlock drawing = text.lastBlock();
    EXPECT_EQ(PageOf(drawing.previous()), PageOf(drawing)) << before;
    EXPECT_LE(text.documentLayout()->blockBoundingRect(drawing).width(), text.pageSize().width());
    EXPECT_LE(text.idealWidth(), text.pageSize().width());
  }
}

TEST_F(PaperTest, CutsNoFormulaThatFitsOnAPage) {
  const std::string matrix = "<table><tr><td>=</td><td>" + WithoutHeadings(8) + "</td></tr></table>";
  for (int before = 0; before < 60; ++before) {
    LayOut(text, {"", Lines(before) + "<h3>Solve</h3><p>These are left:</p>" + matrix + "<p>after</p>"}, writer);
    const QTextFrame* formula = text.rootFrame()->childFrames().constFirst();
    const QRectF place = text.documentLayout()->frameBoundingRect(const_cast<QTextFrame*>(formula));
    const int page = static_cast<int>(place.top() / text.pageSize().height());
    EXPECT_LE(place.bottom(), (page + 1) * text.pageSize().height() + 1) << before;
    QTextBlock lead = text.begin();
    while (lead.text() != "These are left:") lead = lead.next();
    EXPECT_EQ(PageOf(lead), page) << before << ": the sentence that leads to it";
    EXPECT_EQ(PageOf(lead.previous()), page) << before << ": its heading";
  }
}

TEST_F(PaperTest, BeginsAPageWhereTheDocumentSays) {
  const std::string page = "<html><body><p>one</p>" + std::string(HtmlNewPage) + Lines(200) + std::string(HtmlNewPage) +
                           "<p>three</p></body></html>";
  const int middle = PagesIn(paper.Pdf({"a title", Lines(200)}));
  EXPECT_EQ(PagesIn(paper.Pdf({"a title", page})), middle + 2);
}

TEST_F(PaperTest, MakesTheSameOnAnotherThread) {
  const PaperDocument document{"a title", "<h2>Rows</h2>" + Rows(20)};
  qputenv("SOURCE_DATE_EPOCH", "1700000000");
  const std::string here = paper.Pdf(document);
  std::string there;
  std::thread([&] { there = paper.Pdf(document); }).join();
  qunsetenv("SOURCE_DATE_EPOCH");
  EXPECT_EQ(there, here);
}

TEST_F(PaperTest, SparesGreyPicturesTheColours) {
  const auto formatOf = [this](Colour colour) {
    const std::string png =
        paper.Picture(20, 20,
                      [colour](DrawingSurface& surface) {
                        surface.PixelLine({0, 0}, {20, 20}, {colour, 2});
                      })
            .png;
    return QImage::fromData(QByteArray::fromStdString(png), "PNG").format();
  };
  EXPECT_EQ(formatOf({90, 90, 90}), QImage::Format_Grayscale8);
  EXPECT_EQ(formatOf(Red), QImage::Format_RGB32);
}

TEST_F(PaperTest, CutsNoRowOfATable) {
  LayOut(text, {"", Rows(300)}, writer);
  EXPECT_GT(text.pageCount(), 3);
  for (QTextBlock block = text.begin(); block.isValid(); block = block.next()) PageOf(block);
}

TEST_F(PaperTest, MakesPicturesFineEnoughForPrint) {
  const std::string png = paper
                              .Picture(200, 100,
                                       [](DrawingSurface& surface) {
                                         EXPECT_EQ(surface.PixelWidth(), 200.0F);
                                         EXPECT_EQ(surface.PixelHeight(), 100.0F);
                                         surface.SetWindow({0, 0, 2, 1});
                                         surface.SetPenColour(Red);
                                         surface.DrawLine(0, 0, 2, 1);
                                       })
                              .png;
  const QImage image = QImage::fromData(QByteArray::fromStdString(png), "PNG");
  EXPECT_EQ(image.size(), QSize(600, 300));
  EXPECT_EQ(image.pixelColor(300, 150), QColor(Qt::red));
  EXPECT_EQ(image.pixelColor(10, 290), QColor(Qt::white));
}

TEST_F(PaperTest, MakesTheSamePictureTwice) {
  const auto draw = [](DrawingSurface& surface) {
    surface.MoveTo(0.2, 0.2);
    surface.DrawText("12.3");
  };
  EXPECT_EQ(paper.Picture(60, 60, draw).png, paper.Picture(60, 60, draw).png);
}

/// All kinds of strokes.
void DrawBracket(DrawingSurface& surface) {
  surface.SetWindow({0, 0, 10, 5});
  surface.SetPenColour(Red);
  surface.DrawLine(1, 1, 9, 4);
  surface.DrawCircle(5, 2.5, 1);
  surface.DrawBox(7, 1, 8, 2);
  surface.MoveTo(2, 3);
  surface.DrawText("12.3");
  surface.PixelPolygon(std::vector<PixelPoint>{{20, 70}, {40, 70}, {30, 90}}, Blue);
  surface.PixelDot({150, 80}, 4, {Blue, 2}, {255, 255, 255});
  surface.PixelText({{160, 20}, {0.8, 0.6}, "F = 7.5 kN", Blue, 12});
}

PaperDocument WithPicture(const PaperPicture& picture, const std::string& before = "") {
  return {"a title",
          before + "<p>above</p><p><img width=\"200\" height=\"100\" src=\"data:image/png;base64," +
              QByteArray::fromStdString(picture.png).toBase64().toStdString() + "\"></p><p>below</p>",
          false,
          {picture}};
}

bool HasPixels(const std::string& pdf) { return pdf.find("/Subtype /Image") != std::string::npos; }

TEST_F(PaperTest, DrawsPicturesOnPagesAsStrokes) {
  const PaperPicture picture = paper.Picture(200, 100, DrawBracket);
  EXPECT_FALSE(HasPixels(paper.Pdf(WithPicture(picture))));
  EXPECT_FALSE(HasPixels(paper.Pdf(WithPicture(picture, "<p>a page</p>" + std::string(HtmlNewPage)))));
  EXPECT_TRUE(HasPixels(paper.Pdf(WithPicture({picture.png})))) << "without its strokes";
}

TEST_F(PaperTest, KeepsThePixelsOfAPictureOfManyStrokes) {
  const auto hasStrokes = [this](std::size_t lines) {
    return paper
               .Picture(20, 20,
                        [lines](DrawingSurface& surface) {
                          for (std::size_t k = 0; k < lines; ++k) surface.PixelLine({0, 0}, {20, 20}, {Red, 2});
                        })
               .strokes != nullptr;
  };
  EXPECT_TRUE(hasStrokes(MaxStrokesOnPage));
  EXPECT_FALSE(hasStrokes(MaxStrokesOnPage + 1));
}

/// What stands on the first page, a fifth of its dots wide.
QImage FirstPage(const PaperDocument& document, QPdfWriter& writer) {
  QTextDocument text;
  LayOut(text, document, writer);
  QImage page((text.pageSize() / 5).toSize(), QImage::Format_RGB32);
  page.fill(Qt::white);
  QPainter painter(&page);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  painter.scale(0.2, 0.2);
  text.documentLayout()->draw(&painter, {});
  return page;
}

TEST_F(PaperTest, DrawsAsStrokesWhatThePixelsShow) {
  const PaperPicture picture = paper.Picture(200, 100, DrawBracket);
  const QImage strokes = FirstPage(WithPicture(picture), writer);
  const QImage pixels = FirstPage(WithPicture({picture.png}), writer);
  ASSERT_EQ(strokes.size(), pixels.size());
  int inked = 0;
  int different = 0;
  for (int y = 0; y < pixels.height(); ++y) {
    for (int x = 0; x < pixels.width(); ++x) {
      const int lightness = qGray(pixels.pixel(x, y));
      if (lightness < 200) ++inked;
      if (std::abs(qGray(strokes.pixel(x, y)) - lightness) > 120) ++different;
    }
  }
  EXPECT_GT(inked, 500);
  EXPECT_LT(different, inked / 20) << "edges may be blurred otherwise";
}

#ifndef _WIN32 // where the dialog for printers is the system's own

TEST_F(PaperTest, PrintsNothingWhenTheUserCancels) {
  WhenShown<QPrintDialog>([](QPrintDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Print Report");
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  EXPECT_FALSE(QtPrinters().Print({"a title", "<p>a line</p>"}));
}

TEST_F(PaperTest, PrintsIntoAFile) {
  const std::string file = folder.Path("printed.pdf");
  WhenShown<QPrintDialog>([&file](QPrintDialog& dialog) {
    auto* printers = dialog.findChild<QComboBox*>("printers");
    auto* name = dialog.findChild<QLineEdit*>("filename");
    if (printers == nullptr || name == nullptr) throw std::runtime_error("The print dialog looks different");
    printers->setCurrentText("Print to File (PDF)");
    name->setText(QString::fromStdString(file));
    dialog.accept();
  });
  EXPECT_TRUE(QtPrinters().Print({"a title", Lines(100)}));
  EXPECT_GT(PagesIn(FileBytes(file)), 1);
}

#endif

} // namespace
} // namespace strutwright
