#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <Eigen/Geometry>

#include "support/TransformValues.h"

/// Laws over generated motions, beside Eigen. Lengths are single precision, and so the tolerances.
namespace {

double anyNumber() {
    return *rc::gen::inRange(-10000, 10001) / 1000.0;
}

Eigen::Vector3d anyVector() {
    return Eigen::Vector3d(anyNumber(), anyNumber(), anyNumber());
}

Eigen::Isometry3d anyMotion() {
    Eigen::Vector3d axis = anyVector();
    RC_PRE(axis.norm() > 0.1);
    return Eigen::Translation3d(anyVector()) * Eigen::AngleAxisd(anyNumber(), axis.normalized());
}

ZyrVector3d ours(const Eigen::Vector3d& v) {
    return ZyrVector3d(v.x(), v.y(), v.z());
}

ZyrDualQuaternion ours(const Eigen::Isometry3d& m) {
    const Eigen::Quaterniond r(m.rotation());
    ZyrQuaternion rotation = test::quaternion(r.w(), r.x(), r.y(), r.z());
    ZyrVector3d translation = ours(m.translation());
    ZyrDualQuaternion q;
    q.GenDualQuaternion(rotation, translation);
    return q;
}

ZyrMatrix4 matrix(const Eigen::Isometry3d& m) {
    ZyrMatrix4 result;
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) result.Replace(r, c, m(r, c));
    return result;
}

std::vector<double> list(const Eigen::Vector3d& v) {
    return {v.x(), v.y(), v.z()};
}

std::vector<double> moved(ZyrDualQuaternion q, ZyrVector3d p) {
    q.TransformPoint(p, &p);
    return test::values(p);
}

}  // namespace

RC_GTEST_PROP(DualQuaternionLaws, TransformedPointsAgreeWithEigen, ()) {
    const Eigen::Isometry3d m = anyMotion();
    const Eigen::Vector3d p = anyVector();
    test::expectNear(moved(ours(m), ours(p)), list(m * p), 1e-5);
}

RC_GTEST_PROP(DualQuaternionLaws, PointsMoveTheSameWayByAMatrixRead, ()) {
    const Eigen::Isometry3d m = anyMotion();
    const Eigen::Vector3d p = anyVector();
    ZyrDualQuaternion q;
    q.GenDualQuaternion(matrix(m));
    test::expectNear(moved(q, ours(p)), list(m * p), 1e-5);
}

RC_GTEST_PROP(DualQuaternionLaws, AProductMovesAsItsFactorsInTurn, ()) {
    const Eigen::Isometry3d a = anyMotion(), b = anyMotion();
    const Eigen::Vector3d p = anyVector();
    ZyrDualQuaternion second = ours(b);
    test::expectNear(moved(ours(a) * second, ours(p)), list(a * (b * p)), 1e-5);
}

RC_GTEST_PROP(DualQuaternionLaws, RotationAndTranslationComeBack, ()) {
    const Eigen::Isometry3d m = anyMotion();
    ZyrQuaternion rotation;
    ZyrVector3d translation;
    ZyrDualQuaternion q = ours(m);
    q.GetRotateTrans(&rotation, &translation);
    test::expectNear(test::values(translation), list(m.translation()), 1e-5);
    test::expectNear(test::values(rotation), test::values(q.real), 1e-6);
}

RC_GTEST_PROP(DualQuaternionLaws, AScrewComesBackBetweenZeroAndAWholeTurn, ()) {
    const Eigen::Vector3d axis = anyVector(), through = anyVector();
    RC_PRE(axis.norm() > 0.1);
    ZyrVector3d a = ours(axis.normalized().eval());
    ZyrVector3d moment = ours(through.cross(axis.normalized()).eval());
    const double angle = *rc::gen::inRange(100, 3500) / 10.0, distance = anyNumber();
    ZyrDualQuaternion q;
    q.GenDualQuaternion(a, angle, moment, distance);

    ZyrVector3d axisBack, momentBack;
    double angleBack = 0, distanceBack = 0;
    q.GetScrew(&axisBack, &angleBack, &momentBack, &distanceBack);
    test::expectNear(test::values(axisBack), test::values(a), 1e-12);
    test::expectNear(test::values(momentBack), test::values(moment), 1e-4);
    test::expectNear({angleBack, distanceBack}, {angle, distance}, 1e-5);
}

RC_GTEST_PROP(DualQuaternionLaws, AScrewMovesPointsAboutItsLine, ()) {
    const Eigen::Vector3d axis = anyVector(), through = anyVector(), p = anyVector();
    RC_PRE(axis.norm() > 0.1);
    const Eigen::Vector3d unit = axis.normalized();
    const double angle = *rc::gen::inRange(0, 3600) / 10.0, distance = anyNumber();
    ZyrVector3d a = ours(unit), moment = ours(through.cross(unit).eval());
    ZyrDualQuaternion q;
    q.GenDualQuaternion(a, angle, moment, distance);
    const Eigen::AngleAxisd turn(angle * test::kPi / 180, unit);
    test::expectNear(moved(q, ours(p)), list(turn * (p - through) + through + unit * distance),
                     1e-5);
}

TEST(DualQuaternionLaws, ANegativeScrewDoesNotComeBack) {
    ZyrVector3d axis(0, 0, 1), moment(1, 0, 0), axisBack, momentBack;
    double angle = 0, distance = 0;
    ZyrDualQuaternion q;
    q.GenDualQuaternion(axis, -90, moment, 2);
    q.GetScrew(&axisBack, &angle, &momentBack, &distance);
    EXPECT_NEAR(angle, 270, 1e-12);
    EXPECT_NEAR(distance, -2, 1e-5);
}

TEST(DualQuaternionLaws, AMatrixComesBackAboutYButNotAboutX) {
    const auto back = [](ZyrMatrix4 m) {
        ZyrDualQuaternion q;
        q.GenDualQuaternion(m);
        q.GetTransformMatrix(&m);
        return test::values(m);
    };
    const ZyrMatrix4 aboutY(0, 0, 1, 4, 0, 1, 0, 6, -1, 0, 0, 8, 0, 0, 0, 1);
    test::expectNear(back(aboutY), test::values(aboutY), 1e-5);
    const ZyrMatrix4 aboutX(1, 0, 0, 4, 0, 0, -1, 6, 0, 1, 0, 8, 0, 0, 0, 1);
    test::expectNear(back(aboutX), {1, 0, 0, 4, 0, 0, 0, 6, 0, 0, 1, 8, 0, 0, 0, 1}, 1e-5);
}
