#include "ViewStiffness.h"

#include "Ensure.h"
#include "modAnalysis.h"

#include <utility>

namespace strutwright {

float MemberShare::At(int row, int column) const {
  double sum = 0.0;
  for (std::size_t p = 1; p <= 4; ++p) {
    for (std::size_t q = 1; q <= 4; ++q) {
      // A member from a node to itself meets an entry more than once.
      if (freedoms[p] == row && freedoms[q] == column) sum += k(static_cast<int>(p), static_cast<int>(q));
    }
  }
  return static_cast<float>(sum);
}

void ViewStiffness::Add(MemberShare share) {
  for (std::size_t entry = 0; entry < share.before.size(); ++entry) {
    share.before[entry] = K(share.freedoms[entry / 4 + 1], share.freedoms[entry % 4 + 1]);
  }
  AddAtFreedoms(share.freedoms, share.k, K);
  Added.push_back(share);
}

void ViewStiffness::TakeBack() {
  Ensure(!Added.empty(), "a share that is taken back was added");
  const MemberShare& last = Added.back();
  for (std::size_t p = 1; p <= 4; ++p) {
    for (std::size_t q = 1; q <= 4; ++q) {
      if (last.k(static_cast<int>(p), static_cast<int>(q)) == 0.0F) continue;
      K.Set(last.freedoms[p], last.freedoms[q], last.before[4 * (p - 1) + q - 1]);
    }
  }
  Added.pop_back();
}

void ViewStiffness::Clear(FreedomFlags restrained) {
  RestrainEquations(K, *restrained);
  Clearings.push_back({Added.size(), std::move(restrained)});
}

std::vector<int> ViewStiffness::MembersBeforeClearings() const {
  std::vector<int> members;
  for (const Clearing& each : Clearings) {
    members.push_back(each.sharesBefore == 0 ? 0 : Added[each.sharesBefore - 1].member);
  }
  return members;
}

ViewStiffness::Origin ViewStiffness::OriginOf(int row, int column) const {
  Origin origin;
  for (const Clearing& each : Clearings) {
    const std::vector<std::int16_t>& restrained = *each.restrained;
    if (restrained.at(static_cast<std::size_t>(row)) == 1 || restrained.at(static_cast<std::size_t>(column)) == 1) {
      origin = {each.sharesBefore, each.restrained};
    }
  }
  return origin;
}

} // namespace strutwright
