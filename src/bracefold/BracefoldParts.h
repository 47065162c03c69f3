#pragma once

#include "modTrussFamilies.h"

#include <string>
#include <string_view>

#include <QString>

class QLabel;
class QWidget;

namespace strutwright {

// What Bracefold's window is built of.

QString ToQt(std::string_view text);

/// A field's title with the mark of its key: "Area of &chords".
QString TitleWithKey(const FieldDescription& field);

/// The object name of a field's control: "chordAreaTxt", "baysSpin".
QString FieldName(const FieldDescription& field);

/// "kN/mm2" as it is printed.
QString PrintedUnit(std::string_view unit);

/// Names a control, and says what it is for to those who see it and to those who do not.
void Describe(QWidget& control, const QString& name, const QString& description);

/// The text of a field's control, a line or a number of bays, and a new one that counts as nobody's edit.
std::string FieldText(const QWidget& control);
void SetFieldText(QWidget& control, const std::string& text, const TrussFamily& family);

/// Marks a control whose text is wrong, and says why; without a reason takes the mark away.
void Mark(QWidget& control, const std::string& reason);

/// A line that says what is wrong.
QLabel* NewFaultLabel(const QString& name);

} // namespace strutwright
