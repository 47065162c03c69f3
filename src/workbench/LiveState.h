#pragma once

#include "FieldTable.h"

namespace strutwright {

/// What live analysis remembers.
struct LiveState {
  bool on = false;
  bool paused = false;   ///< an analysis took too long
  double mostTime = 200; ///< ms that an analysis may take
  double checkTime = 6;  ///< ms; a check that takes longer waits for the last of several events
  bool analysed = false; ///< there was one; the tables below are as it left them, results among them
  FieldTable nodes{6};
  FieldTable members{10};
};

} // namespace strutwright
