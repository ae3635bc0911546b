#include <gtest/gtest.h>

#include <climits>
#include <limits>
#include <type_traits>

#include "support/TransformValues.h"

/// Laws that both matrices keep. Expected elements are spelt out from the flat array by hand.
template <class Matrix>
class SquareMatrix : public testing::Test {
public:
    static constexpr int kOrder = test::Elements<Matrix>::order;
    static constexpr std::size_t kCount = kOrder * kOrder;
    using Array = typename test::Elements<Matrix>::Array;

    static Array counting() {
        Array a;
        for (std::size_t i = 0; i < kCount; ++i) a[i] = static_cast<double>(i + 1);
        return a;
    }

    static Array filled(double value) {
        Array a;
        a.fill(value);
        return a;
    }

    static Matrix identity() {
        Array a = filled(0.0);
        for (std::size_t i = 0; i < kCount; i += kOrder + 1) a[i] = 1.0;
        return test::matrix<Matrix>(a);
    }

    static std::vector<double> list(const Array& a) {
        return std::vector<double>(a.begin(), a.end());
    }

    static Matrix make(const Array& a) { return test::matrix<Matrix>(a); }
};

using Matrices = testing::Types<ZyrMatrix3, ZyrMatrix4>;
TYPED_TEST_SUITE(SquareMatrix, Matrices);

TYPED_TEST(SquareMatrix, ElementsAreGivenRowByRow) {
    const TypeParam m = this->make(this->counting());
    const int last = this->kOrder - 1;
    EXPECT_EQ(m.Value(0, 0), 1);
    EXPECT_EQ(m.Value(0, last), this->kOrder);
    EXPECT_EQ(m.Value(last, 0), this->kOrder * last + 1);
    EXPECT_EQ(test::values(m), this->list(this->counting()));
}

TYPED_TEST(SquareMatrix, IsAPlainValueOfItsDoublesAlone) {
    EXPECT_TRUE(std::is_trivially_copyable_v<TypeParam>);
    EXPECT_EQ(sizeof(TypeParam), this->kCount * sizeof(double));
}

TYPED_TEST(SquareMatrix, HasConstOnlyWhereListed) {
    using M = TypeParam;
    static_assert(test::listed<double (M::*)(int, int) const>(&M::Value));
    static_assert(test::listed<void (M::*)(int, int, double)>(&M::Replace));
    static_assert(test::listed<const double* (M::*)() const>(&M::Data));
    static_assert(test::listed<double (M::*)() const>(&M::Determinant));
    static_assert(test::listed<M (M::*)() const>(&M::Transposed));
    static_assert(test::listed<M (M::*)() const>(&M::Inverse));
    static_assert(test::listed<M (M::*)(const M&)>(&M::operator+));
    static_assert(test::listed<M (M::*)(const M&)>(&M::operator-));
    static_assert(test::listed<M (M::*)(const M&)>(&M::operator*));
    static_assert(test::listed<M (M::*)(double)>(&M::operator+));
    static_assert(test::listed<M (M::*)(double)>(&M::operator-));
    static_assert(test::listed<M (M::*)(double)>(&M::operator*));
    static_assert(test::listed<M (M::*)(double)>(&M::operator/));
    static_assert(test::listed<bool (M::*)(const M&)>(&M::operator==));
    EXPECT_TRUE(test::listed<double (M::*)() const>(&M::Norm));
}

TYPED_TEST(SquareMatrix, ValueOutsideIsTheInvalidValue) {
    const TypeParam m = this->make(this->counting());
    for (const int outside : {this->kOrder, -1, INT_MAX, INT_MIN}) {
        EXPECT_EQ(m.Value(outside, 0), test::kInvalid);
        EXPECT_EQ(m.Value(0, outside), test::kInvalid);
        EXPECT_EQ(m.Value(outside, outside), test::kInvalid);
    }
}

TYPED_TEST(SquareMatrix, ReplaceWritesOneElement) {
    TypeParam m = this->make(this->counting());
    m.Replace(1, 2, -7.5);
    auto expected = this->counting();
    expected[this->kOrder + 2] = -7.5;
    EXPECT_EQ(test::values(m), this->list(expected));
}

