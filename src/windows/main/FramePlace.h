#pragma once

class QMainWindow;

namespace strutwright {

class MainCentre;

// What the main frame remembers from one run to the next, in the data folder's `window.ini`: its size and place, how
// its room is shared, and the switches of the drawing and of editing that are no options.

/// Takes all that, where the file says something of use; returns whether live analysis was on.
bool TakeFramePlace(QMainWindow& frame, MainCentre& centre);

/// Throws FileError where the data folder can't be made.
void KeepFramePlace(const QMainWindow& frame, MainCentre& centre);

} // namespace strutwright
