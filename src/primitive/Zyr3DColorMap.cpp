#include "Zyr3DColorMap.h"

#include "ZyrVector3d.h"

Zyr3DColorMap::Zyr3DColorMap() = default;

Zyr3DColorMap::Zyr3DColorMap(const Zyr3DDoubleArray& values, const ZyrColorArray& colors)
    : values_(values), colors_(colors) {}

Zyr3DColorMap::Zyr3DColorMap(const Zyr3DColorMap& other) = default;

Zyr3DColorMap& Zyr3DColorMap::operator=(const Zyr3DColorMap& other) = default;

Zyr3DColorMap::~Zyr3DColorMap() = default;

// The comparisons are written so that a NaN on either side takes the new value.
double Zyr3DColorMap::MinValue() const {
    double current = zyr::kInvalidValue;
    for (int i = 0; i < values_.Length(); ++i) {
        const double value = values_[i];
        if (!(value > current)) current = value;
    }
    return current;
}

double Zyr3DColorMap::MaxValue() const {
    double current = -zyr::kInvalidValue;
    for (int i = 0; i < values_.Length(); ++i) {
        const double value = values_[i];
        if (!(current > value)) current = value;
    }
    return current;
}
