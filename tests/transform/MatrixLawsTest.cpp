#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <Eigen/Dense>

#include "support/TransformValues.h"

/// Laws over generated matrices. With small integers every sum is exact, so that laws of algebra
/// hold to the bit.
namespace {

template <class Matrix>
Matrix anyIntegers(int bound) {
    typename test::Elements<Matrix>::Array elements;
    for (double& e : elements) e = *rc::gen::inRange(-bound, bound + 1);
    return test::matrix<Matrix>(elements);
}

Eigen::Matrix4d anyRigid() {
    const auto number = [] { return *rc::gen::inRange(-1000, 1001) / 100.0; };
    Eigen::Vector3d axis(number(), number(), number());
    if (axis.norm() == 0) axis = Eigen::Vector3d::UnitX();
    Eigen::Matrix4d m = Eigen::Matrix4d::Identity();
    m.topLeftCorner<3, 3>() = Eigen::AngleAxisd(number(), axis.normalized()).matrix();
    m.topRightCorner<3, 1>() = Eigen::Vector3d(number(), number(), number());
    return m;
}

ZyrMatrix4 matrix4(const Eigen::Matrix4d& m) {
    ZyrMatrix4 result;
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) result.Replace(r, c, m(r, c));
    return result;
}

std::vector<double> rowByRow(const Eigen::Matrix4d& m) {
    const Eigen::Matrix4d transposed = m.transpose();
    return std::vector<double>(transposed.data(), transposed.data() + 16);
}

}  // namespace

template <class Matrix>
class MatrixLaws : public testing::Test {};
using Matrices = testing::Types<ZyrMatrix3, ZyrMatrix4>;
TYPED_TEST_SUITE(MatrixLaws, Matrices);

TYPED_TEST(MatrixLaws, ProductOfIntegersIsAssociativeAndDistributive) {
    EXPECT_TRUE(rc::check([] {
        auto a = anyIntegers<TypeParam>(999), b = anyIntegers<TypeParam>(999);
        auto c = anyIntegers<TypeParam>(999);
        RC_ASSERT(test::values((a * b) * c) == test::values(a * (b * c)));
        RC_ASSERT(test::values(a * (b + c)) == test::values(a * b + a * c));
    }));
}

TYPED_TEST(MatrixLaws, TransposingAProductReversesIt) {
    EXPECT_TRUE(rc::check([] {
        auto a = anyIntegers<TypeParam>(1 << 30), b = anyIntegers<TypeParam>(1 << 30);
        RC_ASSERT(test::values((a * b).Transposed()) ==
                  test::values(b.Transposed() * a.Transposed()));
        RC_ASSERT(test::values(a.Transposed().Transposed()) == test::values(a));
    }));
}

TYPED_TEST(MatrixLaws, DeterminantOfAProductIsTheProductOfTheDeterminants) {
    EXPECT_TRUE(rc::check([] {
        auto a = anyIntegers<TypeParam>(20), b = anyIntegers<TypeParam>(20);
        const double expected = a.Determinant() * b.Determinant();
        RC_ASSERT(std::fabs((a * b).Determinant() - expected) <= 1e-6 * (1 + std::fabs(expected)));
    }));
}

TEST(ZyrMatrix3, ProductOfRoundedNumbersIsNotAssociative) {
    ZyrMatrix3 a(0.1, 0, 0, 0, 1, 0, 0, 0, 1), b(0.7, 0, 0, 0, 1, 0, 0, 0, 1);
    const ZyrMatrix3 c(0.3, 0, 0, 0, 1, 0, 0, 0, 1);
    ASSERT_NE((0.1 * 0.7) * 0.3, 0.1 * (0.7 * 0.3));
    EXPECT_FALSE((a * b) * c == a * (b * c));
}

RC_GTEST_PROP(ZyrMatrix4, ProductOfRigidTransformsAgreesWithEigen, ()) {
    const Eigen::Matrix4d a = anyRigid(), b = anyRigid();
    test::expectNear(test::values(matrix4(a) * matrix4(b)), rowByRow(a * b), 1e-12);
}

RC_GTEST_PROP(ZyrMatrix4, InverseOfARigidTransformAgreesWithEigenAndUndoesIt, ()) {
    const Eigen::Matrix4d a = anyRigid();
    ZyrMatrix4 m = matrix4(a);
    test::expectNear(test::values(m.Inverse()), rowByRow(a.inverse()), 1e-11);
    test::expectNear(test::values(m * m.Inverse()), rowByRow(Eigen::Matrix4d::Identity()), 1e-11);
    RC_ASSERT(std::fabs(m.Determinant() - 1.0) < 1e-12);
}
