#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <Eigen/Geometry>

#include "support/TransformValues.h"

/// Laws over generated rotations, beside Eigen where ours is the textbook's behaviour.
namespace {

double anyNumber() {
    return *rc::gen::inRange(-10000, 10001) / 1000.0;
}

Eigen::Vector3d anyAxis() {
    Eigen::Vector3d axis(anyNumber(), anyNumber(), anyNumber());
    RC_PRE(axis.norm() > 0.1);
    return axis.normalized();
}

Eigen::Quaterniond anyRotation() {
    return Eigen::Quaterniond(Eigen::AngleAxisd(anyNumber(), anyAxis()));
}

ZyrQuaternion ours(const Eigen::Quaterniond& q) {
    return test::quaternion(q.w(), q.x(), q.y(), q.z());
}

ZyrVector3d ours(const Eigen::Vector3d& v) {
    return ZyrVector3d(v.x(), v.y(), v.z());
}

ZyrMatrix3 ours(const Eigen::Matrix3d& m) {
    return ZyrMatrix3(m(0, 0), m(0, 1), m(0, 2), m(1, 0), m(1, 1), m(1, 2), m(2, 0), m(2, 1),
                      m(2, 2));
}

std::vector<double> list(const Eigen::Vector3d& v) {
    return {v.x(), v.y(), v.z()};
}

std::vector<double> list(const Eigen::Quaterniond& q) {
    return {q.w(), q.x(), q.y(), q.z()};
}

}  // namespace

RC_GTEST_PROP(QuaternionLaws, ProductAgreesWithEigen, ()) {
    const Eigen::Quaterniond a = anyRotation(), b = anyRotation();
    ZyrQuaternion p = ours(b);
    test::expectNear(test::values(ours(a) * p), list(a * b), 1e-14);
}

RC_GTEST_PROP(QuaternionLaws, TransformedDirectionsAgreeWithEigen, ()) {
    const Eigen::Quaterniond q = anyRotation();
    const Eigen::Vector3d d = anyAxis();
    ZyrVector3d direction = ours(d), out;
    ours(q).TransformDirection(direction, &out);
    test::expectNear(test::values(out), list(q * d), 1e-13);
}

RC_GTEST_PROP(QuaternionLaws, AProductTransformsAsItsFactorsInTurn, ()) {
    ZyrQuaternion q = ours(anyRotation()), p = ours(anyRotation());
    ZyrVector3d d = ours(anyAxis()), once, twice;
    (q * p).TransformDirection(d, &once);
    p.TransformDirection(d, &twice);
    q.TransformDirection(twice, &twice);
    test::expectNear(test::values(once), test::values(twice), 1e-13);
}

RC_GTEST_PROP(QuaternionLaws, AProductWithTheInverseIsTheIdentityToSinglePrecision, ()) {
    ZyrQuaternion q = ours(anyRotation()) * (*rc::gen::inRange(1, 100) / 10.0);
    ZyrQuaternion inverse = q.Inverse();
    test::expectNear(test::values(q * inverse), {1, 0, 0, 0}, 1e-6);
    test::expectNear(test::values(q / q), {1, 0, 0, 0}, 1e-6);
}

RC_GTEST_PROP(QuaternionLaws, AxisAndAngleComeBackFromZeroToAWholeTurn, ()) {
    ZyrVector3d axis = ours(anyAxis()), axisBack;
    const double angle = *rc::gen::inRange(1, 3600) / 10.0;
    double angleBack = 0;
    ZyrQuaternion q;
    q.GenQuaternion(axis, angle);
    q.GetAxisAngle(&axisBack, &angleBack);
    test::expectNear(test::values(axisBack), test::values(axis), 1e-11);
    RC_ASSERT(std::fabs(angleBack - angle) < 1e-11);
}

RC_GTEST_PROP(QuaternionLaws, AQuaternionFromAMatrixAgreesWithEigenUpToSign, ()) {
    const Eigen::Quaterniond expected = anyRotation();
    ZyrQuaternion q;
    q.GenQuaternion(ours(expected.toRotationMatrix()));
    ZyrQuaternion textbook = ours(expected);
    const double sign = q.Dot(textbook) < 0 ? -1.0 : 1.0;
    test::expectNear(test::values(q * sign), list(expected), 1e-12);
}

RC_GTEST_PROP(QuaternionLaws, AMatrixComesBackForRotationsAboutY, ()) {
    const double half = *rc::gen::inRange(-1790, 1790) / 10.0 * test::kPi / 360;
    ZyrQuaternion q = test::quaternion(std::cos(half), 0, std::sin(half), 0), back;
    ZyrMatrix3 m;
    q.GetTransMatrix(&m);
    back.GenQuaternion(m);
    const double sign = back.Dot(q) < 0 ? -1.0 : 1.0;
    test::expectNear(test::values(back * sign), test::values(q), 1e-6);
}

RC_GTEST_PROP(QuaternionLaws, SlerpAgreesWithEigenToSinglePrecision, ()) {
    const Eigen::Quaterniond a = anyRotation(), b = anyRotation();
    RC_PRE(std::fabs(a.dot(b)) < 0.999 && std::fabs(a.dot(b)) > 1e-6);
    const double t = *rc::gen::inRange(0, 101) / 100.0;
    ZyrQuaternion p = ours(b), out;
    ours(a).SLERP(p, t, &out);
    test::expectNear(test::values(out), list(a.slerp(t, b)), 1e-5);
}

TEST(QuaternionLaws, AMatrixDoesNotComeBackForARotationAboutX) {
    ZyrQuaternion q = test::aboutX(60), back = test::quaternion(9, 9, 9, 9);
    ZyrMatrix3 m;
    q.GetTransMatrix(&m);
    back.GenQuaternion(m);
    EXPECT_EQ(test::values(back), (std::vector<double>{9, 9, 9, 9}));
}

TEST(QuaternionLaws, ANegativeAngleComesBackAsItsComplement) {
    ZyrVector3d axis(0, 1, 0), axisBack;
    double angle = 0;
    ZyrQuaternion q;
    q.GenQuaternion(axis, -30);
    q.GetAxisAngle(&axisBack, &angle);
    EXPECT_NEAR(angle, 330, 1e-12);
}

// 60 degrees: the shortened vector turns by 2 * atan(sin 60 * tan 30), which is 53.1 degrees.
TEST(QuaternionLaws, AQuaternionBetweenDirectionsFallsShortOfRightAngles) {
    ZyrVector3d from(1, 0, 0), to(0.5, std::sqrt(0.75), 0), axis;
    double angle = 0;
    ZyrQuaternion q;
    q.GenQuaternion(from, to);
    q.GetAxisAngle(&axis, &angle);
    EXPECT_NEAR(angle, 2 * std::atan(0.5) * 180 / test::kPi, 1e-12);
}
