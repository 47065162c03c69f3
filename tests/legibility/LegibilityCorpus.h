#pragma once

#include <functional>
#include <string>
#include <vector>

namespace strutwright {

/// A truss whose drawing is looked at.
struct CorpusTruss {
  std::string name;
  bool random = false;
  bool reference = false;       ///< a reference model, of which many are odd on purpose
  std::function<void()> open{}; ///< puts it into the tables
};

/// Every family of Bracefold with each of these numbers of bays, where it can have so many.
std::vector<CorpusTruss> FamilyTrusses(const std::vector<int>& bays);

/// The model files of a folder, by name.
std::vector<CorpusTruss> TrussesIn(const std::string& folder, bool reference);

/// Random plane trusses of up to 120 members, the same for the same numbers: a strip of triangles whose nodes are moved
/// about, with loads of all directions.
std::vector<CorpusTruss> RandomTrusses(int count);

/// Opens and analyses it, and gives the members' count; 0 where it has no results to draw.
int OpenAnalysed(const CorpusTruss& truss);

} // namespace strutwright
