#pragma once

#include "Stroke.h"

#include <QFont>
#include <QPointF>
#include <QRectF>

namespace strutwright {

// How texts and labels are set, on pixels and in files alike; all lengths are logical pixels.

constexpr int TextSize = 13;    ///< height of a text's font
constexpr double HaloWidth = 3; ///< half of it lies on either side of a letter's edge
constexpr double BoxCorner = 2; ///< radius of the corners of a label's box

QFont TextFont();

/// Letters are not set closer for their neighbours' sake.
QFont LabelFont(int size);

/// Where the base line of a text begins.
QPointF BaselineOf(const TextStroke& stroke);

/// What a text takes up.
QRectF TextArea(const TextStroke& stroke);

/// From the middle of a label to where its base line begins, before it is turned: capitals and digits stand about the
/// middle.
QPointF BaselineOf(const LabelStroke& stroke);

/// The angle of a direction, clockwise on the screen.
double DegreesOf(const QPointF& along);

} // namespace strutwright
