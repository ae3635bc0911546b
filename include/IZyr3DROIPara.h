#pragma once

#include <vector>

#include "Zyr3DLineSet.h"
#include "Zyr3DTorus.h"
#include "ZyrExport.h"
#include "ZyrVector3d.h"
#include "ZyrVector3dArray.h"

namespace zyr {

/// The kinds of regions and shapes. The codes stay: callers store them.
enum Kind : int {
    KindNone = 0,
    KindPoint = 1,
    KindLine = 2,
    KindLineSegment = 3,
    KindCircle = 4,
    KindPlane = 5,
    KindBox = 6,
    KindSphere = 7,
    KindCylinder = 8,
    KindTriangle = 9,
    KindPolygon = 10,
    KindEllipse = 11,
    KindEllipsoid = 12,
    KindRect = 13,
    KindTorus = 14,
    KindTube = 15,
    KindArc = 16,
    KindIrregular = 17,  // of a region
    KindAnyShape = 17,   // of a shape
};

/// What a region or a shape is made of: its doubles and the code of its kind.
struct ParameterBlock {
    std::vector<double> parameters;
    int type = KindNone;
};

}  // namespace zyr

/// A region of interest as a type code and a flat list of doubles.
///
/// Gen3D... stores a region in place of the one before, and Get3D... reads it back. The doubles lie
/// in the order of the arguments, x y z for a vector, exactly as given: nothing is normalised.
/// Angles are in degrees. A block that holds no region has type 0 and no doubles: a new one, and
/// any whose Gen3D... was given bad arguments, which also loses the region held before. (Only
/// To3DROI of a shape without a known kind leaves doubles at type 0.) ThirdROIType tells whether
/// storing succeeded. A copy of a block holds the same and shares nothing.
///
/// Get3D... never changes the block. It returns false, with the outputs untouched, when the block
/// holds another kind or too few doubles. Otherwise it fills all outputs, ignoring surplus doubles,
/// and returns whether they pass the check for reading, which is not the check for storing: blocks
/// come from elsewhere too, and callers rely on just these checks. Polygons and irregular regions
/// have rules of their own. Valid is what ZyrVector3d::IsValid tells; a direction is a valid vector
/// whose Norm() is not 0. Reading checks what storing does, save where told below. Where a double
/// is truncated to a 32-bit integer, one that does not fit, and NaN, gives -2147483648.
class ZYR_EXPORT IZyr3DROIPara {
public:
    IZyr3DROIPara();
    ~IZyr3DROIPara();

    /// A valid point.
    void Gen3DPoint(ZyrVector3d& point);
    bool Get3DPoint(ZyrVector3d* point);

    /// A valid point and a direction, of any length.
    void Gen3DLine(ZyrVector3d& point, ZyrVector3d& direction);
    bool Get3DLine(ZyrVector3d* point, ZyrVector3d* direction);

    /// Valid ends; they may be equal.
    void Gen3DLineSegment(ZyrVector3d& p1, ZyrVector3d& p2);
    bool Get3DLineSegment(ZyrVector3d* p1, ZyrVector3d* p2);

    /// A valid centre, a direction as normal, radius > 0. Reading leaves the radius unchecked.
    void Gen3DCircle(ZyrVector3d& center, ZyrVector3d& normal, double radius);
    bool Get3DCircle(ZyrVector3d* center, ZyrVector3d* normal, double* radius);

    /// A valid point and a direction as normal.
    void Gen3DPlane(ZyrVector3d& point, ZyrVector3d& normal);
    bool Get3DPlane(ZyrVector3d* point, ZyrVector3d* normal);

    /// Valid centre and angle, both radii > 0. Reading leaves radius A unchecked.
    void Gen3DEllipse(ZyrVector3d& center, ZyrVector3d& angle, double radiusA, double radiusB);
    bool Get3DEllipse(ZyrVector3d* center, ZyrVector3d* angle, double* radiusA, double* radiusB);

    /// Valid centre and angle, width and height > 0.
    void Gen3DRect(ZyrVector3d& center, ZyrVector3d& angle, double width, double height);
    bool Get3DRect(ZyrVector3d* center, ZyrVector3d* angle, double* width, double* height);

