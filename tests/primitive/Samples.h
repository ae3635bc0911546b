#pragma once

#include "Zyr3DData.h"
#include "primitive/Conditions.h"

/// For each primitive one that passes its test and one that fails it, with the latter's doubles in
/// the order in which they lie in memory; neither with a field as in a default one.
namespace test {

inline const ZyrVector3d kSomewhere(1, 2, 3);
inline const ZyrVector3d kTurned(10, 20, 30);

template <class Primitive>
struct Sample;

template <>
struct Sample<Zyr3DLine> {
    static Zyr3DLine good() { return Zyr3DLine(kSomewhere, ZyrVector3d(0.5, 2, 3)); }
    static Zyr3DLine bad() { return Zyr3DLine(kSomewhere, ZyrVector3d(0.5, 0.6, 0.7)); }
    static std::vector<double> badFields() { return {1, 2, 3, 0.5, 0.6, 0.7}; }
};

template <>
struct Sample<Zyr3DLineSegment> {
    static Zyr3DLineSegment good() { return Zyr3DLineSegment(kSomewhere, kTurned); }
    static Zyr3DLineSegment bad() {
        return Zyr3DLineSegment(kSomewhere, ZyrVector3d(1, 2, kInfinity));
    }
    static std::vector<double> badFields() { return {1, 2, 3, 1, 2, kInfinity}; }
};

template <>
struct Sample<Zyr3DPlane> {
    static Zyr3DPlane good() { return Zyr3DPlane(kSomewhere, ZyrVector3d(0, 3, 4)); }
    static Zyr3DPlane bad() {
        Zyr3DPlane plane = good();
        plane.normal = ZyrVector3d(0, 0, 1e-6);
        return plane;
    }
    static std::vector<double> badFields() { return {1, 2, 3, 0, 0, 1e-6}; }
};

template <>
struct Sample<Zyr3DArc> {
    static Zyr3DArc good() { return Zyr3DArc(kSomewhere, kTurned, 5, 45, 90); }
    static Zyr3DArc bad() { return Zyr3DArc(kSomewhere, kTurned, 5, 361, 90); }
    static std::vector<double> badFields() { return {5, 361, 90, 1, 2, 3, 10, 20, 30}; }
};

template <>
struct Sample<Zyr3DCircle> {
    static Zyr3DCircle good() { return Zyr3DCircle(kSomewhere, ZyrVector3d(0, 0, 2), 5); }
    static Zyr3DCircle bad() { return Zyr3DCircle(kSomewhere, ZyrVector3d(0, 0, 2), -5); }
    static std::vector<double> badFields() { return {1, 2, 3, 0, 0, 2, -5}; }
};

template <>
struct Sample<Zyr3DEllipse> {
    static Zyr3DEllipse good() { return Zyr3DEllipse(kSomewhere, kTurned, 5, 4); }
    static Zyr3DEllipse bad() { return Zyr3DEllipse(kSomewhere, kTurned, 5, -4); }
    static std::vector<double> badFields() { return {5, -4, 1, 2, 3, 10, 20, 30}; }
};

template <>
struct Sample<Zyr3DRect> {
    static Zyr3DRect good() { return Zyr3DRect(kSomewhere, kTurned, 5, 4); }
    static Zyr3DRect bad() { return Zyr3DRect(kSomewhere, kTurned, 5, -4); }
    static std::vector<double> badFields() { return {5, -4, 1, 2, 3, 10, 20, 30}; }
};

template <>
struct Sample<Zyr3DTriangle> {
    static Zyr3DTriangle good() {
        return Zyr3DTriangle(kSomewhere, ZyrVector3d(4, 5, 6), ZyrVector3d(7, 8, 10));
    }
    static Zyr3DTriangle bad() {
        return Zyr3DTriangle(kSomewhere, ZyrVector3d(4, 5, 6), ZyrVector3d(7, 8, 9));
    }
    static std::vector<double> badFields() { return {1, 2, 3, 4, 5, 6, 7, 8, 9}; }
};

template <>
struct Sample<Zyr3DSphere> {
    static Zyr3DSphere good() { return Zyr3DSphere(kSomewhere, 5); }
    static Zyr3DSphere bad() { return Zyr3DSphere(kSomewhere, -5); }
    static std::vector<double> badFields() { return {1, 2, 3, -5}; }
};

template <>
struct Sample<Zyr3DCylinder> {
    static Zyr3DCylinder good() { return Zyr3DCylinder(kSomewhere, kTurned, 5, 4); }
    static Zyr3DCylinder bad() { return Zyr3DCylinder(kSomewhere, kTurned, 5, -4); }
    static std::vector<double> badFields() { return {1, 2, 3, 10, 20, 30, 5, -4}; }
};

template <>
struct Sample<Zyr3DTube> {
    static Zyr3DTube good() { return Zyr3DTube(kSomewhere, kTurned, 5, 6, 4); }
    static Zyr3DTube bad() { return Zyr3DTube(kSomewhere, kTurned, 6, 5, 4); }
    static std::vector<double> badFields() { return {1, 2, 3, 10, 20, 30, 6, 5, 4}; }
};

template <>
struct Sample<Zyr3DTorus> {
    static Zyr3DTorus good() {
        return Zyr3DTorus(kSomewhere, kTurned, 5, 6, 45, 90, Zyr3DTorusType1);
    }
    static Zyr3DTorus bad() {
        return Zyr3DTorus(kSomewhere, kTurned, 5, 6, 361, 90, Zyr3DTorusType1);
    }
    static std::vector<double> badFields() { return {5, 6, 361, 90, 1, 1, 2, 3, 10, 20, 30}; }
};

template <>
struct Sample<Zyr3DBox> {
    static Zyr3DBox good() { return Zyr3DBox(kSomewhere, kTurned, ZyrVector3d(4, 5, 6)); }
    static Zyr3DBox bad() { return Zyr3DBox(kSomewhere, kTurned, ZyrVector3d(4, 0, 6)); }
    static std::vector<double> badFields() { return {1, 2, 3, 4, 0, 6, 10, 20, 30}; }
};

template <>
struct Sample<Zyr3DEllipsoid> {
    static Zyr3DEllipsoid good() {
        return Zyr3DEllipsoid(kSomewhere, kTurned, ZyrVector3d(4, 5, 6));
    }
    static Zyr3DEllipsoid bad() {
        return Zyr3DEllipsoid(kSomewhere, kTurned, ZyrVector3d(4, 0, 6));
    }
    static std::vector<double> badFields() { return {1, 2, 3, 4, 0, 6, 10, 20, 30}; }
};

}  // namespace test
