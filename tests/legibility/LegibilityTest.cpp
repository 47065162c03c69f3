#include "FakePlatform.h"
#include "LegibilityCorpus.h"
#include "LegibilityCount.h"
#include "NativeFileSystem.h"
#include "Platform.h"
#include "RecordingSurface.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

/// A part of the benchmark's corpus, with the letters of the tests.
class LegibilityTest : public PlatformTest {
 protected:
  static double Width(const std::string& text, int size) { return RecordingSurface().TextWidth(text, size); }

  /// Calls a check with each truss that has results, open, and its members' count.
  template <typename Check>
  static void ForEach(const std::vector<CorpusTruss>& trusses, Check check) {
    for (const CorpusTruss& truss : trusses) {
      const int members = OpenAnalysed(truss);
      SCOPED_TRACE(truss.name);
      if (members > 0) check(members);
    }
  }
};

void ExpectNothingOnAnother(double width, double height, double (*metrics)(const std::string&, int)) {
  const LegibilityCount count = CountClear(width, height, metrics);
  EXPECT_EQ(count.pairs, 0);
  EXPECT_EQ(count.onSymbols, 0);
  EXPECT_EQ(count.nearerToOthers, 0);
}

TEST_F(LegibilityTest, NoLabelOfAFamilyStandsOnAnything) {
  ForEach(FamilyTrusses({4, 10, 22}), [](int) {
    ExpectNothingOnAnother(660, 390, Width);
    ExpectNothingOnAnother(1024, 768, Width);
  });
}

TEST_F(LegibilityTest, NoLabelOfARandomTrussStandsOnAnything) {
  ForEach(RandomTrusses(40), [](int) {
    ExpectNothingOnAnother(660, 390, Width);
    ExpectNothingOnAnother(1600, 1000, Width);
  });
}

TEST_F(LegibilityTest, EveryForceOfAnExampleIsShown) {
  NativeFileSystem disk;
  ThePlatform().files = &disk;
  ForEach(TrussesIn(EXAMPLES_DIR, false), [](int members) {
    const LegibilityCount count = CountClear(1024, 768, Width);
    EXPECT_EQ(count.forces, members);
    ExpectNothingOnAnother(1024, 768, Width);
  });
}

/// Of the families whose panels are as wide as high.
std::vector<CorpusTruss> Girders(const std::vector<int>& bays) {
  std::vector<CorpusTruss> girders = FamilyTrusses(bays);
  std::erase_if(girders, [](const CorpusTruss& truss) {
    return truss.name.starts_with("fink") || truss.name.starts_with("tower") || truss.name.starts_with("bowstring");
  });
  return girders;
}

TEST_F(LegibilityTest, EveryForceOfAGirderOfUpToSixtyMembersIsShown) {
  ForEach(Girders({4, 6, 8, 10, 12, 14}), [](int members) {
    if (members > 60) return;
    EXPECT_EQ(CountClear(1024, 768, Width).forces, members);
  });
}

// Where members meet at small angles the last few find no place.
TEST_F(LegibilityTest, MostForcesOfEveryFamilyOfUpToSixtyMembersAreShown) {
  ForEach(FamilyTrusses({4, 8, 10, 14}), [](int members) {
    if (members > 60) return;
    EXPECT_GE(CountClear(1024, 768, Width).forces, 0.85 * members);
  });
}

TEST_F(LegibilityTest, TheDescribedDrawingPrintsLabelsOnLabels) {
  int pairs = 0;
  ForEach(FamilyTrusses({10}), [&](int) { pairs += CountDescribed(1024, 768, Width).pairs; });
  EXPECT_GT(pairs, 100);
}

} // namespace
} // namespace strutwright
