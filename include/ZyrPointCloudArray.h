#pragma once

#include <vector>

#include "ZyrExport.h"
#include "ZyrPointCloud.h"

/// A list of point clouds. Each list owns its own; the clouds in it share their storage with those
/// that they were copied from. An index out of range does nothing.
class ZYR_EXPORT ZyrPointCloudArray {
public:
    ZyrPointCloudArray();
    ZyrPointCloudArray(const ZyrPointCloudArray& other);
    ~ZyrPointCloudArray();
    /// Copies the other's clouds, and gives a copy of the result, not the list itself.
    ZyrPointCloudArray operator=(const ZyrPointCloudArray& other);

    int Length() const;

    void Append(const ZyrPointCloud& cloud);
    /// Appending a list to itself doubles it.
    void Append(const ZyrPointCloudArray& other);
    /// Before element i. Never appends: i = Length() is out of range.
    void Insert(int i, ZyrPointCloud& cloud);
    void Remove(int i);
    void Replace(int i, ZyrPointCloud& cloud);
    void Select(int i, ZyrPointCloud* out);
    void Swap(int i, int j);
    /// Empties the list and gives its memory back; the clouds' storage stays with those who share
    /// it.
    void Clear();

    /// Out of range: a scratch cloud of the calling thread, empty at each such access.
    ZyrPointCloud& operator[](int i);
    /// Out of range: an empty cloud.
    ZyrPointCloud operator[](int i) const;

private:
    std::vector<ZyrPointCloud>* clouds_;
};
