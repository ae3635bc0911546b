#pragma once

#include "IZyr3DROIPara.h"
#include "ZyrExport.h"

/// A region of interest of one of seventeen kinds, as a value.
///
/// Each handle owns its own IZyr3DROIPara, which says what each operation stores and reads; copies
/// are deep and share nothing. A default handle holds no region: ROIType3D() is 0, and every
/// Get3D... returns false.
class ZYR_EXPORT Zyr3DROI {
public:
    Zyr3DROI();
    /// A copy of the other's region.
    Zyr3DROI(const Zyr3DROI& other);
    /// A copy of the other's region. Assigning a region to itself changes nothing.
    Zyr3DROI& operator=(const Zyr3DROI& other);
    ~Zyr3DROI();

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

    void Gen3DIrregular(Zyr3DLineSet& lines);
    bool Get3DIrregular(Zyr3DLineSet* lines);
    /// @}

    /// The code of its kind, as IZyr3DROIPara.h lists them: 0 when there is no region.
    int ROIType3D() const;

private:
    friend class IZyr3DShapePara;

    IZyr3DROIPara* para_;
};
