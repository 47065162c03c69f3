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

TEST_F(LegibilityTest, NoNumberOfThreeDigitsStandsOnItsNode) {
  ForEach(FamilyTrusses({36}), [](int) { ExpectNothingOnAnother(660, 390, Width); });
}

TEST_F(LegibilityTest, NoLabelOfARandomTrussStandsOnAnything) {
  ForEach(RandomTrusses(24), [](int) {
    ExpectNothingOnAnother(660, 390, Width);
    ExpectNothingOnAnother(1600, 1000, Width);
  });
}

TEST_F(LegibilityTest, EveryLabelOfAnExampleIsShown) {
  NativeFileSystem disk;
  ThePlatform().files = &disk;
  ForEach(TrussesIn(EXAMPLES_DIR, false), [](int members) {
    const LegibilityCount count = CountClear(1024, 768, Width);
    EXPECT_EQ(count.forces, members);
    EXPECT_EQ(count.leftOut, 0);
    ExpectNothingOnAnother(1024, 768, Width);
  });
}

TEST_F(LegibilityTest, EveryForceOfAFamilyOfUpToSixtyMembersIsShown) {
  ForEach(FamilyTrusses({4, 6, 8, 10, 12, 14, 16}), [](int members) {
    if (members > 60) return;
    EXPECT_EQ(CountClear(1024, 768, Width).forces, members);
  });
}

/// The share of the members whose force is shown, of trusses of so many members.
double ShareShown(const std::vector<CorpusTruss>& trusses, int least, int most,
                  double (*metrics)(const std::string&, int)) {
  int members = 0;
  int forces = 0;
  for (const CorpusTruss& truss : trusses) {
    const int count = OpenAnalysed(truss);
    if (count < least || count > most) continue;
    members += count;
    forces += CountClear(1024, 768, metrics).forces;
  }
  return static_cast<double>(forces) / members;
}

TEST_F(LegibilityTest, NearlyEveryForceOfARandomTrussOfUpToSixtyMembersIsShown) {
  EXPECT_GE(ShareShown(RandomTrusses(40), 1, 60, Width), 0.95);
}

TEST_F(LegibilityTest, MostForcesOfARandomTrussOfUpToAHundredMembersAreShown) {
  EXPECT_GE(ShareShown(RandomTrusses(40), 1, 100, Width), 0.9);
}

TEST_F(LegibilityTest, MostForcesOfAFamilyOfUpToAHundredMembersAreShown) {
  EXPECT_GE(ShareShown(FamilyTrusses({18, 25}), 61, 100, Width), 0.9);
}

TEST_F(LegibilityTest, TheDescribedDrawingPrintsLabelsOnLabels) {
  int pairs = 0;
  ForEach(FamilyTrusses({10}), [&](int) { pairs += CountDescribed(1024, 768, Width).pairs; });
  EXPECT_GT(pairs, 100);
}

} // namespace
} // namespace strutwright