TYPED_TEST(SquareMatrix, ReplaceReachesTheLastElement) {
    TypeParam m = this->make(this->counting());
    m.Replace(this->kOrder - 1, this->kOrder - 1, -7.5);
    auto expected = this->counting();
    expected.back() = -7.5;
    EXPECT_EQ(test::values(m), this->list(expected));
}

TYPED_TEST(SquareMatrix, ReplaceOutsideDoesNothing) {
    TypeParam m = this->make(this->counting());
    for (const int outside : {this->kOrder, -1, INT_MAX, INT_MIN}) {
        m.Replace(outside, 0, 99);
        m.Replace(0, outside, 99);
    }
    EXPECT_EQ(test::values(m), this->list(this->counting()));
}

TYPED_TEST(SquareMatrix, ACopyIsUnaffectedByItsSource) {
    TypeParam source = this->make(this->counting());
    const TypeParam copy(source);
    source.Replace(0, 0, 99);
    EXPECT_EQ(test::values(copy), this->list(this->counting()));
    EXPECT_NE(copy.Data(), source.Data());
}

TYPED_TEST(SquareMatrix, AssignmentCopiesIntoTheTargetsOwnElements) {
    TypeParam source = this->make(this->counting());
    TypeParam target;
    const double* own = target.Data();
    EXPECT_EQ(&(target = source), &target);
    source.Replace(0, 0, 99);
    EXPECT_EQ(target.Data(), own);
    EXPECT_EQ(test::values(target), this->list(this->counting()));
}

TYPED_TEST(SquareMatrix, NormIsTheRootOfTheSummedSquares) {
    EXPECT_EQ(this->make(this->filled(2.0)).Norm(), 2.0 * this->kOrder);
    EXPECT_EQ(this->make(this->filled(-2.0)).Norm(), 2.0 * this->kOrder);
}

// Beside 1e16 each further 1 is lost; summed in another order, before the 1e16, they would count.
TYPED_TEST(SquareMatrix, NormSumsRowByRowFromTheLeft) {
    auto elements = this->filled(1.0);
    elements[0] = 0.0;
    elements[1] = 1e8;
    EXPECT_EQ(this->make(elements).Norm(), 1e8);
}

TYPED_TEST(SquareMatrix, DeterminantOfATriangleIsTheProductOfItsDiagonal) {
    TypeParam m = this->identity();
    m.Replace(0, 0, 2.0);
    m.Replace(1, 1, -3.0);
    m.Replace(0, 2, 5.0);
    EXPECT_EQ(m.Determinant(), -6.0);
}

TYPED_TEST(SquareMatrix, TransposedSwapsRowsAndColumns) {
    const TypeParam m = this->make(this->counting());
    const TypeParam t = m.Transposed();
    for (int r = 0; r < this->kOrder; ++r)
        for (int c = 0; c < this->kOrder; ++c) EXPECT_EQ(t.Value(r, c), m.Value(c, r));
}

TYPED_TEST(SquareMatrix, InverseUndoesShiftsAndPowersOfTwo) {
    TypeParam m = this->identity();
    m.Replace(0, 0, 2.0);
    m.Replace(0, 2, 6.0);
    const TypeParam inverse = m.Inverse();
    TypeParam expected = this->identity();
    expected.Replace(0, 0, 0.5);
    expected.Replace(0, 2, -3.0);
    EXPECT_TRUE(expected == inverse);
}

TYPED_TEST(SquareMatrix, ASingularMatrixInvertsToZeros) {
    EXPECT_EQ(test::values(this->make(this->counting()).Inverse()), this->list(this->filled(0.0)));
    EXPECT_EQ(test::values(this->make(this->filled(0.0)).Inverse()), this->list(this->filled(0.0)));
}

TYPED_TEST(SquareMatrix, ProductIsThisTimesTheArgument) {
    TypeParam scaled = this->identity();
    scaled.Replace(0, 0, 10.0);
    TypeParam m = this->make(this->counting());
    auto firstRowScaled = this->counting();
    for (int c = 0; c < this->kOrder; ++c) firstRowScaled[static_cast<std::size_t>(c)] *= 10.0;
    EXPECT_EQ(test::values(scaled * m), this->list(firstRowScaled));
    auto firstColumnScaled = this->counting();
    for (std::size_t i = 0; i < this->kCount; i += this->kOrder) firstColumnScaled[i] *= 10.0;
    EXPECT_EQ(test::values(m * scaled), this->list(firstColumnScaled));
}

