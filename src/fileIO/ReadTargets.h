#pragma once

#include <cstdint>
#include <deque>
#include <opencv2/core.hpp>
#include <optional>
#include <vector>

#include "ZyrVector3d.h"
#include "fileIO/ReadColumns.h"

class Zyr3DIntArray;
class ZyrVector3dArray;

/// Lists on their way in. They grow as their columns come, in memory of their own, so that a file
/// that turns out bad changes nothing of the caller's.
namespace zyr {

/// The vectors of one store: the column that comes first appends them at the origin with its
/// component, the others complete them.
class VectorTarget {
public:
    VectorTarget(ZyrVector3dArray& array, bool keepsNaN) : array_(&array), keepsNaN_(keepsNaN) {}

    bool isFor(const ZyrVector3dArray& array) const;
    void setLength(std::size_t length) { length_ = length; }
    void store(const ReadRun& run, std::size_t component);
    void publish();

private:
    template <class T>
    void store(const ReadRun& run, std::size_t component);
    void grow(std::size_t length);

    ZyrVector3dArray* array_;
    bool keepsNaN_;  ///< else a NaN component stays 0
    std::size_t length_ = 0;
    std::vector<ZyrVector3d> vectors_;
};

/// All vector lists of a file. Of lists that share one store, its length is that of the last.
class VectorTargets {
public:
    explicit VectorTargets(bool keepsNaN) : keepsNaN_(keepsNaN) {}

    /// So many vectors, of the columns first, first + 1 and first + 2; at the origin for -1.
    void add(ZyrVector3dArray& array, std::int32_t length, std::int32_t first,
             std::vector<ColumnTaker>& takers);
    /// Adds what is missing and puts the lists in place, for all that share them.
    void publish();

private:
    VectorTarget& targetFor(ZyrVector3dArray& array);

    bool keepsNaN_;
    std::deque<VectorTarget> targets_;  // the takers point to them
};

/// The corners of triangles, 0 where they are missing.
class TriangleTarget {
public:
    explicit TriangleTarget(std::int32_t triangles)
        : triangles_(static_cast<std::size_t>(triangles)) {}

    /// Of the columns first, first + 1 and first + 2.
    void takeFrom(std::int32_t first, std::vector<ColumnTaker>& takers);
    void publish(Zyr3DIntArray& array);

private:
    void store(const ReadRun& run, std::size_t corner);

    std::vector<int> corners_;
    std::size_t triangles_;
};

/// A row of colours, black where they are missing. Nothing is read when they are not wanted or the
/// file ended before their channel count.
class ColorTarget {
public:
    ColorTarget(bool areWanted, std::int32_t length, std::optional<std::uint32_t> channels);

    void takeFrom(std::int32_t column, std::vector<ColumnTaker>& takers);
    /// In place where the matrix has this shape already.
    void publish(cv::Mat& colors);

private:
    bool areRead_;
    cv::Mat row_;
    std::size_t stored_ = 0;
};

/// n vectors at the origin.
void setOrigins(ZyrVector3dArray& vectors, std::int32_t n);

}  // namespace zyr
