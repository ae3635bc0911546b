#include <gtest/gtest.h>

#include <limits>
#include <opencv2/core.hpp>

#include "Zyr3DInner.h"
#include "support/TransformValues.h"

namespace {

ZyrMatrix3 diagonal(double a, double b, double c) {
    return ZyrMatrix3(a, 0, 0, 0, b, 0, 0, 0, c);
}

/// Row-orthonormal but for one shear below the diagonal.
ZyrMatrix3 sheared(double shear) {
    return ZyrMatrix3(1, 0, 0, shear, 1, 0, 0, 0, 1);
}

bool isRotationMatrix(cv::Mat m) {
    return Zyr3DInner::isRotationMatrix(m);
}

cv::Mat diagonalMat(double a, double b, double c, int type = CV_64F) {
    cv::Mat m = cv::Mat::zeros(3, 3, CV_64F);
    m.at<double>(0, 0) = a;
    m.at<double>(1, 1) = b;
    m.at<double>(2, 2) = c;
    m.convertTo(m, type);
    return m;
}

}  // namespace

TEST(IsValidTransformMatrix, IdentityIsValid) {
    EXPECT_TRUE(IsValidTransformMatrix(diagonal(1, 1, 1)));
}

TEST(IsValidTransformMatrix, RotationsAboutPrincipalAxesAreValid) {
    const double c = std::cos(test::kPi / 6), s = std::sin(test::kPi / 6);
    EXPECT_TRUE(IsValidTransformMatrix(ZyrMatrix3(1, 0, 0, 0, c, -s, 0, s, c)));
    EXPECT_TRUE(IsValidTransformMatrix(ZyrMatrix3(c, 0, s, 0, 1, 0, -s, 0, c)));
    EXPECT_TRUE(IsValidTransformMatrix(ZyrMatrix3(c, -s, 0, s, c, 0, 0, 0, 1)));
}

TEST(IsValidTransformMatrix, AReflectionPasses) {
    EXPECT_TRUE(IsValidTransformMatrix(diagonal(1, 1, -1)));
    EXPECT_TRUE(IsValidTransformMatrix(diagonal(-1, -1, -1)));
}

TEST(IsValidTransformMatrix, ScalesWithinOneInAHundredThousandPass) {
    EXPECT_FALSE(IsValidTransformMatrix(diagonal(1, 1, 1.00001)));
    EXPECT_TRUE(IsValidTransformMatrix(diagonal(1, 1, 1.000001)));
    EXPECT_TRUE(IsValidTransformMatrix(diagonal(1, 1, 0.999999)));
    EXPECT_FALSE(IsValidTransformMatrix(diagonal(2, 1, 1)));
}

// The first shear deviates by the double below 1e-5, the second by 1e-5 itself.
TEST(IsValidTransformMatrix, ADeviationOfExactlyTheToleranceIsRefused) {
    EXPECT_TRUE(IsValidTransformMatrix(sheared(0x1.da88051e8ec56p-18)));
    EXPECT_FALSE(IsValidTransformMatrix(sheared(0x1.da88051e8ec57p-18)));
}

// The deviations of m * mT and mT * m differ in the last bits only: here on either side of 1e-5.
TEST(IsValidTransformMatrix, MultipliesTheTransposeFromTheRight) {
    const ZyrMatrix3 rowsPass(0.9999990590800827, 1.1246571757548355e-06, 2.983957225244712e-06,
                              -2.700410273697425e-06, 0.9999974891470593, 2.3809634707996745e-06,
                              -7.95769922686149e-07, 1.2066785840840012e-06, 1.0000027819269437);
    const ZyrMatrix3 columnsPass(1.000002746358767, 1.9420476059618212e-07, 1.9098308424409406e-06,
                                 9.752377556164298e-07, 0.9999970681267004, -2.747621700044489e-06,
                                 1.9647284195703406e-06, 1.6044581386715284e-06,
                                 0.9999998646547544);
    EXPECT_TRUE(IsValidTransformMatrix(rowsPass));
    EXPECT_FALSE(IsValidTransformMatrix(rowsPass.Transposed()));
    EXPECT_FALSE(IsValidTransformMatrix(columnsPass));
    EXPECT_TRUE(IsValidTransformMatrix(columnsPass.Transposed()));
}

TEST(IsValidTransformMatrix, NaNAndInfinityAreRefused) {
    EXPECT_FALSE(IsValidTransformMatrix(diagonal(1, 1, std::nan(""))));
    EXPECT_FALSE(IsValidTransformMatrix(diagonal(1, 1, std::numeric_limits<double>::infinity())));
}

