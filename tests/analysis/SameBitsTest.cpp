// The analysis skips what is zero and works in another order than it is written down; not one bit may come of that.
// Here it is compared with the literal routines, by every kernel that the processor can run.

#include "AnalysisFixture.h"
#include "AnalysisTexts.h"
#include "Kernel.h"
#include "LargeModels.h"
#include "LiteralElimination.h"
#include "LongWork.h"
#include "Platform.h"
#include "TiledSolver.h"
#include "modAnalysis.h"
#include "modMember.h"
#include "modSolver.h"

#include <algorithm>
#include <bit>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <span>
#include <string>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

/// What is not a number has one pattern here: its sign comes from the order in which a compiler gives two of them to
/// the processor, and no text shows it.
std::uint32_t BitsOf(float value) {
  return std::bit_cast<std::uint32_t>(std::isnan(value) ? std::numeric_limits<float>::quiet_NaN() : value);
}

std::vector<std::uint32_t> BitsOf(std::span<const float> values) {
  std::vector<std::uint32_t> bits;
  for (const float value : values) bits.push_back(BitsOf(value));
  return bits;
}

/// What an analysis leaves behind, as bits.
struct Results {
  bool ok = false;
  std::vector<std::uint32_t> displacements;
  std::vector<std::uint32_t> reactions;
  std::vector<std::uint32_t> members;

  bool operator==(const Results&) const = default;
};

Results CurrentResults(bool ok) {
  return {ok, BitsOf(Displacements), BitsOf(Reactions), BitsOf(MemberTable.InOrder())};
}

/// Node after node, for each of them member after member.
void ComputeReactionsLiterally() {
  for (int i = 1; i <= NodeCount; ++i) {
    for (int m = 1; NodeTable(i, NodeSupport) != 0.0F && m <= MemberCount; ++m) {
      double sign = 0;
      if (MemberTable(m, MemberNodeI) == static_cast<float>(i)) sign = -1;
      if (MemberTable(m, MemberNodeJ) == static_cast<float>(i)) sign = 1;
      if (sign == 0) continue;
      const double outer = static_cast<double>(MemberTable(m, MemberFieldForce)) - MemberTable(m, MemberPS);
      const auto add = [=](float& R, float direction) { R = static_cast<float>(R + outer * sign * direction); };
      add(Reactions[YFreedom(i)], MemberTable(m, MemberFieldSin));
      add(Reactions[XFreedom(i)], MemberTable(m, MemberFieldCos));
    }
  }
}

TiledMatrix TilesOf(const StiffnessMatrix& K, const std::vector<float>& P) {
  TiledMatrix tiles(K.Freedoms());
  for (int row = 1; row <= K.Freedoms(); ++row) {
    for (const StiffnessMatrix::Entry& entry : K.Row(row)) tiles(row, entry.column) = entry.value;
    tiles(row, K.Freedoms() + 1) = P[static_cast<std::size_t>(row)];
  }
  return tiles;
}

/// Row by row within the envelope; false where the equations are unstable.
bool SolveByRows(const StiffnessMatrix& K, std::vector<float>& D, const std::vector<float>& P) {
  RowEquations equations(K, P, EnvelopeOf(K));
  for (int p = 1; p < K.Freedoms(); ++p) {
    BringPivotUp(equations, p);
    EliminateColumn(equations, p);
  }
  EXPECT_TRUE(equations.CanBeTrusted());
  if (!IsStable(equations)) return false;
  BackSubstitute(equations);
  for (int i = 1; i <= K.Freedoms(); ++i) D[static_cast<std::size_t>(i)] = equations.P(i);
  return true;
}

class SameBitsTest : public AnalysisFixture {
 protected:
  /// The analysis as it is written down, on the whole matrix.
  static Results AnalyseLiterally(const ModelData& model) {
    SetTables(model);
    DofCount = static_cast<std::int16_t>(2 * NodeCount);
    AllocateAnalysisArrays();
    FullMatrix K = AssembleLiterally();
    BuildLoadVector(LoadVector);
    RestrainSupports(LoadVector, Reactions, FixedDof);
    RestrainLiterally(K, FixedDof, DofCount);
    const bool ok = SolveLiterally(K, Displacements, LoadVector, DofCount);
    if (ok) {
      for (int m = 1; m <= MemberCount; ++m) ComputeMemberForce(m);
      ComputeReactionsLiterally();
    }
    return CurrentResults(ok);
  }

