#pragma once

#include "Zyr3DDoubleArray.h"
#include "ZyrColorArray.h"
#include "ZyrExport.h"

/// A list of values with a list of colours, of any two lengths. Copies and assignment share both
/// with the source.
class ZYR_EXPORT Zyr3DColorMap {
public:
    Zyr3DColorMap();
    /// Shares the two arrays.
    Zyr3DColorMap(const Zyr3DDoubleArray& values, const ZyrColorArray& colors);
    /// Shares the other's two arrays.
    Zyr3DColorMap(const Zyr3DColorMap& other);
    Zyr3DColorMap& operator=(const Zyr3DColorMap& other);
    ~Zyr3DColorMap();

    /// The least value, at most the invalid value 3.4028234663852886e+38, which is the result for
    /// an empty map. A NaN forgets what came before it, this bound too: (1, NaN, 3) gives 3,
    /// (NaN, 1e39) gives 1e39, and a NaN at the end is the result.
    double MinValue() const;
    /// The greatest value, at least -3.4028234663852886e+38, which is the result for an empty map.
    /// A NaN forgets what came before it and the bound, as in MinValue.
    double MaxValue() const;

private:
    Zyr3DDoubleArray values_;
    ZyrColorArray colors_;
};
