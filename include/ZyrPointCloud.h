#pragma once

#include "ZyrColorArray.h"
#include "ZyrExport.h"
#include "ZyrVector3dArray.h"

/// The points of a scanned surface, with a colour and a normal for each where the sensor gives
/// them.
///
/// Points that are missing stay in place as invalid vectors, so that index i is the same point in
/// all three arrays. Colours and normals count as present when there are as many as points, and at
/// least one.
///
/// Copies, assignment and the setters share the arrays' storage: a point invalidated in one cloud
/// is invalid in all that share it. DeepCopy and its siblings give storage of one's own. An index
/// out of range does nothing, or yields a default element.
class ZYR_EXPORT ZyrPointCloud {
public:
    ZyrPointCloud();
    /// Shares the three arrays.
    ZyrPointCloud(const ZyrVector3dArray& points, const ZyrColorArray& colors,
                  const ZyrVector3dArray& normals);
    /// Builds points from a sensor's buffer of count values x0 y0 z0 x1 ... without gaps; what is
    /// left over count / 3 points is ignored. depth is OpenCV's code of the values' type: 0 (8-bit
    /// unsigned), 2 (16-bit unsigned), 5 (float) or 6 (double); any other is not read and gives
    /// points at the origin. A point with a coordinate equal to invalidMark becomes invalid, points
    /// at the origin included; the invalid value itself and NaN mark nothing. Empty when data is
    /// null; throws std::length_error for a count of -3 or less.
    ZyrPointCloud(void* data, int count, int depth, double invalidMark);
    /// Shares the other's three arrays.
    ZyrPointCloud(const ZyrPointCloud& other);
    ZyrPointCloud& operator=(const ZyrPointCloud& other);
    ~ZyrPointCloud();

    /// Shares the given array and leaves the one held before.
    void SetPoints(const ZyrVector3dArray& points);
    void SetColors(const ZyrColorArray& colors);
    void SetNormals(const ZyrVector3dArray& normals);

    /// The cloud's own arrays, not copies.
    ZyrVector3dArray& PointData();
    ZyrVector3dArray& NormalData();
    ZyrColorArray& ColorData();

    /// Copies with storage of their own.
    ZyrVector3dArray DeepCopyPoints();
    ZyrColorArray DeepCopyColors();
    ZyrVector3dArray DeepCopyNormals();
    ZyrPointCloud DeepCopy();

    /// The number of points, valid or not.
    int Length() const;
    /// Counted at each call.
    int NumValidPoints() const;
    /// Whether there are as many as points, and at least one.
    bool IsValidColor() const;
    bool IsValidNormal() const;

    /// Makes point i invalid; its colour and normal stay.
    void InvalidatePoint(int i);

    /// Copies of element i; a default element out of range.
    ZyrVector3d Point(int i) const;
    ZyrColor Color(int i) const;
    ZyrVector3d Normal(int i) const;
    /// Point i; out of range a scratch element of the calling thread, invalid at each such access.
    ZyrVector3d& operator[](int i);
    /// A copy of point i; out of range the invalid vector.
    ZyrVector3d operator[](int i) const;

    /// Appends each of the other's arrays to this cloud's. A cloud may be appended to itself.
    void Append(const ZyrPointCloud& other);
    /// Empties the three arrays, for those who share their points and normals too.
    void Clear();

    /// Replaces the cloud by a file's, as Zyr3DFileIO::LoadPointCloud reads it. The suffix must be
    /// "zpt" or "ZPT". The cloud is cleared first, for those who share its points and normals too,
    /// so it is empty when the file is refused.
    bool Load(const char* path, bool withNormals, bool withColors);
    bool Load(const wchar_t* path, bool withNormals, bool withColors);
    /// Writes a file, as Zyr3DFileIO::SavePointCloud does. The suffix must be "zpt" or "ZPT".
    bool Save(const char* path, bool withNormals, bool withColors);
    bool Save(const wchar_t* path, bool withNormals, bool withColors);

private:
    ZyrVector3dArray points_;
    ZyrColorArray colors_;
    ZyrVector3dArray normals_;
};