  static Results Analyse(const ModelData& model) {
    SetTables(model);
    return CurrentResults(AnalyseTruss() == AnalysisEnd::Done);
  }

  static void SetUpEquations(const ModelData& model) {
    SetTables(model);
    DofCount = static_cast<std::int16_t>(2 * NodeCount);
    AllocateAnalysisArrays();
    AssembleGlobalStiffness(GlobalStiffness);
    BuildLoadVector(LoadVector);
    ApplySupports(GlobalStiffness, LoadVector, Reactions, FixedDof);
  }

  /// The displacements by one kernel of the tiles; ok comes from what it says.
  static Results SolveInTiles(const ModelData& model, const Kernel& kernel) {
    SetUpEquations(model);
    TiledMatrix tiles = TilesOf(GlobalStiffness, LoadVector);
    LongWork work("Solving");
    const Solution verdict = SolveTiled(tiles, Displacements, PivotTolerance, kernel, work);
    EXPECT_NE(verdict, Solution::NotFinite);
    return CurrentResults(verdict == Solution::Found);
  }

  /// The displacements row by row, whatever would be faster.
  static Results SolveInRows(const ModelData& model) {
    SetUpEquations(model);
    const bool ok = SolveByRows(GlobalStiffness, Displacements, LoadVector);
    return CurrentResults(ok);
  }

  /// True when all ways give the same; a failure names the model by `name`.
  static Results ExpectSameBits(const ModelData& model, const std::string& name) {
    const Results literal = AnalyseLiterally(model);
    EXPECT_TRUE(Analyse(model) == literal) << name;
    const auto expectSolved = [&](const Results& solved, const char* way) {
      EXPECT_EQ(solved.ok, literal.ok) << name << ", " << way;
      EXPECT_TRUE(solved.displacements == literal.displacements) << name << ", " << way;
    };
    expectSolved(SolveInRows(model), "rows");
    for (const Kernel& kernel : Kernels()) expectSolved(SolveInTiles(model, kernel), kernel.name);
    return literal;
  }
};

TEST_F(SameBitsTest, TryEveryKernelThatThereIs) {
  EXPECT_STREQ(Kernels().back().name, "plain");
#if defined(__x86_64__)
  EXPECT_GE(Kernels().size(), 2U);
#endif
}

constexpr std::uint32_t FirstSeed = 90210;
constexpr int Batches = 20;
constexpr int BatchSize = 50;

class RandomSameBitsTest : public SameBitsTest, public testing::WithParamInterface<int> {};

float Between(double least, double most, std::mt19937& random) {
  return static_cast<float>(least + (most - least) * (static_cast<double>(random()) / 4294967296.0));
}

/// A strip of triangles of any shape with areas over five decades, now and then with members doubled or taken away,
/// loads in a few places only, or without supports; in any of three numberings.
ModelData RandomModel(std::mt19937& random) {
  const int nodes = 3 + Below(118, random);
  ModelData model = WarrenGirder(nodes, 1 + Below(12, random));
  const int loaded = 1 + Below(nodes, random);
  for (NodeData& node : model.nodes) {
    node.x += Between(-0.4, 0.4, random);
    node.y += Between(-0.4, 0.4, random);
    node.forceX = Below(nodes, random) < loaded ? Between(-50, 50, random) : 0.0F;
    node.forceY = Below(nodes, random) < loaded ? Between(-50, 50, random) : 0.0F;
    if (Below(40, random) == 0) node.support = static_cast<float>(Below(4, random));
  }
  for (MemberData& member : model.members) {
    member.A = std::pow(10.0F, Between(0, 5, random));
    member.PS = Below(10, random) == 0 ? Between(-20, 20, random) : 0.0F;
  }
  for (int copies = Below(4, random) == 0 ? Below(6, random) : 0; copies > 0; --copies) {
    model.members.push_back(model.members[static_cast<std::size_t>(Below(2 * nodes - 3, random))]);
  }
  if (Below(4, random) == 0) std::erase_if(model.members, [&](const MemberData&) { return Below(30, random) == 0; });
  if (Below(12, random) == 0) {
    for (NodeData& node : model.nodes) node.support = 0;
  }
  const int numbering = Below(3, random);
  if (numbering == 1) return Renumbered(model, ChordsOrder(nodes));
  return numbering == 2 ? Renumbered(model, RandomOrder(nodes, random)) : model;
}