    /// Valid centre and angle, 0 <= inner <= outer radius, outer radius > 0, type 0 or 1. Storing
    /// also wants span >= 0 and takes any start angle; reading wants 0 <= start <= 360 and takes
    /// any span. The type is stored as a double and truncated to an integer when it is read.
    void Gen3DTorus(ZyrVector3d& center, ZyrVector3d& angle, double radiusInner, double radiusOuter,
                    double startAngle, double spanAngle, Zyr3DTorusType type);
    bool Get3DTorus(ZyrVector3d* center, ZyrVector3d* angle, double* radiusInner,
                    double* radiusOuter, double* startAngle, double* spanAngle,
                    Zyr3DTorusType* type);

    /// Valid centre and angle, radius > 0, span >= 0. Reading also wants 0 <= start <= 360: an arc
    /// that starts at 400 is stored and fills the outputs, with false.
    void Gen3DArc(ZyrVector3d& center, ZyrVector3d& angle, double radius, double startAngle,
                  double spanAngle);
    bool Get3DArc(ZyrVector3d* center, ZyrVector3d* angle, double* radius, double* startAngle,
                  double* spanAngle);

    /// Valid centre, angle and size, each component of size > 0. Reading wants valid vectors only.
    void Gen3DBox(ZyrVector3d& center, ZyrVector3d& angle, ZyrVector3d& size);
    bool Get3DBox(ZyrVector3d* center, ZyrVector3d* angle, ZyrVector3d* size);

    /// A valid centre, radius > 0. Reading leaves the radius unchecked.
    void Gen3DSphere(ZyrVector3d& center, double radius);
    bool Get3DSphere(ZyrVector3d* center, double* radius);

    /// A valid centre, a direction, radius and height > 0. Reading leaves both numbers unchecked.
    void Gen3DCylinder(ZyrVector3d& center, ZyrVector3d& direction, double radius, double height);
    bool Get3DCylinder(ZyrVector3d* center, ZyrVector3d* direction, double* radius, double* height);

    /// Valid centre, angle and size, each component of size > 0. Reading checks the same, unlike a
    /// box's.
    void Gen3DEllipsoid(ZyrVector3d& center, ZyrVector3d& angle, ZyrVector3d& size);
    bool Get3DEllipsoid(ZyrVector3d* center, ZyrVector3d* angle, ZyrVector3d* size);

    /// A valid centre, a direction, 0 <= inner <= outer radius, outer radius > 0, height > 0.
    /// Reading takes a valid direction of length 0 and a height of 0 too.
    void Gen3DTube(ZyrVector3d& center, ZyrVector3d& direction, double innerRadius,
                   double outerRadius, double height);
    bool Get3DTube(ZyrVector3d* center, ZyrVector3d* direction, double* innerRadius,
                   double* outerRadius, double* height);

    /// What Zyr3DTriangle::IsValid takes. Reading wants valid vertices only, on one line or not.
    void Gen3DTriangle(ZyrVector3d& a, ZyrVector3d& b, ZyrVector3d& c);
    bool Get3DTriangle(ZyrVector3d* a, ZyrVector3d* b, ZyrVector3d* c);

    /// Three or more vertices, all valid; they may lie on one line.
    void Gen3DPolygon(ZyrVector3dArray& vertices);
    /// Clears the array first, whatever follows, then adds what it reads; those who share the array
    /// see both. False unless the block holds a polygon of whole vertices, which are not checked
    /// again: none is as good as many.
    bool Get3DPolygon(ZyrVector3dArray* vertices);

    /// At least one line. Vertices and indices are not checked. Stored are the number of vertices,
    /// the number of line indices (twice the lines: an odd index at the end is left out), the
    /// vertices and the indices, all as doubles.
    void Gen3DIrregular(Zyr3DLineSet& lines);
    /// Clears the line set first, whatever follows, for those who share its arrays too; what is
    /// read goes into arrays of its own. Counts and indices are truncated to 32-bit integers. False
    /// unless the block holds an irregular region of exactly as many doubles as its two counts ask
    /// for: one of fewer than 2 doubles or with a negative count is refused.
    bool Get3DIrregular(Zyr3DLineSet* lines);

    /// The code of its kind, as listed above: 0 when the block holds no region.
    int ThirdROIType() const;

private:
    friend class Zyr3DROI;
    friend class Zyr3DShape;
    friend class IZyr3DShapePara;

    zyr::ParameterBlock block_;
};
