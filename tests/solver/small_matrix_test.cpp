// SPDX-License-Identifier: MIT
#include "solver/small_matrix.h"

#include <gtest/gtest.h>

namespace sylvomex {
namespace {

template <int R, int C>
Matrix<R, C> Filled(std::initializer_list<double> row_by_row) {
  Matrix<R, C> m;
  int position = 0;
  for (const double value : row_by_row) {
    m(position / C + 1, position % C + 1) = value;
    ++position;
  }
  return m;
}

TEST(SmallMatrix, IsZeroAtFirstAndHasIndexBaseOne) {
  Matrix<2, 3> m;
  EXPECT_EQ(m(1, 1), 0);
  EXPECT_EQ(m(2, 3), 0);
  EXPECT_THROW(m(0, 1), RunTimeError);
  EXPECT_THROW(m(3, 1), RunTimeError);
  EXPECT_THROW(m(1, 0), RunTimeError);
  EXPECT_THROW(m(1, 4), RunTimeError);
}

TEST(Determinant2, IsTheCrossDifference) {
  EXPECT_EQ(Determinant_2(Filled<2, 2>({3, 8, 4, 6})), -14);
}

TEST(Determinant3, HandWorkedValue) {
  // 2(1*1 - 7*8) + 5(3*8 - 4*1) of the expansion by the first row (2, 0, 5).
  EXPECT_EQ(Determinant_3(Filled<3, 3>({2, 0, 5, 3, 1, 7, 4, 8, 1})), -10);
}

TEST(Determinant3, EqualRowsGiveZero) {
  EXPECT_EQ(Determinant_3(Filled<3, 3>({1, 2, 3, 1, 2, 3, 7, 8, 9})), 0);
}

TEST(MatrixProduct, TakesTheRightHandFactorFirst) {
  const Matrix<2, 2> a = Filled<2, 2>({1, 2, 3, 4});
  const Matrix<2, 2> b = Filled<2, 2>({0, 1, 5, 0});
  Matrix<2, 2> c;
  ASSERT_TRUE(MMUL_D(b, 2, 2, a, 2, 2, c));
  EXPECT_EQ(c(1, 1), 10);
  EXPECT_EQ(c(1, 2), 1);
  EXPECT_EQ(c(2, 1), 20);
  EXPECT_EQ(c(2, 2), 3);
}

TEST(MatrixProduct, OverwritesTheOutput) {
  const Matrix<1, 1> a = Filled<1, 1>({2});
  const Matrix<1, 1> b = Filled<1, 1>({3});
  Matrix<1, 1> c = Filled<1, 1>({100});
  ASSERT_TRUE(MMUL_D(b, 1, 1, a, 1, 1, c));
  EXPECT_EQ(c(1, 1), 6);
}

TEST(MatrixProduct, DifferentInnerDimensionsLeaveTheOutputUnchanged) {
  const Matrix<3, 3> a = Filled<3, 3>({1, 2, 3, 4, 5, 6, 7, 8, 9});
  Matrix<3, 3> c = Filled<3, 3>({9, 9, 9, 9, 9, 9, 9, 9, 9});
  EXPECT_FALSE(MMUL_D(a, 3, 3, a, 3, 2, c));
  for (int i = 1; i <= 3; ++i) {
    for (int j = 1; j <= 3; ++j) EXPECT_EQ(c(i, j), 9);
  }
  EXPECT_STREQ(kMatrixConflict,
               "Error in MMUL_D, cannot multiply matrices with dimension conflict!");
}

TEST(MatrixTimesVector, CalledTwiceOnTheSameOutputDoublesIt) {
  const Matrix<2, 3> m = Filled<2, 3>({1, 2, 3, 4, 5, 6});
  Vector<3> v;
  v(1) = 1;
  v(2) = 10;
  v(3) = 100;
  Vector<2> out;
  ASSERT_TRUE(MATVECMULT_D(v, 3, m, 2, 3, out));
  EXPECT_EQ(out(1), 321);
  EXPECT_EQ(out(2), 654);
  ASSERT_TRUE(MATVECMULT_D(v, 3, m, 2, 3, out));
  EXPECT_EQ(out(1), 642);
  EXPECT_EQ(out(2), 1308);
}

TEST(MatrixTimesVector, DimensionConflictLeavesTheOutputUnchanged) {
  const Matrix<2, 3> m = Filled<2, 3>({1, 2, 3, 4, 5, 6});
  Vector<3> v;
  Vector<2> out;
  out(1) = 5;
  EXPECT_FALSE(MATVECMULT_D(v, 2, m, 2, 3, out));
  EXPECT_EQ(out(1), 5);
  EXPECT_STREQ(kVectorConflict, "In MATVECMULT_D dimensions of Matrix and Vector conflict!");
}

}  // namespace
}  // namespace sylvomex
