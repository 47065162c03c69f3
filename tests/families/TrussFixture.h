#pragma once

#include "modModelStore.h"
#include "modTrussFamilies.h"

#include <cmath>
#include <string>
#include <vector>

namespace strutwright {

inline constexpr int BaysToTest = 60;

inline const TrussFamily& Family(const std::string& name) {
  const TrussFamily* family = FamilyNamed(name);
  if (family == nullptr) throw std::runtime_error("There is no family " + name);
  return *family;
}

/// What a family begins with, with another number of bays.
inline TrussTexts WithBays(const TrussFamily& family, int bays) {
  TrussTexts texts = StandardTexts(family);
  texts[TrussField::Bays] = std::to_string(bays);
  return texts;
}

/// Every number of bays up to 60 that the family can have.
inline std::vector<int> BayCounts(const TrussFamily& family) {
  std::vector<int> counts;
  const int step = family.evenBays ? 2 : 1;
  for (int bays = static_cast<int>(family.leastBays); bays <= BaysToTest; bays += step) counts.push_back(bays);
  return counts;
}

/// Says which truss a failure is about.
inline std::string NameOf(const TrussFamily& family, int bays) {
  return std::string(family.name) + " of " + std::to_string(bays) + " bays";
}

/// A member of a model from end to end, in m.
struct PlacedBar {
  int i = 0;
  int j = 0;
  double x1 = 0;
  double y1 = 0;
  double x2 = 0;
  double y2 = 0;

  double Length() const { return std::hypot(x2 - x1, y2 - y1); }
};

inline PlacedBar BarOf(const StoredModel& model, int m) {
  const int i = RoundNodeNumber(model.members(m, MemberNodeI));
  const int j = RoundNodeNumber(model.members(m, MemberNodeJ));
  return {i, j, model.nodes(i, NodeX), model.nodes(i, NodeY), model.nodes(j, NodeX), model.nodes(j, NodeY)};
}

} // namespace strutwright
