#include "LegibilityCorpus.h"

#include "AnalysisState.h"
#include "LargeModels.h"
#include "modAnalysis.h"
#include "modModelFile.h"
#include "modModelStore.h"
#include "modTrussFamilies.h"

#include <algorithm>
#include <filesystem>

namespace strutwright {

namespace {

/// A number from -1 to 1 in steps of a hundredth.
float Jitter(std::mt19937& random) { return static_cast<float>(Below(201, random) - 100) / 100; }

/// Columns of two or three nodes, each joined to the next column by chords and one diagonal a field.
ModelData RandomTruss(unsigned seed) {
  std::mt19937 random(seed);
  const int rows = 2 + Below(2, random);
  const int columns = 3 + Below(rows == 2 ? 26 : 11, random);
  ModelData model;
  const auto node = [rows](int column, int row) { return static_cast<float>(column * rows + row + 1); };
  for (int column = 0; column < columns; ++column) {
    for (int row = 0; row < rows; ++row) {
      NodeData each{3 * static_cast<float>(column) + 0.6F * Jitter(random),
                    3 * static_cast<float>(row) + 0.6F * Jitter(random)};
      if (row == rows - 1 && Below(2, random) == 0) each.forceY = -10;
      if (row == rows - 1 && Below(5, random) == 0) each.forceX = 12.5F * Jitter(random);
      model.nodes.push_back(each);
    }
    for (int row = 0; row + 1 < rows; ++row) model.members.push_back({node(column, row), node(column, row + 1)});
    for (int row = 0; column > 0 && row < rows; ++row) {
      model.members.push_back({node(column - 1, row), node(column, row)});
      if (row + 1 == rows) continue;
      const bool rising = Below(2, random) == 0;
      model.members.push_back(rising ? MemberData{node(column - 1, row), node(column, row + 1)}
                                     : MemberData{node(column - 1, row + 1), node(column, row)});
    }
  }
  model.nodes.front().support = 3;
  model.nodes[static_cast<std::size_t>((columns - 1) * rows)].support = 1;
  return model;
}

} // namespace

std::vector<CorpusTruss> FamilyTrusses(const std::vector<int>& bays) {
  std::vector<CorpusTruss> trusses;
  for (const TrussFamily& family : TrussFamilies()) {
    for (const int count : bays) {
      TrussTexts texts = StandardTexts(family);
      texts[TrussField::Bays] = std::to_string(count);
      if (FaultOf(family, texts)) continue;
      trusses.push_back({std::string(family.name) + " of " + std::to_string(count), false, false,
                         [&family, texts] { TakeModel(MakeTruss(family, texts)); }});
    }
  }
  return trusses;
}

std::vector<CorpusTruss> TrussesIn(const std::string& folder, bool reference) {
  std::vector<CorpusTruss> trusses;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() != ".stw") continue;
    const std::string path = entry.path().string();
    trusses.push_back({entry.path().stem().string(), false, reference, [path] { TakeModel(LoadModelFile(path)); }});
  }
  std::sort(trusses.begin(), trusses.end(), [](const auto& a, const auto& b) { return a.name < b.name; });
  return trusses;
}

std::vector<CorpusTruss> RandomTrusses(int count) {
  std::vector<CorpusTruss> trusses;
  for (int seed = 1; seed <= count; ++seed) {
    trusses.push_back({"random " + std::to_string(seed), true, false,
                       [seed] { SetTables(RandomTruss(static_cast<unsigned>(seed))); }});
  }
  return trusses;
}

int OpenAnalysed(const CorpusTruss& truss) {
  TheAnalysis = AnalysisState{};
  truss.open();
  return AnalyseTruss() == AnalysisEnd::Done ? MemberCount : 0;
}

} // namespace strutwright
