#include "Failure.h"

#include "frame/imported/Matrix.h"

#include <gtest/gtest.h>

#include <limits>

using LumCommonUtils::TMatrix;
using LumCommonUtils::TVector;

namespace {

/** A matrix from its rows. */
template <unsigned long Rows, unsigned long Columns>
TMatrix Make(double const (&rows)[Rows][Columns]) {
    TMatrix matrix(Columns, Rows);
    for (unsigned long row = 0; row < Rows; ++row) {
        for (unsigned long column = 0; column < Columns; ++column) {
            matrix.SetElement(column, row, rows[row][column]);
        }
    }
    return matrix;
}

} // namespace

TEST(Matrix, StartsAsZeros) {
    TMatrix const matrix(2, 3);
    EXPECT_EQ(matrix.Columns(), 2u);
    EXPECT_EQ(matrix.Rows(), 3u);
    for (unsigned long row = 0; row < 3; ++row) {
        EXPECT_EQ(matrix.GetElement(0, row), 0.0);
        EXPECT_EQ(matrix.GetElement(1, row), 0.0);
    }
}

TEST(Matrix, FirstIndexRunsAlongARow) {
    // (1 2 3; 4 5 6) times (1 0 0) is (1 4): column 0 is multiplied.
    TMatrix const matrix = Make({{1, 2, 3}, {4, 5, 6}});
    EXPECT_EQ(matrix.GetElement(2, 0), 3.0);
    EXPECT_EQ(matrix.GetElement(0, 1), 4.0);
    TVector vector(3);
    vector[0] = 1;
    TVector const product = matrix * vector;
    ASSERT_EQ(product.Size, 2u);
    EXPECT_EQ(product[0], 1.0);
    EXPECT_EQ(product[1], 4.0);
}

TEST(Matrix, CopiesAreDeep) {
    TMatrix source = Make({{1, 2}, {3, 4}});
    TMatrix const copy(source);
    TMatrix assigned(1, 1);
    assigned = source;
    TMatrix const& same = source;
    source = same;
    source.SetElement(0, 0, 9);
    EXPECT_EQ(copy.GetElement(0, 0), 1.0);
    EXPECT_EQ(assigned.GetElement(0, 0), 1.0);
    EXPECT_EQ(assigned.Columns(), 2u);
    EXPECT_EQ(source.GetElement(1, 1), 4.0);
}

TEST(Matrix, ProductIsTheOrdinaryOne) {
    // By hand: (1 2 3; 4 5 6)(1 4; 2 5; 3 6) = (14 32; 32 77), and the other way round 3 by 3.
    TMatrix const left = Make({{1, 2, 3}, {4, 5, 6}});
    TMatrix const right = Make({{1, 4}, {2, 5}, {3, 6}});
    TMatrix const small = left * right;
    EXPECT_EQ(small.Columns(), 2u);
    EXPECT_EQ(small.Rows(), 2u);
    EXPECT_EQ(small.GetElement(0, 0), 14.0);
    EXPECT_EQ(small.GetElement(1, 0), 32.0);
    EXPECT_EQ(small.GetElement(1, 1), 77.0);
    TMatrix const large = right * left;
    EXPECT_EQ(large.Columns(), 3u);
    EXPECT_EQ(large.GetElement(1, 0), 22.0);
    EXPECT_EQ(large.GetElement(0, 2), 27.0);
}

TEST(Matrix, AccessOutsideThrows) {
    TMatrix matrix(2, 3);
    EXPECT_EQ(FailureOf([&] { matrix.GetElement(2, 0); }),
              "TMatrix: element (column 2, row 0) is outside of 2 columns by 3 rows");
    EXPECT_EQ(FailureOf([&] { matrix.SetElement(0, 3, 1.0); }),
              "TMatrix: element (column 0, row 3) is outside of 2 columns by 3 rows");
}

TEST(Matrix, ProductsOfUnequalInnerSizesThrow) {
    TMatrix const matrix(2, 3);
    EXPECT_EQ(FailureOf([&] { matrix* matrix; }),
              "TMatrix: product of 2 columns on the left and 3 rows on the right");
    EXPECT_EQ(FailureOf([&] { matrix* TVector(3); }),
              "TMatrix: product with a vector of 2 columns on the left and 3 rows on the right");
}

TEST(Matrix, SizesThatOverflowThrow) {
    unsigned long const half = 1ul << 32;
    EXPECT_EQ(FailureOf([&] { TMatrix(half, half); }),
              "TMatrix: 4294967296 columns by 4294967296 rows are too many elements");
}

TEST(Vector, IndexingPastTheSizeThrows) {
    TVector vector(2);
    TVector const& constant = vector;
    EXPECT_EQ(FailureOf([&] { vector[2] = 1; }), "double& TVector::operator[] (size_t index)");
    EXPECT_EQ(FailureOf([&] { static_cast<void>(constant[2]); }),
              "double& TVector::operator[] (size_t index)");
}

TEST(Vector, IndexingIsSafeWhenTheOpenMembersDisagree) {
    TVector vector(2);
    vector.Size = 10;
    EXPECT_THROW(vector[5], std::runtime_error);
    vector.Elements.resize(20);
    EXPECT_NO_THROW(vector[5]);
    EXPECT_THROW(vector[10], std::runtime_error);
}

TEST(Vector, ResetMakesZerosOfTheNewSize) {
    TVector vector(2);
    vector[1] = 5;
    vector.Reset(3);
    EXPECT_EQ(vector.Size, 3u);
    EXPECT_EQ(vector.Elements, std::vector<double>(3, 0.0));
}
