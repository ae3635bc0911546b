#include <cstddef>
#include <type_traits>

#include "Zyr3DDoubleArray.h"
#include "Zyr3DInner.h"
#include "Zyr3DIntArray.h"
#include "ZyrColor.h"
#include "ZyrColorArray.h"
#include "ZyrVector3d.h"
#include "ZyrVector3dArray.h"
#include "support/Interface.h"

// The binary interface of soname 3: callers are linked against exactly these names, parameters and
// const. This file compiles or it does not.

template <class Array>
constexpr bool kIsOnePointer = sizeof(Array) == sizeof(void*) && !std::is_polymorphic_v<Array>;

static_assert(kIsOnePointer<ZyrVector3dArray>);
static_assert(kIsOnePointer<Zyr3DDoubleArray>);
static_assert(kIsOnePointer<Zyr3DIntArray>);
static_assert(kIsOnePointer<ZyrColorArray>);
static_assert(std::is_empty_v<Zyr3DInner>);

// What the one pointer of a sharing array leads to.
using Holder = zyr::SharedStore<double>;
static_assert(std::is_standard_layout_v<Holder>);
static_assert(offsetof(Holder, elements) == 0);
static_assert(offsetof(Holder, owner) == 8);
static_assert(sizeof(Holder) == 24);
static_assert(std::is_same_v<decltype(Holder::elements), std::vector<double>*>);
static_assert(std::is_same_v<decltype(Holder::owner), std::shared_ptr<std::vector<double>>>);

using test::kIsPlainlyOffered;
using test::kMakes;

static_assert(kIsPlainlyOffered<ZyrVector3d>);
static_assert(kIsPlainlyOffered<ZyrColor>);
static_assert(kIsPlainlyOffered<ZyrVector3dArray>);
static_assert(kIsPlainlyOffered<Zyr3DDoubleArray>);
static_assert(kIsPlainlyOffered<Zyr3DIntArray>);
static_assert(kIsPlainlyOffered<ZyrColorArray>);
static_assert(kIsPlainlyOffered<Zyr3DInner>);

static_assert(kMakes<ZyrVector3d, double, double, double>);
static_assert(!kMakes<ZyrVector3d, double, double, long double>);
static_assert(kMakes<ZyrColor, int, int, int, int>);
static_assert(!kMakes<ZyrColor, int, int, int, long>);
static_assert(kMakes<ZyrVector3dArray, double*, int, double>);
static_assert(!kMakes<ZyrVector3dArray, const double*, int, double>);
static_assert(!kMakes<ZyrVector3dArray, double*, long, double>);
static_assert(!kMakes<ZyrVector3dArray, int>);
static_assert(kMakes<Zyr3DDoubleArray, double*, int, double>);
static_assert(!kMakes<Zyr3DDoubleArray, const double*, int, double>);
static_assert(!kMakes<Zyr3DDoubleArray, double*, long, double>);
static_assert(!kMakes<Zyr3DDoubleArray, int>);
static_assert(kMakes<Zyr3DIntArray, int*, int>);
static_assert(!kMakes<Zyr3DIntArray, const int*, int>);
static_assert(!kMakes<Zyr3DIntArray, int*, long>);
static_assert(!kMakes<Zyr3DIntArray, int>);
static_assert(kMakes<ZyrColorArray, void*, int, int>);
static_assert(!kMakes<ZyrColorArray, const void*, int, int>);
static_assert(!kMakes<ZyrColorArray, void*, int, long>);
static_assert(kMakes<ZyrColorArray, void*, int, int, int>);
static_assert(!kMakes<ZyrColorArray, const void*, int, int, int>);
static_assert(!kMakes<ZyrColorArray, int, int>);

// Listed without default arguments.
static_assert(!std::is_constructible_v<ZyrVector3dArray, double*, int>);
static_assert(!std::is_constructible_v<Zyr3DDoubleArray, double*, int>);
static_assert(!std::is_constructible_v<Zyr3DIntArray, int*, int, int>);
static_assert(!std::is_constructible_v<ZyrVector3d, double, double>);
static_assert(!std::is_constructible_v<ZyrColor, int, int, int>);

namespace vector {
using V = ZyrVector3d;
[[maybe_unused]] constexpr V (V::*add)(const V&) const = &V::operator+;
[[maybe_unused]] constexpr V (V::*subtract)(const V&) const = &V::operator-;
[[maybe_unused]] constexpr V (V::*scale)(double) const = &V::operator*;
[[maybe_unused]] constexpr V (V::*divide)(double) const = &V::operator/;
[[maybe_unused]] constexpr bool (V::*equal)(const V&) = &V::operator==;
[[maybe_unused]] constexpr bool (V::*isValid)() = &V::IsValid;
[[maybe_unused]] constexpr void (V::*inValidate)() = &V::InValidate;
[[maybe_unused]] constexpr V (V::*minimum)(const V&) = &V::Minimum;
[[maybe_unused]] constexpr V (V::*maximum)(const V&) = &V::Maximum;
[[maybe_unused]] constexpr V (V::*abs)() = &V::Abs;
[[maybe_unused]] constexpr bool (V::*equals)(const V&, double) = &V::Equals;
[[maybe_unused]] constexpr double (V::*norm)() const = &V::Norm;
[[maybe_unused]] constexpr double (V::*dot)(const V&) = &V::Dot;
[[maybe_unused]] constexpr V (V::*cross)(const V&) = &V::Cross;
[[maybe_unused]] constexpr V (V::*normalized)() = &V::Normalized;
[[maybe_unused]] constexpr bool (V::*isNormalized)() const = &V::IsNormalized;
}  // namespace vector

