#include "Zyr3DContour.h"

Zyr3DContour::Zyr3DContour() = default;

Zyr3DContour::Zyr3DContour(const Zyr3DContour& other)
    : points_(ZyrVector3dArray(other.points_).DeepCopy()) {}

Zyr3DContour& Zyr3DContour::operator=(const Zyr3DContour& other) = default;

Zyr3DContour::~Zyr3DContour() = default;

Zyr3DContour Zyr3DContour::DeepCopy() {
    return *this;
}

int Zyr3DContour::Length() const {
    return points_.Length();
}

ZyrVector3dArray Zyr3DContour::ToPointArray() {
    return points_;
}

void Zyr3DContour::FromPointArray(const ZyrVector3dArray& points) {
    points_ = points;
}
