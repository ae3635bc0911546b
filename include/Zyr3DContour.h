#pragma once

#include "ZyrExport.h"
#include "ZyrVector3dArray.h"

/// An ordered run of points.
///
/// Unlike the arrays, a contour copies its points on copy construction and shares them on
/// assignment only: `Zyr3DContour b(a)` is independent of a, `b = a` sees every change of a's
/// points.
class ZYR_EXPORT Zyr3DContour {
public:
    Zyr3DContour();
    /// Copies the other's points.
    Zyr3DContour(const Zyr3DContour& other);
    /// Shares the other's points and leaves the ones held before.
    Zyr3DContour& operator=(const Zyr3DContour& other);
    ~Zyr3DContour();

    /// A contour with a copy of the points.
    Zyr3DContour DeepCopy();

    /// The number of points, valid or not.
    int Length() const;
    /// An array that shares the points.
    ZyrVector3dArray ToPointArray();
    /// Shares the array's points and leaves the ones held before.
    void FromPointArray(const ZyrVector3dArray& points);

private:
    ZyrVector3dArray points_;
};
