#pragma once

#include "GridFixture.h"
#include "WorkbenchState.h"

namespace strutwright {

/// The grids and the workbench as at start.
class WorkbenchFixture : public GridFixture {
 protected:
  WorkbenchFixture() { TheWorkbench = WorkbenchState{}; }
};

} // namespace strutwright
