#pragma once

#include <vector>

#include "Zyr3DLineSet.h"
#include "ZyrExport.h"

/// A list of line sets. Each region owns its list; the line sets in it share their arrays with
/// those that they were copied from.
class ZYR_EXPORT Zyr3DRegion {
public:
    Zyr3DRegion();
    /// A list of its own, whose line sets share their arrays with the other's.
    Zyr3DRegion(const Zyr3DRegion& other);
    Zyr3DRegion& operator=(const Zyr3DRegion& other);
    ~Zyr3DRegion();

    /// The number of line sets.
    int Length() const;
    /// Adds a line set that shares its arrays with the one given.
    void Append(const Zyr3DLineSet& lineSet);

    /// Out of range: a scratch line set of the calling thread, empty at each such access.
    Zyr3DLineSet& operator[](int i);
    /// Out of range: an empty line set.
    Zyr3DLineSet operator[](int i) const;

private:
    std::vector<Zyr3DLineSet>* lineSets_;
};
