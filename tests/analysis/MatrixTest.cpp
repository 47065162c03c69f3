#include "Matrix.h"

#include "Ensure.h"

#include <gtest/gtest.h>

namespace strutwright {
namespace {

TEST(MatrixTest, HoldsItsUnusedCornerAtFirst) {
  const Matrix matrix;
  EXPECT_EQ(matrix.LastRow(), 0);
  EXPECT_EQ(matrix.LastColumn(), 0);
  EXPECT_EQ(matrix(0, 0), 0.0F);
}

TEST(MatrixTest, IsIndexedUpToItsLastRowAndColumn) {
  Matrix matrix(2, 3);
  matrix(2, 3) = 7.0F;
  EXPECT_EQ(matrix.LastRow(), 2);
  EXPECT_EQ(matrix.LastColumn(), 3);
  EXPECT_EQ(matrix(2, 3), 7.0F);
  EXPECT_EQ(matrix(0, 0), 0.0F);
}

TEST(MatrixTest, IsZeroOnceRecreated) {
  Matrix matrix(2, 2);
  matrix(1, 2) = 7.0F;
  matrix.Recreate(2, 2);
  EXPECT_EQ(matrix, Matrix(2, 2));
}

TEST(MatrixTest, HasItsRowsOneEntryAfterAnother) {
  Matrix matrix(2, 3);
  matrix(1, 2) = 5.0F;
  matrix.Row(2)[3] = 6.0F;
  EXPECT_EQ(matrix.Row(1)[2], 5.0F);
  EXPECT_EQ(matrix(2, 3), 6.0F);
}

TEST(MatrixTest, TakesAnIndexOutsideForABug) {
  Matrix matrix(2, 3);
  EXPECT_THROW(matrix(3, 1), EnsureFailed);
  EXPECT_THROW(matrix(1, 4), EnsureFailed);
  EXPECT_THROW(matrix(-1, 1), EnsureFailed);
  EXPECT_THROW(matrix(1, -1), EnsureFailed);
  EXPECT_THROW(matrix.Row(3), EnsureFailed);
}

TEST(MatrixTest, TakesANegativeBoundForABug) {
  Matrix matrix;
  EXPECT_THROW(matrix.Recreate(-1, 1), EnsureFailed);
  EXPECT_THROW(matrix.Recreate(1, -1), EnsureFailed);
}

// Both hold twelve zeros.
TEST(MatrixTest, DiffersFromAMatrixOfAnotherShape) { EXPECT_NE(Matrix(2, 3), Matrix(3, 2)); }

} // namespace
} // namespace strutwright