TYPED_TEST(SquareMatrix, ProductWithTheIdentityChangesNothing) {
    TypeParam m = this->make(this->counting());
    EXPECT_EQ(test::values(m * this->identity()), this->list(this->counting()));
}

TYPED_TEST(SquareMatrix, SumAndDifferenceGoElementByElement) {
    TypeParam m = this->make(this->counting());
    const TypeParam ones = this->make(this->filled(1.0));
    auto sum = this->counting(), difference = this->counting();
    for (double& e : sum) e += 1.0;
    for (double& e : difference) e -= 1.0;
    EXPECT_EQ(test::values(m + ones), this->list(sum));
    EXPECT_EQ(test::values(m - ones), this->list(difference));
}

TYPED_TEST(SquareMatrix, AFactorScalesEveryElement) {
    TypeParam m = this->make(this->counting());
    auto expected = this->counting();
    for (double& e : expected) e *= -2.5;
    EXPECT_EQ(test::values(m * -2.5), this->list(expected));
}

TYPED_TEST(SquareMatrix, DivisionScalesByTheReciprocal) {
    TypeParam m = this->make(this->filled(49.0));
    EXPECT_EQ(test::values(m / 49.0), this->list(this->filled(0.9999999999999999)));
}

TYPED_TEST(SquareMatrix, DivisionByZeroGivesInfinityAndNaN) {
    TypeParam m = this->identity();
    const TypeParam quotient = m / 0.0;
    EXPECT_EQ(quotient.Value(0, 0), std::numeric_limits<double>::infinity());
    EXPECT_TRUE(std::isnan(quotient.Value(0, 1)));
}

TYPED_TEST(SquareMatrix, ASummandIsAddedToEveryElement) {
    TypeParam m = this->identity();
    const TypeParam sum = m + 1.0, difference = m - 1.0;
    for (int r = 0; r < this->kOrder; ++r)
        for (int c = 0; c < this->kOrder; ++c) {
            EXPECT_EQ(sum.Value(r, c), r == c ? 2.0 : 1.0);
            EXPECT_EQ(difference.Value(r, c), r == c ? 0.0 : -1.0);
        }
}

TYPED_TEST(SquareMatrix, OperatorsLeaveTheirOperandsUnchanged) {
    TypeParam a = this->make(this->counting());
    const TypeParam b = this->make(this->filled(3.0));
    static_cast<void>(a * b), static_cast<void>(a + b), static_cast<void>(a - b);
    static_cast<void>(a * 2.0), static_cast<void>(a / 2.0);
    static_cast<void>(a + 2.0), static_cast<void>(a - 2.0);
    static_cast<void>(a.Inverse()), static_cast<void>(a.Transposed());
    EXPECT_EQ(test::values(a), this->list(this->counting()));
    EXPECT_EQ(test::values(b), this->list(this->filled(3.0)));
}

TYPED_TEST(SquareMatrix, AMatrixMayBeBothOperands) {
    TypeParam m = this->make(this->filled(1.0));
    m = m * m;
    EXPECT_EQ(test::values(m), this->list(this->filled(this->kOrder)));
}

TYPED_TEST(SquareMatrix, EqualityHasNoTolerance) {
    for (int r = 0; r < this->kOrder; ++r)
        for (int c = 0; c < this->kOrder; ++c) {
            TypeParam m, other;
            m = other = this->make(this->filled(0.0));
            EXPECT_TRUE(m == other);
            other.Replace(r, c, 1e-300);
            EXPECT_FALSE(m == other);
        }
}

TYPED_TEST(SquareMatrix, NaNIsUnequalEvenToItsCopy) {
    TypeParam m = this->identity();
    m.Replace(1, 1, std::nan(""));
    const TypeParam copy(m);
    EXPECT_FALSE(m == copy);
    EXPECT_FALSE(m == m);
}

TYPED_TEST(SquareMatrix, PositiveAndNegativeZeroAreEqual) {
    TypeParam m = this->make(this->filled(0.0));
    EXPECT_TRUE(m == this->make(this->filled(-0.0)));
}
