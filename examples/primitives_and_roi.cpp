#include <Zyr3DData.h>

#include <cmath>
#include <cstdio>

// Whether a point lies in a box: its way from the centre, measured along the box's own axes.
static bool contains(Zyr3DBox& box, const ZyrVector3d& point) {
    ZyrVector3d way = point - box.Center();
    return std::abs(way.Dot(box.DirectionX())) <= box.Size().x / 2 &&
           std::abs(way.Dot(box.DirectionY())) <= box.Size().y / 2 &&
           std::abs(way.Dot(box.DirectionZ())) <= box.Size().z / 2;
}

int main() {
    Zyr3DPlane plane(ZyrVector3d(1, 0, 5), ZyrVector3d(0, 0, 5), ZyrVector3d(0, 1, 5));
    ZyrVector3d normal = plane.NormalVector();
    ZyrVector3d point(3, 4, 7);
    std::printf("distance to the plane: %g\n", std::abs(normal.Dot(point - plane.point)));

    Zyr3DSphere ball(ZyrVector3d(0, 0, 0), -1);
    std::printf("a ball of radius -1 is %s, ", ball.IsValid() ? "valid" : "invalid");
    std::printf("its radius is %g now\n", ball.Radius());

    Zyr3DROI roi;
    ZyrVector3d center(5, 5, 5);
    ZyrVector3d angle(0, 0, 0);
    ZyrVector3d size(4, 2, 10);
    roi.Gen3DBox(center, angle, size);
    std::printf("region of kind %d\n", roi.ROIType3D());

    if (!roi.Get3DBox(&center, &angle, &size)) return 1;
    Zyr3DBox box(center, angle, size);
    double coordinates[] = {5, 5, 5, 6, 5, 1, 9, 5, 5, 5, 7, 5};
    ZyrVector3dArray points(coordinates, 12, -9999.0);
    int inside = 0;
    for (int i = 0; i < points.Length(); ++i)
        if (contains(box, points[i])) ++inside;
    std::printf("%d of %d points inside\n", inside, points.Length());

    double radius = 0;
    std::printf("read as a sphere: %s\n", roi.Get3DSphere(&center, &radius) ? "yes" : "no");
    Zyr3DShape shape;
    shape.From3DROI(roi);
    std::printf("shape of kind %d\n", shape.ShapeType3D());
}
