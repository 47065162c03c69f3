#include "ModelAsEntered.h"

#include "ModelBuilder.h"
#include "modModelStore.h"

#include <gtest/gtest.h>

namespace strutwright {
namespace {

class ModelAsEnteredTest : public testing::Test {
 protected:
  ModelAsEnteredTest() { SetTables({{{0, 0}, {4, 0}}, {{1, 2}}}); }
};

TEST_F(ModelAsEnteredTest, IsCurrentAsLongAsNothingIsEntered) {
  const ModelAsEntered model = ModelAsEntered::Now();
  MemberTable(1, MemberFieldForce) = 5; // an analysis writes here
  EXPECT_TRUE(model.IsCurrent());
}

TEST_F(ModelAsEnteredTest, IsNotCurrentAfterAnyChange) {
  const ModelAsEntered model = ModelAsEntered::Now();
  NodeTable(2, NodeSupport) = 3;
  EXPECT_FALSE(model.IsCurrent());
  NodeTable(2, NodeSupport) = 0;
  EXPECT_TRUE(model.IsCurrent());
  MemberTable(1, MemberPS) = 1;
  EXPECT_FALSE(model.IsCurrent());
}

TEST_F(ModelAsEnteredTest, IsNotCurrentWithAnotherCountOfTheSameZeros) {
  SetTables({{{0, 0}}, {}});
  const ModelAsEntered model = ModelAsEntered::Now();
  SetTables({{{0, 0}, {0, 0}}, {}});
  EXPECT_FALSE(model.IsCurrent());
}

TEST_F(ModelAsEnteredTest, OfNothingIsNeverCurrent) {
  SetTables({});
  EXPECT_FALSE(ModelAsEntered().IsCurrent());
}

} // namespace
} // namespace strutwright
