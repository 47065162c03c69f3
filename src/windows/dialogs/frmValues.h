#pragma once

#include <string>
#include <vector>

#include <QDialog>

class QLineEdit;

namespace strutwright {

/// A value that is asked for.
struct AskedValue {
  std::string name;  ///< of the field, as its objectName
  std::string label; ///< with its unit
  std::string text;  ///< that it holds at first, and what was entered afterwards
};

/// Asks for a few numbers.
class frmValues : public QDialog {
 public:
  frmValues(QWidget* parent, const std::string& title, const std::vector<AskedValue>& values);

  /// What stands in the fields, in their order.  Numeric where the dialog was accepted.
  std::vector<std::string> Texts() const;

 private:
  void TakeValues();

  std::vector<QLineEdit*> Fields;
};

} // namespace strutwright
