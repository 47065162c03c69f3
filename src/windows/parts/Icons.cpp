#include "Icons.h"

#include <QDir>

/// The icons lie in a static library, which has to be asked for them, and outside of any namespace.
static void LoadIcons() { Q_INIT_RESOURCE(icons); }

namespace strutwright {

QIcon IconNamed(const QString& name) {
  LoadIcons();
  const QDir folder(":/icons/" + name);
  QIcon icon;
  for (const QString& file : folder.entryList()) icon.addFile(folder.filePath(file));
  return icon;
}

} // namespace strutwright
