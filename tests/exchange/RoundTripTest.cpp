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

} // namespace
} // namespace strutwright
