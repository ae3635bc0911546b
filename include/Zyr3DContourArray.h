#pragma once

#include <vector>

#include "Zyr3DContour.h"
#include "ZyrExport.h"

/// A list of contours. An index out of range does nothing.
///
/// What goes in by Append and Insert, and what a copied or assigned list holds, is independent of
/// its source; Replace and Select share the points with the contour that they are given. A contour
/// keeps the points that it has, and who shares them, when the list around it changes.
class ZYR_EXPORT Zyr3DContourArray {
public:
    Zyr3DContourArray();
    /// Copies the other's contours with their points.
    Zyr3DContourArray(const Zyr3DContourArray& other);
    /// Copies the other's contours with their points. Assigning a list to itself changes nothing.
    Zyr3DContourArray& operator=(const Zyr3DContourArray& other);
    ~Zyr3DContourArray();

    /// The number of contours.
    int Length() const;

    /// Adds a contour with a copy of the points.
    void Append(Zyr3DContour& contour);
    /// Adds copies of the other's contours. Appending a list to itself doubles it.
    void Append(Zyr3DContourArray& other);
    /// Puts a contour with a copy of the points before element i. Never appends: i = Length() is
    /// out of range.
    void Insert(int i, Zyr3DContour& contour);
    /// The contours behind it move up by one.
    void Remove(int i);
    /// Element i shares the contour's points from then on.
    void Replace(int i, Zyr3DContour& contour);
    /// The contour at out shares the element's points from then on.
    void Select(int i, Zyr3DContour* out) const;
    /// Exchanges two elements.
    void Swap(int i, int j);
    /// Empties the list and gives its memory back; the points stay with those who share them.
    void Clear();

    /// A contour with a copy of the points; an empty one out of range.
    Zyr3DContour operator[](int i) const;

private:
    // Their points alone: a contour would let go of its sharers whenever the list moves it.
    std::vector<ZyrVector3dArray>* contours_;
};
