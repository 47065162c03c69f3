#pragma once

#include "FileDialog.h"

#include <QString>
#include <QStringList>

namespace strutwright {

/// The desktop's file dialog over the active window.
/// An initial folder that does not exist gives way to the folder of the dialog's last use, at first the user's
/// documents; who has no folder for those starts in the home folder.
class QtFileDialog : public FileDialog {
 public:
  std::optional<std::string> Ask(FileDialogKind kind, const FileQuestion& question) override;

  /// The filters of a list "Name|pattern|Name|pattern" as Qt writes them; the pattern of all files matches those
  /// without a point in their name too.
  static QStringList NameFilters(const QString& filter);

  /// Where the dialog opens when it is shown now.
  QString StartFolder(const FileQuestion& question) const;

 private:
  QString LastFolder;
};

} // namespace strutwright
