#pragma once

#include "ModelAsEntered.h"
#include "modClassEntry.h"

#include <functional>
#include <string>
#include <vector>

#include <QDialog>

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QSpinBox;

namespace strutwright {

class CommandFrame;
class ProgressRow;

/// Makes a class set of the open model: what the command `class` does, with a preview.
class frmClassSet : public QDialog {
 public:
  explicit frmClassSet(CommandFrame& frame);

  /// Begins with the model as it is; what was entered for the last set stays.
  void Begin();

  /// The model may have become another one.
  void Follow();

 private:
  struct RangeFields {
    std::string name;
    QLabel* caption;
    QLabel* now;      ///< what the open model has
    QLineEdit* value; ///< of a family: what is the same for all
    QLineEdit* from;
    QLineEdit* to;
    QLineEdit* step;
  };
  struct AskFields {
    std::string name;
    QCheckBox* chosen;
    QLineEdit* numbers; ///< nullptr where there are none
  };
  struct FormatBox {
    std::string name;
    QCheckBox* chosen;
  };
  struct VariantView {
    QLabel* picture;
    QLabel* caption;
  };

  QGroupBox* BuildStudents();
  QGroupBox* BuildRanges();
  QLayout* BuildSource();
  void AddRange(QGridLayout& grid, const std::string& name, const QString& caption);
  QGroupBox* BuildQuestions();
  QCheckBox* AddAsk(QGridLayout& grid, const std::string& name, const QString& caption, const QString& description);
  void AddNumbers(QGridLayout& grid, const QString& example, const QString& description);
  QLayout* BuildFormats();
  QLayout* BuildFolder();
  QLayout* BuildPreview();
  QLayout* BuildButtons();
  QPushButton* AddButton(const QString& name, const QString& caption, const QString& toolTip,
                         const std::function<void()>& command);
  void ConnectEntries();

  ClassPlan Plan() const;
  std::string Formats() const;
  std::string Family() const;
  void ChooseSource();
  void OpenList();
  void ShowSizes();
  void DropPreview();
  void Try(const std::function<void()>& command);
  void Preview();
  void ShowVariant(const VariantView& view, const ClassVariant& variant);
  bool ChooseFolder();
  void Make();
  void Say(const std::string& sentence);

  CommandFrame& Frame;
  ModelAsEntered ShownFor;        ///< the model whose sizes and variants are shown
  QComboBox* sourceCmb = nullptr; ///< the open model, or a family of trusses
  QLabel* fixedLbl = nullptr;     ///< heads the numbers of a family
  QPlainTextEdit* studentsTxt = nullptr;
  QSpinBox* seedSpin = nullptr;
  QDoubleSpinBox* toleranceSpin = nullptr;
  std::vector<RangeFields> Ranges;
  std::vector<AskFields> Asks;
  std::vector<FormatBox> FormatBoxes;
  QLineEdit* folderTxt = nullptr;
  std::vector<VariantView> Views;
  QLabel* classLbl = nullptr;
  ProgressRow* Work = nullptr;
};

} // namespace strutwright