TEST_P(RandomSameBitsTest, ComeOfEveryKernel) {
  for (int each = 0; each < BatchSize; ++each) {
    const std::uint32_t seed = FirstSeed + static_cast<std::uint32_t>(GetParam() * BatchSize + each);
    std::mt19937 random(seed);
    ExpectSameBits(RandomModel(random), "seed " + std::to_string(seed));
  }
}

INSTANTIATE_TEST_SUITE_P(Batches, RandomSameBitsTest, testing::Range(0, Batches));

class LargeSameBitsTest : public SameBitsTest, public testing::WithParamInterface<int> {
 protected:
  std::mt19937 random{FirstSeed};
};

TEST_P(LargeSameBitsTest, ComeOfAGirderAlongTheSpan) {
  EXPECT_TRUE(ExpectSameBits(WarrenGirder(GetParam()), "banded").ok);
}

TEST_P(LargeSameBitsTest, ComeOfAGirderByItsChords) {
  EXPECT_TRUE(ExpectSameBits(Renumbered(WarrenGirder(GetParam()), ChordsOrder(GetParam())), "chords").ok);
}

TEST_P(LargeSameBitsTest, ComeOfAGirderInAnyOrder) {
  EXPECT_TRUE(ExpectSameBits(Renumbered(WarrenGirder(GetParam()), RandomOrder(GetParam(), random)), "random").ok);
}

INSTANTIATE_TEST_SUITE_P(Nodes, LargeSameBitsTest, testing::Values(127, 128, 129, 300, 1000));

TEST_F(SameBitsTest, ComeOfAPanelInAnyOrder) {
  std::mt19937 random(FirstSeed);
  EXPECT_TRUE(ExpectSameBits(Renumbered(TriangulatedPanel(450), RandomOrder(450, random)), "panel").ok);
}

// What a load at one end leaves at the other is less than the smallest float, and every other time it is -0.
class FadingSameBitsTest : public SameBitsTest {
 protected:
  static ModelData LoadedAtOneEnd(int nodes) {
    ModelData model = WarrenGirder(nodes, 1);
    for (std::size_t n = 0; n < model.nodes.size(); n += 2) {
      model.nodes[n].forceY = 0;
      model.nodes[n].support = n % 4 == 0 ? 1 : 2; // a roller this way and that, so that every movement fades
    }
    model.nodes[1].forceY = -1;
    model.nodes[1].forceX = 2;
    return model;
  }

  static bool HasNegativeZero(const Results& results) {
    return std::count(results.displacements.begin(), results.displacements.end(), 0x80000000U) > 0;
  }
};

TEST_F(FadingSameBitsTest, KeepTheSignsOfZerosAlongTheSpan) {
  EXPECT_TRUE(HasNegativeZero(ExpectSameBits(LoadedAtOneEnd(500), "banded")));
}

TEST_F(FadingSameBitsTest, KeepTheSignsOfZerosByTheChords) {
  ExpectSameBits(Renumbered(LoadedAtOneEnd(500), ChordsOrder(500)), "chords");
}

TEST_F(FadingSameBitsTest, KeepTheSignsOfZerosInAnyOrder) {
  for (std::uint32_t seed = FirstSeed; seed < FirstSeed + 5; ++seed) {
    std::mt19937 random(seed);
    ExpectSameBits(Renumbered(LoadedAtOneEnd(400), RandomOrder(400, random)), "seed " + std::to_string(seed));
  }
}

/// Equations that read D = P, for a start.
struct FadingEquations {
  static constexpr int Count = 330;

  FadingEquations() {
    for (int i = 1; i <= Count; ++i) K.Set(i, i, 1);
  }

  FullMatrix InFull() const {
    FullMatrix full(Count, Count + 1);
    for (int row = 1; row <= Count; ++row) {
      for (const StiffnessMatrix::Entry& entry : K.Row(row)) full(row, entry.column) = entry.value;
    }
    return full;
  }

  StiffnessMatrix K{Count};
  std::vector<float> P = std::vector<float>(Count + 1);
};

