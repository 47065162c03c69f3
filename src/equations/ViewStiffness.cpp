#include "ViewStiffness.h"

#include "Ensure.h"

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
  std::size_t entry = 0;
  for (std::size_t p = 1; p <= 4; ++p) {
    for (std::size_t q = 1; q <= 4; ++q) {
      const float addend = share.k(static_cast<int>(p), static_cast<int>(q));
      const float before = K(share.freedoms[p], share.freedoms[q]);
      share.before[entry++] = before;
      if (addend == 0.0F) continue;
      const double sum = static_cast<double>(before) + static_cast<double>(addend);
      K.Put(share.freedoms[p], share.freedoms[q], static_cast<float>(sum));
    }
  }
  Added.push_back(std::move(share));
}

void ViewStiffness::TakeBack() {
  Ensure(!Added.empty(), "a share that is taken back was added");
  const MemberShare& last = Added.back();
  // Backwards, because a member from a node to itself adds to an entry more than once.
  for (std::size_t p = 4; p >= 1; --p) {
    for (std::size_t q = 4; q >= 1; --q) {
      if (last.k(static_cast<int>(p), static_cast<int>(q)) == 0.0F) continue;
      K.Put(last.freedoms[p], last.freedoms[q], last.before[4 * (p - 1) + q - 1]);
    }
  }
  Added.pop_back();
}

void ViewStiffness::Clear(FreedomFlags restrained) {
  for (int d = 1; d <= K.Last(); ++d) {
    if (restrained->at(static_cast<std::size_t>(d)) == 1) K.ClearFreedom(d);
  }
  Clearings.push_back({Added.size(), std::move(restrained)});
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