/// What all three sharing arrays list alike.
template <class A, class Element, class Flat>
struct SharingArray {
    static constexpr A& (A::*assign)(const A&) = &A::operator=;
    static constexpr A (A::*deepCopy)() = &A::DeepCopy;
    static constexpr int (A::*length)() const = &A::Length;
    static constexpr Flat* (A::*data)() const = &A::Data;
    static constexpr void (A::*setSize)(int) = &A::SetSize;
    static constexpr void (A::*append)(const Element&) = &A::Append;
    static constexpr void (A::*appendAll)(const A&) = &A::Append;
    static constexpr void (A::*remove)(int) = &A::Remove;
    static constexpr void (A::*clear)() = &A::Clear;
    static constexpr Element& (A::*refer)(int) = &A::operator[];
    static constexpr Element (A::*copy)(int) const = &A::operator[];
};
template struct SharingArray<ZyrVector3dArray, ZyrVector3d, double>;
template struct SharingArray<Zyr3DDoubleArray, double, double>;
template struct SharingArray<Zyr3DIntArray, int, int>;

namespace vectors {
using A = ZyrVector3dArray;
[[maybe_unused]] constexpr int (A::*numValidPoints)() const = &A::NumValidPoints;
[[maybe_unused]] constexpr void (A::*insert)(int, ZyrVector3d&) = &A::Insert;
[[maybe_unused]] constexpr void (A::*replace)(int, ZyrVector3d&) = &A::Replace;
[[maybe_unused]] constexpr void (A::*select)(int, ZyrVector3d*) = &A::Select;
[[maybe_unused]] constexpr void (A::*swap)(int, int) = &A::Swap;
}  // namespace vectors

namespace doubles {
using A = Zyr3DDoubleArray;
[[maybe_unused]] constexpr bool (A::*isValid)(int) = &A::IsValid;
[[maybe_unused]] constexpr void (A::*insert)(int, double) = &A::Insert;
[[maybe_unused]] constexpr void (A::*replace)(int, double) = &A::Replace;
[[maybe_unused]] constexpr void (A::*select)(int, double*) const = &A::Select;
}  // namespace doubles

namespace integers {
using A = Zyr3DIntArray;
[[maybe_unused]] constexpr bool (A::*isValid)(int) = &A::IsValid;
[[maybe_unused]] constexpr void (A::*insert)(int, int) = &A::Insert;
[[maybe_unused]] constexpr void (A::*replace)(int, int) = &A::Replace;
[[maybe_unused]] constexpr void (A::*select)(int, int*) = &A::Select;
[[maybe_unused]] constexpr void (A::*swap)(int, int) = &A::Swap;
}  // namespace integers

namespace colors {
using A = ZyrColorArray;
[[maybe_unused]] constexpr A& (A::*assign)(const A&) = &A::operator=;
[[maybe_unused]] constexpr A (A::*deepCopy)() = &A::DeepCopy;
[[maybe_unused]] constexpr int (A::*width)() const = &A::Width;
[[maybe_unused]] constexpr int (A::*height)() const = &A::Height;
[[maybe_unused]] constexpr int (A::*length)() const = &A::Length;
[[maybe_unused]] constexpr int (A::*channel)() const = &A::Channel;
[[maybe_unused]] constexpr unsigned char* (A::*data)() const = &A::Data;
[[maybe_unused]] constexpr void (A::*create)(int, int) = &A::Create;
[[maybe_unused]] constexpr bool (A::*createFrom)(void*, int, int, int) = &A::CreateColorArray;
[[maybe_unused]] constexpr void (A::*setSize)(int, int, int) = &A::SetSize;
[[maybe_unused]] constexpr void (A::*setValues)(int) = &A::SetColor;
[[maybe_unused]] constexpr void (A::*setColors)(ZyrColor) = &A::SetColor;
[[maybe_unused]] constexpr bool (A::*setRows)(void*, int, int, int) = &A::SetValue;
[[maybe_unused]] constexpr void (A::*replace)(int, ZyrColor&) = &A::Replace;
[[maybe_unused]] constexpr void (A::*select)(int, ZyrColor*) const = &A::Select;
[[maybe_unused]] constexpr ZyrColor (A::*copy)(int) const = &A::operator[];
[[maybe_unused]] constexpr void (A::*append)(const A&) = &A::Append;
[[maybe_unused]] constexpr void (A::*clear)() = &A::Clear;
[[maybe_unused]] constexpr void (*pack)(int, int, int, int, unsigned int*) = &RGBA2argb;
[[maybe_unused]] constexpr void (*unpack)(unsigned int, int*, int*, int*, int*) = &argb2RGBA;
}  // namespace colors

namespace text {
[[maybe_unused]] constexpr wchar_t* (*widen)(const char*) = &Zyr3DInner::char2wchar;
[[maybe_unused]] constexpr char* (*narrow)(const wchar_t*) = &Zyr3DInner::wchar2char;
[[maybe_unused]] constexpr std::string (*suffix)(const char*) = &Zyr3DInner::getSuffix;
[[maybe_unused]] constexpr std::wstring (*wideSuffix)(const wchar_t*) = &Zyr3DInner::getSuffix;
}  // namespace text
