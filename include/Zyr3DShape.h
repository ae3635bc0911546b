#pragma once

#include "IZyr3DShapePara.h"
#include "ZyrExport.h"

/// A geometric model of one of seventeen kinds, as a value.
///
/// Each handle owns its own IZyr3DShapePara, which says what each operation stores and reads;
/// copies are deep and share nothing. A default handle holds no shape: ShapeType3D() is 0, and
/// every Get3D... returns false.
class ZYR_EXPORT Zyr3DShape {
public:
    Zyr3DShape();
    /// A copy of the other's shape.
    Zyr3DShape(const Zyr3DShape& other);
    /// A copy of the other's shape. Assigning a shape to itself changes nothing.
    Zyr3DShape& operator=(const Zyr3DShape& other);
    ~Zyr3DShape();

    /// @{
    /// As IZyr3DShapePara stores and reads it.
    void Gen3DPoint(ZyrVector3d& point);
    bool Get3DPoint(ZyrVector3d* point);

    void Gen3DLine(ZyrVector3d& point, ZyrVector3d& direction);
    bool Get3DLine(ZyrVector3d* point, ZyrVector3d* direction);

    void Gen3DLineSegment(ZyrVector3d& p1, ZyrVector3d& p2);
    bool Get3DLineSegment(ZyrVector3d* p1, ZyrVector3d* p2);

    void Gen3DCircle(ZyrVector3d& center, ZyrVector3d& normal, double radius);
    bool Get3DCircle(ZyrVector3d* center, ZyrVector3d* normal, double* radius);

    void Gen3DPlane(ZyrVector3d& point, ZyrVector3d& normal);
    bool Get3DPlane(ZyrVector3d* point, ZyrVector3d* normal);

    void Gen3DEllipse(ZyrVector3d& center, ZyrVector3d& angle, double radiusA, double radiusB);
    bool Get3DEllipse(ZyrVector3d* center, ZyrVector3d* angle, double* radiusA, double* radiusB);

    void Gen3DRect(ZyrVector3d& center, ZyrVector3d& angle, double width, double height);
    bool Get3DRect(ZyrVector3d* center, ZyrVector3d* angle, double* width, double* height);

    void Gen3DTorus(ZyrVector3d& center, ZyrVector3d& angle, double radiusInner, double radiusOuter,
                    double startAngle, double spanAngle, Zyr3DTorusType type);
    bool Get3DTorus(ZyrVector3d* center, ZyrVector3d* angle, double* radiusInner,
                    double* radiusOuter, double* startAngle, double* spanAngle,
                    Zyr3DTorusType* type);

    void Gen3DArc(ZyrVector3d& center, ZyrVector3d& angle, double radius, double startAngle,
                  double spanAngle);
    bool Get3DArc(ZyrVector3d* center, ZyrVector3d* angle, double* radius, double* startAngle,
                  double* spanAngle);

    void Gen3DBox(ZyrVector3d& center, ZyrVector3d& angle, ZyrVector3d& size);
    bool Get3DBox(ZyrVector3d* center, ZyrVector3d* angle, ZyrVector3d* size);

    void Gen3DSphere(ZyrVector3d& center, double radius);
    bool Get3DSphere(ZyrVector3d* center, double* radius);

    void Gen3DCylinder(ZyrVector3d& center, ZyrVector3d& direction, double radius, double height);
    bool Get3DCylinder(ZyrVector3d* center, ZyrVector3d* direction, double* radius, double* height);

    void Gen3DEllipsoid(ZyrVector3d& center, ZyrVector3d& angle, ZyrVector3d& size);
    bool Get3DEllipsoid(ZyrVector3d* center, ZyrVector3d* angle, ZyrVector3d* size);

    void Gen3DTube(ZyrVector3d& center, ZyrVector3d& direction, double innerRadius,
                   double outerRadius, double height);
    bool Get3DTube(ZyrVector3d* center, ZyrVector3d* direction, double* innerRadius,
                   double* outerRadius, double* height);

    void Gen3DTriangle(ZyrVector3d& a, ZyrVector3d& b, ZyrVector3d& c);
    bool Get3DTriangle(ZyrVector3d* a, ZyrVector3d* b, ZyrVector3d* c);

    void Gen3DPolygon(ZyrVector3dArray& vertices);
    bool Get3DPolygon(ZyrVector3dArray* vertices);

    void Gen3DAnyShape(Zyr3DLineSet& lines);
    bool Get3DAnyShape(Zyr3DLineSet* lines);
    /// @}

    /// The code of its kind, as IZyr3DROIPara.h lists them: 0 when there is no shape.
    int ShapeType3D() const;

    /// Takes over a region's description, and gives the shape's to a region: without loss, and
    /// nothing is checked. A source that holds nothing, or an unknown kind, makes the type 0.
    void From3DROI(const Zyr3DROI& roi);
    void To3DROI(Zyr3DROI* roi);

private:
    IZyr3DShapePara* para_;
};
