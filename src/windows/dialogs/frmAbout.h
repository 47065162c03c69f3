#pragma once

#include <QDialog>

class QLabel;
class QVBoxLayout;

namespace strutwright {

/// The About box: what the program is, and which version of it this is.
class frmAbout : public QDialog {
 public:
  explicit frmAbout(QWidget* parent);

 private:
  QLayout* BuildHead();
  static QLabel* NewText(const QString& name, const QString& text);
};

/// "Version 3.0.1" of a version as the build gives it, "3.0.1"; parts that it does not give are 0.
QString VersionText(const QString& version);

} // namespace strutwright
