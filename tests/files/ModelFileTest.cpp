#include "EventsTest.h"
#include "ModelBuilder.h"
#include "modModelFile.h"
#include "modModelStore.h"

#include <bit>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

std::string Bytes(std::initializer_list<int> values) {
  std::string bytes;
  for (const int value : values) bytes.push_back(static_cast<char>(value));
  return bytes;
}

float FloatAt(const std::string& bytes, std::size_t offset) {
  std::uint32_t bits = 0;
  for (std::size_t i = 4; i-- > 0;) bits = (bits << 8) | static_cast<unsigned char>(bytes.at(offset + i));
  return std::bit_cast<float>(bits);
}

void PutFloat(std::string& bytes, std::size_t offset, float value) {
  const auto bits = std::bit_cast<std::uint32_t>(value);
  for (std::size_t i = 0; i < 4; ++i) bytes.at(offset + i) = static_cast<char>((bits >> (8 * i)) & 0xFFU);
}

class ModelFileTest : public EventsTest {
 protected:
  ModelFileTest() { ResetModel(); }

  /// Three nodes and two members, 222 bytes.
  static ModelData ThreeNodes() {
    return {{{0, 0, 0, 0, 3}, {4, 0, 0, 0, 1}, {4, 3, 5, -10, 0}}, {{1, 2, 200, 1000, 0}, {2, 3, 210, 500, 2.5F}}};
  }
};

TEST_F(ModelFileTest, OfAnEmptyModelIsSeventyBytesLong) {
  std::string expected(70, '\0');
  expected[0] = 20;
  EXPECT_EQ(WriteModel(), expected);
}

TEST_F(ModelFileTest, BeginsWithCapacityNodesAndMembersInLittleEndian) {
  SetTables(ThreeNodes());
  GridCapacity = 0x0102;
  EXPECT_EQ(WriteModel().substr(0, 6), Bytes({0x02, 0x01, 3, 0, 2, 0}));
  GridCapacity = -2;
  EXPECT_EQ(WriteModel().substr(0, 2), Bytes({0xFE, 0xFF}));
}

TEST_F(ModelFileTest, HoldsTheTablesFieldByField) {
  SetTables(ThreeNodes());
  const std::string bytes = WriteModel();
  ASSERT_EQ(bytes.size(), 222U);
  EXPECT_EQ(FloatAt(bytes, 30), 4.0F);                             // x of node 2: 6 + 4 * (1 * 4 + 2)
  EXPECT_EQ(FloatAt(bytes, 6 + 4 * (4 * 4 + 3)), -10.0F);          // ForceY of node 3
  EXPECT_EQ(FloatAt(bytes, 6 + 96 + 4 * (5 * 3 + 2)), 2.5F);       // PS of member 2
  EXPECT_EQ(bytes.substr(30, 4), Bytes({0x00, 0x00, 0x80, 0x40})); // 4 as a 32-bit float
}

TEST_F(ModelFileTest, CarriesEveryFieldEvenThoseThatNobodyUses) {
  SetTables(ThreeNodes());
  NodeTable(0, 3) = 1.5F;
  NodeTable(2, 0) = 7;
  MemberTable(0, 0) = 8;
  for (int field = 6; field <= 9; ++field) MemberTable(1, field) = static_cast<float>(field) + 0.25F;

  const StoredModel read = ReadModel(WriteModel());

  EXPECT_EQ(read.nodes, NodeTable);
  EXPECT_EQ(read.members, MemberTable);
}

TEST_F(ModelFileTest, ReadsWhatWasWritten) {
  SetTables(ThreeNodes());
  GridCapacity = 300;
  const std::string bytes = WriteModel();
  ResetModel();

  TakeModel(ReadModel(bytes));

  EXPECT_EQ(GridCapacity, 300);
  EXPECT_EQ(NodeCount, 3);
  EXPECT_EQ(MemberCount, 2);
  EXPECT_EQ(WriteModel(), bytes);
}

