#include "QtClipboard.h"

#include "WidgetsFixture.h"

#include <QClipboard>
#include <QImage>
#include <QMimeData>

namespace strutwright {
namespace {

class QtClipboardTest : public WidgetsTest {
 protected:
  QtClipboardTest() { Desktop().clear(); }

  static QClipboard& Desktop() { return *QGuiApplication::clipboard(); }

  QtClipboard clipboard;
};

TEST_F(QtClipboardTest, TakesATextWithItsTable) {
  clipboard.SetText("1\t2,5 \xc2\xb5m\r\n", "<table><tr><td>1</td></tr></table>");
  EXPECT_EQ(Desktop().mimeData()->text().toStdString(), "1\t2,5 \xc2\xb5m\r\n");
  EXPECT_EQ(Desktop().mimeData()->html().toStdString(), "<table><tr><td>1</td></tr></table>");
}

TEST_F(QtClipboardTest, OffersNoTableWhereThereIsNone) {
  clipboard.SetText("1", "<table></table>");
  clipboard.SetText("2", "");
  EXPECT_EQ(clipboard.Text(), "2");
  EXPECT_FALSE(Desktop().mimeData()->hasHtml());
}

TEST_F(QtClipboardTest, GivesThePlainTextThatAnotherProgramPutThere) {
  Desktop().setText(QString::fromUtf8("3\t\xc2\xbd\n"));
  EXPECT_EQ(clipboard.Text(), "3\t\xc2\xbd\n");
}

TEST_F(QtClipboardTest, GivesNoTextWhereThereIsNone) {
  EXPECT_EQ(clipboard.Text(), "");
  Desktop().setImage(QImage(2, 2, QImage::Format_RGB32));
  EXPECT_EQ(clipboard.Text(), "");
}

} // namespace
} // namespace strutwright
