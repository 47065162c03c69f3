#include "modFindings.h"

#include "modEntryGaps.h"
#include "modOddPlaces.h"
#include "modOddValues.h"
#include "modSamePlaces.h"

namespace strutwright {

std::vector<Finding> FindOddities(const CheckedTruss& truss) {
  FindingList findings;
  FindRowGaps(findings);
  FindCoincidentNodes(truss, findings);
  FindOddPlaces(truss, findings);
  FindOddValues(truss, findings);
  return findings.Take();
}

} // namespace strutwright