TEST(IsValidTransformMatrix, DefaultMatricesAreRefused) {
    EXPECT_FALSE(IsValidTransformMatrix(ZyrMatrix3()));
    EXPECT_FALSE(IsValidTransformMatrix(ZyrMatrix4()));
}

TEST(IsValidTransformMatrix, TranslationAndLastRowAreNotExamined) {
    EXPECT_TRUE(
        IsValidTransformMatrix(ZyrMatrix4(1, 0, 0, 1000, 0, 1, 0, -5, 0, 0, 1, 3, 0, 0, 0, 1)));
    EXPECT_TRUE(
        IsValidTransformMatrix(ZyrMatrix4(1, 0, 0, 1000, 0, 1, 0, -5, 0, 0, 1, 3, 1, 2, 3, 4)));
    const double nan = std::nan("");
    EXPECT_TRUE(IsValidTransformMatrix(
        ZyrMatrix4(1, 0, 0, nan, 0, 1, 0, nan, 0, 0, 1, nan, nan, nan, nan, nan)));
}

TEST(IsValidTransformMatrix, EveryElementOfTheUpperLeftBlockIsExamined) {
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c) {
            ZyrMatrix4 m(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1);
            m.Replace(r, c, 0.5);
            EXPECT_FALSE(IsValidTransformMatrix(m)) << r << c;
        }
}

TEST(IsValidTransformMatrix, AReflectionPassesInFourRowsToo) {
    EXPECT_TRUE(
        IsValidTransformMatrix(ZyrMatrix4(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1)));
}

TEST(IsRotationMatrix, ScaledAndMirroredOnesPass) {
    EXPECT_TRUE(isRotationMatrix(diagonalMat(2, 2, 2)));
    EXPECT_TRUE(isRotationMatrix(diagonalMat(1, 1, -1)));
    EXPECT_TRUE(isRotationMatrix(cv::Mat::zeros(3, 3, CV_64F)));
    EXPECT_TRUE(isRotationMatrix(diagonalMat(1e15, 1, 1)));
}

// The square of the second is the bound itself.
TEST(IsRotationMatrix, ADeviationOfExactlyTheInvalidValueIsRefused) {
    EXPECT_TRUE(isRotationMatrix(diagonalMat(0x1.fffffeffffffbp+63, 1, 1)));
    EXPECT_FALSE(isRotationMatrix(diagonalMat(0x1.fffffeffffffcp+63, 1, 1)));
}

TEST(IsRotationMatrix, NaNAndOverflowAreRefused) {
    EXPECT_FALSE(isRotationMatrix(diagonalMat(1, std::nan(""), 1)));
    EXPECT_FALSE(isRotationMatrix(diagonalMat(1, 1e200, 1)));
    EXPECT_FALSE(isRotationMatrix(diagonalMat(1, std::numeric_limits<double>::infinity(), 1)));
}

TEST(IsRotationMatrix, TakesSinglePrecision) {
    EXPECT_TRUE(isRotationMatrix(diagonalMat(2, 2, 2, CV_32F)));
    EXPECT_FALSE(isRotationMatrix(diagonalMat(1, 1e20, 1, CV_32F)));
    EXPECT_FALSE(isRotationMatrix(diagonalMat(1, std::nan(""), 1, CV_32F)));
}

TEST(IsRotationMatrix, AnotherSizePassesOpenCVsExceptionOn) {
    EXPECT_THROW(isRotationMatrix(cv::Mat::eye(2, 2, CV_64F)), cv::Exception);
    EXPECT_THROW(isRotationMatrix(cv::Mat::eye(4, 4, CV_64F)), cv::Exception);
    EXPECT_THROW(isRotationMatrix(cv::Mat::eye(3, 2, CV_64F)), cv::Exception);
}

// Two rows of three make a 3x3 product only with the transpose on the left.
TEST(IsRotationMatrix, MultipliesTheTransposeFromTheLeft) {
    EXPECT_TRUE(isRotationMatrix(cv::Mat::eye(2, 3, CV_64F)));
}

TEST(IsRotationMatrix, LeavesTheMatrixAlone) {
    cv::Mat m = diagonalMat(2, 3, 4);
    const cv::Mat before = m.clone();
    Zyr3DInner::isRotationMatrix(m);
    EXPECT_EQ(cv::norm(m, before), 0.0);
}