/// Row by row, in tiles, and as the program chooses.
void ExpectSameSolution(const FadingEquations& equations, const std::string& name) {
  const std::vector<float> empty(equations.P.size());
  std::vector<float> literal = empty;
  FullMatrix full = equations.InFull();
  const bool literalOk = SolveLiterally(full, literal, equations.P, FadingEquations::Count);
  std::vector<float> D = empty;
  EXPECT_EQ(SolveByRows(equations.K, D, equations.P), literalOk) << name;
  EXPECT_EQ(BitsOf(D), BitsOf(literal)) << name << ", rows";
  LongWork work("Solving");
  TiledMatrix tiles = TilesOf(equations.K, equations.P);
  D = empty;
  EXPECT_EQ(SolveTiled(tiles, D, PivotTolerance, Kernels().front(), work) == Solution::Found, literalOk) << name;
  EXPECT_EQ(BitsOf(D), BitsOf(literal)) << name << ", tiles";
  D = empty;
  EXPECT_EQ(SolveEquations(equations.K, D, equations.P, work) == SolveOutcome::Solved, literalOk) << name;
  EXPECT_EQ(BitsOf(D), BitsOf(literal)) << name;
}

// The product of the factor of row 150 and the load of row 64 leaves -0, which the load of row 128 makes +0.
TEST_F(FadingSameBitsTest, KeepTheSignsOfLoadsThatOneRowLeavesAndAnotherTakes) {
  FadingEquations equations;
  equations.K.Set(150, 64, -1e-30F);
  equations.P[64] = -1e-30F;
  ExpectSameSolution(equations, "left");
  equations.P[128] = -1;
  ExpectSameSolution(equations, "taken");
  equations.P[5] = -0.0F; // its turn is over when row 128 takes the others
  ExpectSameSolution(equations, "kept");
}

// Rows 2 and 5 leave -0 in rows 10 and 200 of the column, and row 3 makes that of row 10 +0 again.  So row 10 leaves
// row 200 its -0, and with that factor the load of row 200 loses its own sign.
TEST_F(FadingSameBitsTest, KeepTheSignsOfZerosInEachColumnOfATile) {
  for (int column = 2 * PanelWidth + 1; column <= 2 * PanelWidth + TileColumns; ++column) {
    FadingEquations equations;
    equations.K.Set(2, column, 1e-30F);
    equations.K.Set(10, 2, 1e-30F);
    equations.K.Set(3, column, -1);
    equations.K.Set(5, column, 1e-30F);
    equations.K.Set(200, 5, 1e-30F);
    equations.K.Set(200, 10, 1);
    equations.P[static_cast<std::size_t>(column)] = 1;
    equations.P[200] = -0.0F;
    ExpectSameSolution(equations, "column " + std::to_string(column));
  }
}

/// Equations that hardly know each other, with numbers whose products are less than the smallest float and, now and
/// then, zeros with a minus sign for loads.
FadingEquations RandomFadingEquations(std::mt19937& random) {
  const auto anyOf = [&](const std::vector<float>& values) {
    return values[static_cast<std::size_t>(Below(static_cast<int>(values.size()), random))];
  };
  FadingEquations equations;
  for (std::size_t i = 1; i < equations.P.size(); ++i)
    equations.P[i] = anyOf({0.0F, -0.0F, 1.0F, -1.0F, 1e-30F, -1e-30F});
  for (int left = Below(FadingEquations::Count, random); left > 0; --left) {
    const int row = 1 + Below(FadingEquations::Count, random);
    const int column = 1 + Below(FadingEquations::Count, random);
    equations.K.Set(row, column, anyOf({1e-30F, -1e-30F, 1e-8F, -1.0F, 2.0F}));
  }
  return equations;
}

TEST_F(FadingSameBitsTest, KeepTheSignsOfZerosOfEquationsThatHardlyKnowEachOther) {
  for (std::uint32_t seed = FirstSeed; seed < FirstSeed + 50; ++seed) {
    std::mt19937 random(seed);
    ExpectSameSolution(RandomFadingEquations(random), "seed " + std::to_string(seed));
  }
}

// The product of E and A is beyond the floats, so that K holds infinities and, where they meet, no numbers.
ModelData WithWhatIsNotFinite(ModelData model) {
  model.members[20].E = model.members[20].A = 1e30F;
  return model;
}

