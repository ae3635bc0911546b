#include <Zyr3DData.h>

#include <cstdio>

static void print(const char* what, const ZyrVector3d& v) {
    std::printf("%s: %.3f %.3f %.3f\n", what, v.x, v.y, v.z);
}

int main() {
    ZyrVector3d axis(0, 0, 1);
    ZyrQuaternion quarter;
    quarter.GenQuaternion(axis, 90);
    ZyrVector3d direction(1, 0, 0);
    ZyrVector3d turned;
    quarter.TransformDirection(direction, &turned);
    print("x axis turned", turned);

    ZyrVector3d shift(10, 0, 5);
    ZyrDualQuaternion motion;
    motion.GenDualQuaternion(quarter, shift);
    ZyrVector3d point(1, 2, 3);
    ZyrVector3d moved;
    motion.TransformPoint(point, &moved);
    print("point moved", moved);

    ZyrDualQuaternion twice = motion * motion;
    twice.TransformPoint(point, &moved);
    print("moved twice", moved);

    ZyrQuaternion little;
    little.GenQuaternion(axis, 10);
    ZyrQuaternion half;
    little.SLERP(quarter, 0.5, &half);
    double angle = 0;
    half.GetAxisAngle(&axis, &angle);
    std::printf("half way: %.1f degrees\n", angle);

    ZyrMatrix3 rotation(0, -1, 0, 1, 0, 0, 0, 0, 1);
    print("by a matrix", rotation * direction);
    std::printf("a rotation: %s, after doubling: %s\n",
                IsValidTransformMatrix(rotation) ? "yes" : "no",
                IsValidTransformMatrix(rotation * 2.0) ? "yes" : "no");
}
