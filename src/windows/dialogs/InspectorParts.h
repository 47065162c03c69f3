#pragma once

#include "Grid.h"

#include <QString>

class QPushButton;
class QWidget;

namespace strutwright {

class DataGridView;

// What the two inspectors are built of.

/// A grid under its caption, shown whole: no row has to be scrolled to.
/// columnText: the longest text that a column should have room for.
/// captioned: the widget to put into a layout.
struct CaptionedGrid {
  QWidget* captioned = nullptr;
  DataGridView* view = nullptr;
};
CaptionedGrid AddInspectorGrid(Grid& grid, const QString& name, const QString& caption, const QString& columnText);

/// The last row of an inspector: one button that deletes, at the left, and one that closes, at the right.
QWidget* ButtonRow(QPushButton& deleteButton, QPushButton& closeButton);

} // namespace strutwright
