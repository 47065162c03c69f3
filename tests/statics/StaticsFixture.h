#pragma once

#include "AnalysisState.h"
#include "FakePlatform.h"
#include "ModelBuilder.h"
#include "modModelStore.h"

namespace strutwright {

/// The state of a program that has just started.
class StaticsFixture : public PlatformTest {
 protected:
  StaticsFixture() {
    ResetModel();
    TheAnalysis = AnalysisState{};
  }
};

/// Four bays of 3 m, 4 m high: lower nodes 1 to 5, upper nodes 6 to 8 over 2 to 4.
///
///          6----7----8
///        / | \  |  / | \.
///       1--2----3----4--5
///
/// Members: 1 to 4 lower chord, 5 1-6, 6 and 7 upper chord, 8 8-5, 9 to 11 verticals, 12 6-3, 13 8-3.
inline ModelData BridgeOfFourBays() {
  return {{{0, 0, 0, 0, 3}, {3, 0}, {6, 0}, {9, 0}, {12, 0, 0, 0, 1}, {3, 4}, {6, 4}, {9, 4}},
          {{1, 2}, {2, 3}, {3, 4}, {4, 5}, {1, 6}, {6, 7}, {7, 8}, {8, 5}, {2, 6}, {3, 7}, {4, 8}, {6, 3}, {8, 3}}};
}

} // namespace strutwright
