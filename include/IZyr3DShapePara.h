#pragma once

#include "IZyr3DROIPara.h"
#include "Zyr3DROI.h"
#include "ZyrExport.h"

/// A geometric model, to fit or to compare, as a type code and a flat list of doubles: the twin of
/// IZyr3DROIPara, with the same codes and doubles and the same rules for storing and reading.
///
/// Two things differ. Get3DEllipse checks both radii. Code 17 is any shape, laid out as the
/// irregular region is and with its rules.
class ZYR_EXPORT IZyr3DShapePara {
public:
    IZyr3DShapePara();
    ~IZyr3DShapePara();

    /// @{
    /// As IZyr3DROIPara stores and reads it.
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

    /// The code of its kind, as IZyr3DROIPara.h lists them: 0 when the block holds no shape.
    int ThirdShapeType() const;

    /// Takes over the region's kind and doubles as they are; nothing is checked. A region of type 0
    /// or of an unknown one makes the shape's type 0 and leaves its doubles: nothing reads them,
    /// and the next Gen3D... drops them.
    void From3DROI(const Zyr3DROI& roi);
    /// The same from this shape to the region.
    void To3DROI(Zyr3DROI* roi);

private:
    friend class Zyr3DShape;

    IZyr3DROIPara twin_;
};
