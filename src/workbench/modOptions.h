#pragma once

#include <string>

namespace strutwright {

// What the options dialog does with the texts of its fields, which stand in TheOptions.

/// Starts the program with the settings of the dialog's design: a grid of 1 m by 1 m with dashed lines, a pick radius
/// of 0.1 m, nodes from number 1, 20 rows.
void TakeOptions();

/// Writes the settings in force into the fields.  None of that counts as a change by the user.
void FillOptions();

/// Takes a grid line style at once: 0 solid, 1 dashed.
void ChooseGridLineStyle(int index);

/// Takes a new text of maxTxt: a number below 5000 is the capacity from now on, and the grids are to be laid out for
/// it. Any other text changes nothing.
void ChangeCapacity(const std::string& text);

/// Lays the grids out for GridCapacity.  Rows that hold data keep it, and so do the results of a current analysis.
void LayOutForCapacity();

/// Takes the fields: spacings, radius and start number as far as they are numeric, each then reads what is in force;
/// the layout of the grids where the capacity has changed; the length of the list of recent files.  Draws anew.
void ApplyOptions();

} // namespace strutwright