TEST_F(ModelFileTest, MayBeFollowedByAnything) {
  SetTables(ThreeNodes());
  const std::string bytes = WriteModel();
  const StoredModel read = ReadModel(bytes + "what an older, larger model left");
  EXPECT_EQ(read.memberCount, 2);
  EXPECT_EQ(read.nodes, NodeTable);
  EXPECT_EQ(read.presentValues, read.promisedValues);
}

TEST_F(ModelFileTest, OfLessThanThreeCountsIsNone) {
  const std::string bytes = WriteModel();
  for (std::size_t length = 0; length < 6; ++length) {
    EXPECT_THROW(ReadModel(bytes.substr(0, length)), FileError) << length << " bytes";
  }
}

TEST_F(ModelFileTest, CutAnywhereGivesItsValuesAndThenZeros) {
  SetTables(ThreeNodes());
  for (float& value : NodeTable.InOrder()) value = 1;
  for (float& value : MemberTable.InOrder()) value = 1;
  const std::string bytes = WriteModel();
  for (std::size_t length = 6; length <= bytes.size(); ++length) {
    const StoredModel read = ReadModel(bytes.substr(0, length));
    const std::size_t whole = (length - 6) / 4;
    EXPECT_EQ(read.promisedValues, 54U);
    EXPECT_EQ(read.presentValues, whole);
    float sum = 0;
    for (const float value : read.nodes.InOrder()) sum += value;
    for (const float value : read.members.InOrder()) sum += value;
    EXPECT_EQ(sum, static_cast<float>(whole)) << length << " bytes";
  }
}

struct Counts {
  int nodes;
  int members;
};

std::string WithCounts(Counts counts) {
  return Bytes(
      {20, 0, counts.nodes & 0xFF, (counts.nodes >> 8) & 0xFF, counts.members & 0xFF, (counts.members >> 8) & 0xFF});
}

TEST_F(ModelFileTest, WithANegativeCountIsRefused) {
  EXPECT_THROW(ReadModel(WithCounts({-1, 0})), FileError);
  EXPECT_THROW(ReadModel(WithCounts({0, -1})), FileError);
  EXPECT_THROW(ReadModel(WithCounts({-32768, 3})), FileError);
}

TEST_F(ModelFileTest, MayHoldAsManyNodesAsItsCountAllows) {
  for (const int nodes : {16383, 16384, 32767}) {
    const StoredModel read = ReadModel(WithCounts({nodes, 0}));
    EXPECT_EQ(read.nodeCount, nodes);
    EXPECT_EQ(read.nodes.Count(), nodes);
  }
}

TEST_F(ModelFileTest, MayHoldAsManyMembersAsItsCountAllows) {
  const StoredModel read = ReadModel(WithCounts({0, 32767}));
  EXPECT_EQ(read.members.Count(), 32767);
  EXPECT_EQ(read.presentValues, 0U);
}

TEST_F(ModelFileTest, MayGiveACapacityOfAnySign) {
  std::string bytes = WriteModel();
  bytes[0] = static_cast<char>(0xFF);
  bytes[1] = static_cast<char>(0xFF);
  EXPECT_EQ(ReadModel(bytes).capacity, -1);
}

TEST_F(ModelFileTest, HasItsNotFiniteValuesReadAsZeroAndCounted) {
  SetTables(ThreeNodes());
  std::string bytes = WriteModel();
  PutFloat(bytes, 30, std::numeric_limits<float>::infinity());
  PutFloat(bytes, 34, -std::numeric_limits<float>::infinity());
  PutFloat(bytes, bytes.size() - 4, std::numeric_limits<float>::quiet_NaN());

  const StoredModel read = ReadModel(bytes);

  EXPECT_EQ(read.notFiniteValues, 3U);
  EXPECT_EQ(read.nodes(2, 1), 0.0F);
  EXPECT_EQ(read.nodes(3, 1), 0.0F);
  EXPECT_EQ(read.members(2, 9), 0.0F);
  EXPECT_EQ(read.nodes(3, 2), 3.0F);
}

} // namespace
} // namespace strutwright
