// What is written and read again is the same model, as far as the form can carry it.

#include "ImportFixture.h"
#include "ModelBuilder.h"
#include "RunSeed.h"
#include "TrussFamilies.h"
#include "modAnalysis.h"
#include "modDxfWriting.h"
#include "modModelFile.h"
#include "modModelJson.h"
#include "modModelStore.h"
#include "modTables.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include <gmock/gmock.h>

namespace strutwright {
namespace {

std::string BytesOf(const std::filesystem::path& path) {
  std::ostringstream bytes;
  bytes << std::ifstream(path, std::ios::binary).rdbuf();
  return bytes.str();
}

class RoundTripTest : public ImportTest {
 protected:
  ~RoundTripTest() override { TheModel = ModelState{}; }

  /// Reads the text and compares what a user enters with the open model.
  void ExpectSame(const std::string& text, const std::string& what) {
    Import(text);
    ASSERT_EQ(model.nodeCount, NodeCount) << what;
    ASSERT_EQ(model.memberCount, MemberCount) << what;
    EXPECT_EQ(model.nodes, NodeTable) << what;
    for (int m = 1; m <= MemberCount; ++m) {
      for (int field = MemberNodeI; field <= MemberPS; ++field) {
        ASSERT_EQ(model.members(m, field), MemberTable(m, field)) << what << ", member " << m << ", field " << field;
      }
    }
  }

  /// Whether every member has its ends.
  static bool CanBeDrawn() {
    const auto isNode = [](float number) {
      return RoundNodeNumber(number) >= 1 && RoundNodeNumber(number) <= NodeCount;
    };
    for (int m = 1; m <= MemberCount; ++m) {
      if (!isNode(MemberTable(m, MemberNodeI)) || !isNode(MemberTable(m, MemberNodeJ))) return false;
    }
    return true;
  }

  void ExpectRoundTrips(const std::string& what) {
    ExpectSame(ModelToCsv(), what + " as csv");
    ExpectSame(ModelToJson("x"), what + " as JSON");
    EXPECT_EQ(model.capacity, GridCapacity) << what;
    std::vector<std::string> unsaid;
    const std::string dxf = ModelToDxf(0, unsaid);
    EXPECT_EQ(unsaid.empty(), CanBeDrawn()) << what;
    if (CanBeDrawn() && NodeCount > 0) ExpectSame(dxf, what + " as DXF");
  }
};

TEST_F(RoundTripTest, KeepsEveryReferenceModel) {
  int drawn = 0;
  for (const auto& entry : std::filesystem::directory_iterator(REFERENCE_DIR)) {
    if (entry.path().extension() != ".stw") continue;
    TakeModel(ReadModel(BytesOf(entry.path())));
    ExpectRoundTrips(entry.path().filename().string());
    if (CanBeDrawn()) ++drawn;
  }
  EXPECT_GT(drawn, 30);
}

TEST_F(RoundTripTest, KeepsTrussesOfEveryFamily) {
  std::mt19937 random(RunSeed());
  for (int k = 0; k < 200; ++k) {
    SetTables(MakeTruss(static_cast<KnownFamily>(k % FamilyCount), 6 + k % 14, random).model);
    ExpectRoundTrips("truss " + std::to_string(k));
  }
}

TEST_F(RoundTripTest, LeavesTheDeflectedShapeOfADrawingOut) {
  SetTables(Triangle());
  ASSERT_EQ(AnalyseTruss(), AnalysisEnd::Done);
  const std::string dxf = ModelToDxf(100, remarks);
  EXPECT_THAT(dxf, testing::HasSubstr("deflected"));
  ExpectSame(dxf, "the triangle");
  EXPECT_EQ(remarks, std::vector<std::string>());
}

TEST_F(RoundTripTest, FollowsALineThatWasMovedInADrawing) {
  SetTables(Triangle());
  std::string dxf = ModelToDxf(0, remarks);
  const std::string end = "11\r\n4.0\r\n21\r\n3.0\r\n";
  const std::size_t found = dxf.find(end);
  ASSERT_NE(found, std::string::npos);
  dxf.replace(found, end.size(), "11\r\n5.0\r\n21\r\n7.0\r\n");
  Import(dxf);
  ASSERT_EQ(model.nodeCount, 4);
  EXPECT_EQ(model.nodes(4, NodeY), 7);
}

/// A drawing of ours with a copy of everything in it, so many metres to the right.
std::string WithCopy(const std::string& dxf, double metres) {
  const std::string begin = "ENTITIES\r\n";
  const std::size_t from = dxf.find(begin) + begin.size();
  const std::size_t end = dxf.find("0\r\nENDSEC", from);
  std::istringstream pairs(dxf.substr(from, end - from));
  std::string copy;
  for (std::string code, value; std::getline(pairs, code) && std::getline(pairs, value);) {
    const bool isX = code == "10\r" || code == "11\r";
    copy += code + "\n" + (isX ? std::to_string(std::stod(value) + metres) + "\r" : value) + "\n";
  }
  return dxf.substr(0, end) + copy + dxf.substr(end);
}

TEST_F(RoundTripTest, KeepsLoadsAndSupportsOfWhatWasCopiedInADrawing) {
  SetTables(Triangle());

  Import(WithCopy(ModelToDxf(0, remarks), 100));

  ASSERT_EQ(model.nodeCount, 6);
  EXPECT_EQ(model.memberCount, 6);
  for (int n = 1; n <= 3; ++n) {
    EXPECT_EQ(model.nodes(n + 3, NodeX), NodeTable(n, NodeX) + 100);
    for (const int field : {NodeY, NodeForceX, NodeForceY, NodeSupport}) {
      EXPECT_EQ(model.nodes(n + 3, field), NodeTable(n, field)) << n;
    }
  }
  EXPECT_EQ(remarks, std::vector<std::string>());
}

TEST_F(RoundTripTest, JoinsACopyToTheNodeThatItIsPutUpon) {
  SetTables(Triangle());
  NodeTable(1, NodeForceX) = 2;
  NodeTable(2, NodeForceX) = 3;
  ASSERT_EQ(NodeTable(2, NodeX) - NodeTable(1, NodeX), 4.0F);
  ASSERT_EQ(NodeTable(2, NodeY), NodeTable(1, NodeY));

  Import(WithCopy(ModelToDxf(0, remarks), 4));

  ASSERT_EQ(model.nodeCount, 5);
  EXPECT_EQ(model.nodes(2, NodeForceX), 5) << "loads are added";
  EXPECT_EQ(model.nodes(2, NodeSupport), 3) << "both supports together";
}

TEST_F(RoundTripTest, TakesACopyUponItsOriginalOnce) {
  SetTables(Triangle());
  Import(WithCopy(ModelToDxf(0, remarks), 0));
  EXPECT_EQ(model.nodeCount, 3);
  EXPECT_EQ(model.nodes(3, NodeForceY), NodeTable(3, NodeForceY));
}

TEST_F(RoundTripTest, RefusesLoadsThatNoNumberHoldsTogether) {
  SetTables(Triangle());
  NodeTable(1, NodeForceX) = 3e38F;
  NodeTable(2, NodeForceX) = 3e38F;
  EXPECT_EQ(FaultOf(WithCopy(ModelToDxf(0, remarks), 4)), "the loads of two nodes in one place are too large together");
}

} // namespace
} // namespace strutwright
