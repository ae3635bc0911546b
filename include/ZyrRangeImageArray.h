#pragma once

#include <memory>
#include <vector>

#include "ZyrExport.h"
#include "ZyrRangeImage.h"

/// A list of range images. Each list owns its own; the images in it share their pixels with those
/// that they were copied from, and, as copies, start with a value range of 0 to 0. An index out of
/// range does nothing.
class ZYR_EXPORT ZyrRangeImageArray {
public:
    ZyrRangeImageArray();
    /// A list of its own, whose images share their pixels with the other's.
    ZyrRangeImageArray(const ZyrRangeImageArray& other);
    ZyrRangeImageArray& operator=(const ZyrRangeImageArray& other);
    ~ZyrRangeImageArray();

    /// The number of images.
    int Length();

    /// Adds an image that shares its pixels with the one given.
    void Append(const ZyrRangeImage& image);
    /// Appending a list to itself doubles it.
    void Append(const ZyrRangeImageArray& other);
    /// Before element i. Never appends: i = Length() is out of range.
    void Insert(int i, ZyrRangeImage& image);
    /// The images behind it move up by one.
    void Remove(int i);
    /// Assigns to element i, which keeps its own value range.
    void Replace(int i, ZyrRangeImage& image);
    /// Assigns element i to out, which keeps its own value range.
    void Select(int i, ZyrRangeImage* out);
    /// Exchanges the elements whole, each with its value range.
    void Swap(int i, int j);
    /// Empties the list and gives its memory back; the pixels stay with those who share them.
    void Clear();

    /// A copy of element i, sharing its pixels; out of range a default image.
    ZyrRangeImage operator[](int i);
    ZyrRangeImage operator[](int i) const;

private:
    // Images in a list stay where they are when it grows: to move one would be to copy it, and
    // copies lose their value range.
    std::vector<std::shared_ptr<ZyrRangeImage>>* images_;
};
