#pragma once

#include <vector>

#include "ZyrExport.h"
#include "ZyrPointCloud.h"

/// A list of point clouds. Each list owns its own; the clouds in it share their storage with those
/// that they were copied from. An index out of range does nothing.
class ZYR_EXPORT ZyrPointCloudArray {
public:
    ZyrPointCloudArray();
    /// A list of its own, whose clouds share their storage with the other's.
    ZyrPointCloudArray(const ZyrPointCloudArray& other);
    ~ZyrPointCloudArray();
    /// Copies the other's clouds, and gives a copy of the result, not the list itself.
    ZyrPointCloudArray operator=(const ZyrPointCloudArray& other);

    /// The number of clouds.
    int Length() const;

    /// Adds a cloud that shares its storage with the one given.
    void Append(const ZyrPointCloud& cloud);
    /// Appending a list to itself doubles it.
    void Append(const ZyrPointCloudArray& other);
    /// Before element i. Never appends: i = Length() is out of range.
    void Insert(int i, ZyrPointCloud& cloud);
    /// The clouds behind it move up by one.
    void Remove(int i);
    /// Element i, or out, shares its storage with the other from then on.
    void Replace(int i, ZyrPointCloud& cloud);
    void Select(int i, ZyrPointCloud* out);
    /// Exchanges two elements.
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
