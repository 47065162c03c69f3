#include "frmReport.h"

#include "CommandFrame.h"
#include "EventGuard.h"
#include "FormParts.h"
#include "modReportDrawing.h"
#include "modReportFiles.h"
#include "modReportSheets.h"

#include <utility>

#include <QHBoxLayout>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QTextBrowser>
#include <QTextDocument>
#include <QUrl>
#include <QVBoxLayout>

namespace strutwright {

namespace {

constexpr double PaperMargin = 14;    // pixels
constexpr QSize WindowSize{740, 720}; // a page's width and a scroll bar beside it
constexpr int WidthForLandscape = WindowSize.width() + LandscapeWidth - ReportWidth;

/// Shows the drawing, which is fine enough for print, as smooth as the screen can: Qt would leave pixels out.
class ReportView : public QTextBrowser {
 public:
  QVariant loadResource(int type, const QUrl& name) override {
    if (type != QTextDocument::ImageResource || name.scheme() != "data") return QTextBrowser::loadResource(type, name);
    const QByteArray letters = name.path(QUrl::FullyEncoded).section(',', 1).toLatin1();
    const QImage drawing = QImage::fromData(QByteArray::fromBase64(letters));
    const int width = qRound((Landscape ? LandscapeWidth : ReportWidth) * devicePixelRatioF());
    return drawing.width() > width ? drawing.scaledToWidth(width, Qt::SmoothTransformation) : drawing;
  }

  bool Landscape = false; ///< the report's pages lie on their side
};

/// A report is paper, also under a dark desktop theme.
QPalette PaperColours(QPalette palette) {
  palette.setColor(QPalette::Base, Qt::white);
  palette.setColor(QPalette::Text, Qt::black);
  return palette;
}

} // namespace

frmReport::frmReport(CommandFrame& frame, const std::function<void()>& renew)
    : QDialog(&frame, Qt::Window), Frame(frame) {
  setObjectName("frmReport");
  reportTxt = new ReportView;
  reportTxt->setObjectName("reportTxt");
  reportTxt->setAccessibleName("Results report");
  reportTxt->setToolTip("The report as it is saved and printed");
  reportTxt->setPalette(PaperColours(reportTxt->palette()));
  reportTxt->setOpenLinks(false);
  reportTxt->document()->setDocumentMargin(PaperMargin);
  lblState = new QLabel("The model has been changed since this report was made. Analyse it and press Renew for a "
                        "report of the model as it is now.");
  lblState->setObjectName("lblState");
  lblState->setWordWrap(true);
  lblState->hide();
  auto* whole = new QVBoxLayout(this);
  whole->addWidget(lblState);
  whole->addWidget(reportTxt, 1);
  whole->addLayout(BuildButtons(renew));
  resize(SizeOnScreen(*this, WindowSize));
}

QLayout* frmReport::BuildButtons(const std::function<void()>& renew) {
  const auto saveAsPdf = [this] { SaveReportAsPdf(Shown); };
  const auto print = [this] { PrintReport(Shown); };
  auto* row = new QHBoxLayout;
  row->addWidget(AddButton("btnRenew", "&Renew", "Makes the report of the model as it is now", renew));
  row->addStretch();
  row->addWidget(AddButton("btnSavePdf", "Save as P&DF...", "Saves the report as pages (Ctrl+S)", saveAsPdf));
  row->addWidget(AddButton("btnSaveHtml", "Save as &HTML...", "Saves the report as a page for browsers",
                           [this] { SaveReportAsHtml(Shown); }));
  row->addWidget(AddButton("btnPrint", "&Print...", "Prints the report (Ctrl+P)", print));
  row->addWidget(AddButton("btnClose", "&Close", "Closes this window (Escape)", [this] { close(); }));
  const auto connectKey = [this](QKeySequence::StandardKey key, const std::function<void()>& command) {
    OnSignal(new QShortcut(key, this), &QShortcut::activated, this, [this, command] { Frame.Run(command); });
  };
  connectKey(QKeySequence::Save, saveAsPdf);
  connectKey(QKeySequence::Print, print);
  return row;
}

QPushButton* frmReport::AddButton(const QString& name, const QString& caption, const QString& toolTip,
                                  const std::function<void()>& command) {
  QPushButton* button = NewButton(name, caption, toolTip);
  OnSignal(button, &QPushButton::clicked, this, [this, command] { Frame.Run(command); });
  return button;
}

void frmReport::ShowReport(Report report) {
  Shown = std::move(report);
  setWindowTitle("Results Report - " + QString::fromStdString(Shown.name));
  static_cast<ReportView*>(reportTxt)->Landscape = Shown.document.landscape;
  if (Shown.document.landscape && width() < WidthForLandscape) {
    resize(SizeOnScreen(*this, {WidthForLandscape, height()}));
  }
  reportTxt->setHtml(QString::fromStdString(Shown.document.html));
  lblState->hide();
}

void frmReport::NoteModel() { lblState->setVisible(!IsUpToDate(Shown)); }

} // namespace strutwright