TEST_F(SameBitsTest, ComeOfValuesThatAreNotFinite) {
  const ModelData model = WithWhatIsNotFinite(WarrenGirder(40));
  const Results literal = AnalyseLiterally(model);
  EXPECT_TRUE(Analyse(model) == literal);
  EXPECT_FALSE(TilesAreFaster(EnvelopeOf(GlobalStiffness)));
}

TEST_F(SameBitsTest, ComeOfValuesThatAreNotFiniteInTiles) {
  const ModelData model = WithWhatIsNotFinite(Renumbered(WarrenGirder(100), ChordsOrder(100)));
  const Results literal = AnalyseLiterally(model);
  EXPECT_TRUE(Analyse(model) == literal);
  EXPECT_TRUE(TilesAreFaster(EnvelopeOf(GlobalStiffness)));
}

// Every number of K is finite here, but not every displacement.
TEST_F(SameBitsTest, ComeOfDisplacementsThatAreNotFinite) {
  ModelData model = Triangle();
  model.nodes[2].forceX = 3e38F;
  for (MemberData& member : model.members) member.A = 0.01F;
  const Results literal = AnalyseLiterally(model);
  EXPECT_TRUE(literal.ok);
  EXPECT_TRUE(Analyse(model) == literal);
}

/// Equations of which every entry is random: few zeros, and any row may be exchanged for any other.
TEST_F(SameBitsTest, ComeOfEquationsWhoseRowsAreExchanged) {
  for (std::uint32_t seed = FirstSeed; seed < FirstSeed + 20; ++seed) {
    std::mt19937 random(seed);
    const int n = 1 + Below(60, random);
    const int band = 1 + Below(n, random);
    StiffnessMatrix K(n);
    FullMatrix full(n, n + 1);
    std::vector<float> P(static_cast<std::size_t>(n) + 1);
    for (int row = 1; row <= n; ++row) {
      P[static_cast<std::size_t>(row)] = Between(-9, 9, random);
      for (int column = std::max(1, row - band); column <= std::min(n, row + band / 2); ++column) {
        const float value = Below(3, random) == 0 ? 0.0F : Between(-9, 9, random);
        K.Set(row, column, value);
        full(row, column) = value;
      }
    }
    std::vector<float> D(P.size());
    std::vector<float> literal(P.size());
    EXPECT_EQ(SolveByRows(K, D, P), SolveLiterally(full, literal, P, n)) << seed;
    EXPECT_EQ(BitsOf(D), BitsOf(literal)) << seed;
  }
}

TEST_F(SameBitsTest, AreTakenFromRowsAlongTheSpanAndFromTilesByTheChords) {
  SetUpEquations(WarrenGirder(1000));
  EXPECT_FALSE(TilesAreFaster(EnvelopeOf(GlobalStiffness)));
  SetUpEquations(Renumbered(WarrenGirder(1000), ChordsOrder(1000)));
  EXPECT_TRUE(TilesAreFaster(EnvelopeOf(GlobalStiffness)));
}

class SlowSolutionTest : public SameBitsTest {
 protected:
  SlowSolutionTest() {
    static std::chrono::steady_clock::time_point theTime;
    theTime = {};
    ThePlatform().now = [] { return theTime += std::chrono::milliseconds(600); };
    statusBar.reportsUntilCancel = 0;
  }

  void CancelOnTheWay(const ModelData& model) {
    SetTables(model);
    EXPECT_THROW(AnalyseTruss({[](const auto&) {}, SolvingText}), WorkCancelled);
  }
};

TEST_F(SlowSolutionTest, CanBeCancelledOnTheWay) {
  CancelOnTheWay(WarrenGirder(200));
  EXPECT_EQ(events.front().substr(0, 36), "ShowProgress(Solving the equations, ");
  EXPECT_EQ(events.back(), "EndProgress");
}

TEST_F(SlowSolutionTest, NamesTheCommandThatWouldMakeItFast) {
  CancelOnTheWay(Renumbered(WarrenGirder(200), ChordsOrder(200)));
  EXPECT_EQ(events.front().substr(0, 94),
            "ShowProgress(Solving the equations (Tools > Renumber Nodes Along the Span makes this faster), ");
}

} // namespace
} // namespace strutwright
