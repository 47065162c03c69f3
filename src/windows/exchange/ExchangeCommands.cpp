#include "ExchangeCommands.h"

#include "CommandFrame.h"
#include "FileState.h"
#include "Platform.h"
#include "frmImport.h"
#include "modExport.h"
#include "modImportFile.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

namespace strutwright {

namespace {

constexpr const char* ImportFilter =
    "Drawings, tables and JSON|*.dxf *.csv *.txt *.tsv *.json *.DXF *.CSV *.TXT|All files|*.*";

void Refuse(const std::string& path, const std::string& reason) {
  ShowMessage(MessageIcon::Exclamation, "The file " + path + " can't be imported: " + reason);
}

/// The path of the one file that is dragged, if its name is one to import; otherwise empty.
std::string DraggedFile(const QDropEvent& event) {
  const QList<QUrl> files = event.mimeData()->urls();
  if (files.size() != 1 || !files.first().isLocalFile()) return "";
  const std::string path = files.first().toLocalFile().toStdString();
  return IsNameToImport(path) ? path : "";
}

/// The file stays where it is, whatever the other program proposes.
void AcceptCopy(QDropEvent& event) {
  event.setDropAction(Qt::CopyAction);
  event.accept();
}

/// Sees what is dragged over the frame before the frame does.
class DropFilter : public QObject {
 public:
  explicit DropFilter(CommandFrame& frame) : QObject(&frame), Frame(frame) {}

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::DragEnter) return LetIn(static_cast<QDropEvent&>(*event));
    return event->type() == QEvent::Drop && Take(static_cast<QDropEvent&>(*event));
  }

 private:
  bool LetIn(QDropEvent& event) const {
    const bool waits = Frame.IsWorking() || QApplication::activeModalWidget() != nullptr;
    if (waits || DraggedFile(event).empty()) return false;
    AcceptCopy(event);
    return true;
  }

  bool Take(QDropEvent& event) {
    const std::string path = DraggedFile(event);
    if (path.empty()) return false;
    AcceptCopy(event);
    const auto import = [this, path] { Frame.Run([&] { ImportFile(Frame, path); }); };
    return QMetaObject::invokeMethod(this, import, Qt::QueuedConnection);
  }

  CommandFrame& Frame;
};

} // namespace

void ImportChosen(CommandFrame& frame) {
  const FileQuestion question{.title = "Import",
                              .flags = FileMustExist,
                              .defaultExtension = "",
                              .initialFolder = "",
                              .filter = ImportFilter,
                              .fileName = ""};
  const std::string path = TheFileDialog().Ask(FileDialogKind::Open, question).value_or("");
  if (!path.empty()) ImportFile(frame, path);
}

void ImportFile(CommandFrame& frame, const std::string& path) {
  try {
    frmImport preview(&frame, path, ReadFileToImport(path));
    if (!preview.Fault().empty()) return Refuse(path, preview.Fault());
    if (preview.exec() != QDialog::Accepted) return;
    frame.ForgetParts();
    frame.Edit("Import", [&preview] { ReplaceModel(preview.Model()); });
  } catch (const FileError& failure) {
    Refuse(path, failure.what());
  }
}

void ExportFrom(CommandFrame& frame) { ExportModel(CurrentFileName.empty() ? frame.ModelName() : CurrentFileName); }

void ImportDroppedFiles(CommandFrame& frame) {
  frame.setAcceptDrops(true);
  frame.installEventFilter(new DropFilter(frame)); // the frame owns it
}

} // namespace strutwright
