#include <cstddef>
#include <type_traits>
#include <vector>

#include "Zyr3DShape.h"

// The binary interface of soname 3: callers are linked against exactly these names, parameters and
// const. This file compiles or it does not.

static_assert(sizeof(Zyr3DROI) == sizeof(void*) && sizeof(Zyr3DShape) == sizeof(void*));
static_assert(sizeof(IZyr3DROIPara) == sizeof(std::vector<double>) + 8);
static_assert(sizeof(IZyr3DShapePara) == sizeof(IZyr3DROIPara));
static_assert(offsetof(zyr::ParameterBlock, parameters) == 0);
static_assert(offsetof(zyr::ParameterBlock, type) == sizeof(std::vector<double>));
static_assert(std::is_copy_constructible_v<IZyr3DROIPara> &&
              std::is_copy_assignable_v<IZyr3DROIPara>);
static_assert(std::is_copy_constructible_v<IZyr3DShapePara> &&
              std::is_copy_assignable_v<IZyr3DShapePara>);
static_assert(std::is_standard_layout_v<IZyr3DShapePara>);
static_assert(!std::is_polymorphic_v<IZyr3DROIPara> && !std::is_polymorphic_v<Zyr3DROI>);

using V = ZyrVector3d;
using T = Zyr3DTorusType;

/// What all four list alike.
template <class B>
struct Listed {
    static constexpr void (B::*genPoint)(V&) = &B::Gen3DPoint;
    static constexpr bool (B::*getPoint)(V*) = &B::Get3DPoint;
    static constexpr void (B::*genLine)(V&, V&) = &B::Gen3DLine;
    static constexpr bool (B::*getLine)(V*, V*) = &B::Get3DLine;
    static constexpr void (B::*genLineSegment)(V&, V&) = &B::Gen3DLineSegment;
    static constexpr bool (B::*getLineSegment)(V*, V*) = &B::Get3DLineSegment;
    static constexpr void (B::*genCircle)(V&, V&, double) = &B::Gen3DCircle;
    static constexpr bool (B::*getCircle)(V*, V*, double*) = &B::Get3DCircle;
    static constexpr void (B::*genPlane)(V&, V&) = &B::Gen3DPlane;
    static constexpr bool (B::*getPlane)(V*, V*) = &B::Get3DPlane;
    static constexpr void (B::*genEllipse)(V&, V&, double, double) = &B::Gen3DEllipse;
    static constexpr bool (B::*getEllipse)(V*, V*, double*, double*) = &B::Get3DEllipse;
    static constexpr void (B::*genRect)(V&, V&, double, double) = &B::Gen3DRect;
    static constexpr bool (B::*getRect)(V*, V*, double*, double*) = &B::Get3DRect;
    static constexpr void (B::*genTorus)(V&, V&, double, double, double, double,
                                         T) = &B::Gen3DTorus;
    static constexpr bool (B::*getTorus)(V*, V*, double*, double*, double*, double*,
                                         T*) = &B::Get3DTorus;
    static constexpr void (B::*genArc)(V&, V&, double, double, double) = &B::Gen3DArc;
    static constexpr bool (B::*getArc)(V*, V*, double*, double*, double*) = &B::Get3DArc;
    static constexpr void (B::*genBox)(V&, V&, V&) = &B::Gen3DBox;
    static constexpr bool (B::*getBox)(V*, V*, V*) = &B::Get3DBox;
    static constexpr void (B::*genSphere)(V&, double) = &B::Gen3DSphere;
    static constexpr bool (B::*getSphere)(V*, double*) = &B::Get3DSphere;
    static constexpr void (B::*genCylinder)(V&, V&, double, double) = &B::Gen3DCylinder;
    static constexpr bool (B::*getCylinder)(V*, V*, double*, double*) = &B::Get3DCylinder;
    static constexpr void (B::*genEllipsoid)(V&, V&, V&) = &B::Gen3DEllipsoid;
    static constexpr bool (B::*getEllipsoid)(V*, V*, V*) = &B::Get3DEllipsoid;
    static constexpr void (B::*genTube)(V&, V&, double, double, double) = &B::Gen3DTube;
    static constexpr bool (B::*getTube)(V*, V*, double*, double*, double*) = &B::Get3DTube;
    static constexpr void (B::*genTriangle)(V&, V&, V&) = &B::Gen3DTriangle;
    static constexpr bool (B::*getTriangle)(V*, V*, V*) = &B::Get3DTriangle;
    static constexpr void (B::*genPolygon)(ZyrVector3dArray&) = &B::Gen3DPolygon;
    static constexpr bool (B::*getPolygon)(ZyrVector3dArray*) = &B::Get3DPolygon;
};
template struct Listed<IZyr3DROIPara>;
template struct Listed<Zyr3DROI>;
template struct Listed<IZyr3DShapePara>;
template struct Listed<Zyr3DShape>;

template <class R>
struct ListedOfRegions {
    static constexpr void (R::*gen)(Zyr3DLineSet&) = &R::Gen3DIrregular;
    static constexpr bool (R::*get)(Zyr3DLineSet*) = &R::Get3DIrregular;
};
template struct ListedOfRegions<IZyr3DROIPara>;
template struct ListedOfRegions<Zyr3DROI>;

template <class S>
struct ListedOfShapes {
    static constexpr void (S::*gen)(Zyr3DLineSet&) = &S::Gen3DAnyShape;
    static constexpr bool (S::*get)(Zyr3DLineSet*) = &S::Get3DAnyShape;
    static constexpr void (S::*from)(const Zyr3DROI&) = &S::From3DROI;
    static constexpr void (S::*to)(Zyr3DROI*) = &S::To3DROI;
};
template struct ListedOfShapes<IZyr3DShapePara>;
template struct ListedOfShapes<Zyr3DShape>;

template <class H>
struct ListedOfHandles {
    static constexpr H& (H::*assign)(const H&) = &H::operator=;
};
template struct ListedOfHandles<Zyr3DROI>;
template struct ListedOfHandles<Zyr3DShape>;

[[maybe_unused]] constexpr int (IZyr3DROIPara::*roiBlockType)() const =
    &IZyr3DROIPara::ThirdROIType;
[[maybe_unused]] constexpr int (IZyr3DShapePara::*shapeBlockType)() const =
    &IZyr3DShapePara::ThirdShapeType;
[[maybe_unused]] constexpr int (Zyr3DROI::*roiType)() const = &Zyr3DROI::ROIType3D;
[[maybe_unused]] constexpr int (Zyr3DShape::*shapeType)() const = &Zyr3DShape::ShapeType3D;
