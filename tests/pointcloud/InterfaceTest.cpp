#include <opencv2/core.hpp>
#include <type_traits>

#include "LZF.h"
#include "Zyr3DFileIO.h"
#include "Zyr3DIntArray.h"
#include "ZyrPointCloud.h"
#include "ZyrPointCloudArray.h"
#include "support/Interface.h"

// The binary interface of soname 3: callers are linked against exactly these names, parameters and
// const. This file compiles or it does not.

using test::kIsPlainlyOffered;
using test::kMakes;

static_assert(kIsPlainlyOffered<ZyrPointCloud>);
static_assert(kIsPlainlyOffered<ZyrPointCloudArray>);
static_assert(sizeof(ZyrPointCloud) == 3 * sizeof(void*));
static_assert(sizeof(ZyrPointCloudArray) == sizeof(void*));

static_assert(
    kMakes<ZyrPointCloud, const ZyrVector3dArray&, const ZyrColorArray&, const ZyrVector3dArray&>);
static_assert(!std::is_constructible_v<ZyrPointCloud, const ZyrVector3dArray&>);
static_assert(
    !std::is_constructible_v<ZyrPointCloud, const ZyrVector3dArray&, const ZyrColorArray&>);
static_assert(kMakes<ZyrPointCloud, void*, int, int, double>);
static_assert(!kMakes<ZyrPointCloud, const void*, int, int, double>);
static_assert(!kMakes<ZyrPointCloud, void*, long, int, double>);
static_assert(!kMakes<ZyrPointCloud, void*, int, int>);
static_assert(!kMakes<ZyrPointCloudArray, int>);
static_assert(!kMakes<ZyrPointCloudArray, const ZyrPointCloud&>);

namespace cloud {
using C = ZyrPointCloud;
[[maybe_unused]] constexpr C& (C::*assign)(const C&) = &C::operator=;
[[maybe_unused]] constexpr void (C::*setPoints)(const ZyrVector3dArray&) = &C::SetPoints;
[[maybe_unused]] constexpr void (C::*setColors)(const ZyrColorArray&) = &C::SetColors;
[[maybe_unused]] constexpr void (C::*setNormals)(const ZyrVector3dArray&) = &C::SetNormals;
[[maybe_unused]] constexpr ZyrVector3dArray& (C::*pointData)() = &C::PointData;
[[maybe_unused]] constexpr ZyrVector3dArray& (C::*normalData)() = &C::NormalData;
[[maybe_unused]] constexpr ZyrColorArray& (C::*colorData)() = &C::ColorData;
[[maybe_unused]] constexpr ZyrVector3dArray (C::*deepCopyPoints)() = &C::DeepCopyPoints;
[[maybe_unused]] constexpr ZyrColorArray (C::*deepCopyColors)() = &C::DeepCopyColors;
[[maybe_unused]] constexpr ZyrVector3dArray (C::*deepCopyNormals)() = &C::DeepCopyNormals;
[[maybe_unused]] constexpr C (C::*deepCopy)() = &C::DeepCopy;
[[maybe_unused]] constexpr int (C::*length)() const = &C::Length;
[[maybe_unused]] constexpr int (C::*numValidPoints)() const = &C::NumValidPoints;
[[maybe_unused]] constexpr bool (C::*isValidColor)() const = &C::IsValidColor;
[[maybe_unused]] constexpr bool (C::*isValidNormal)() const = &C::IsValidNormal;
[[maybe_unused]] constexpr void (C::*invalidatePoint)(int) = &C::InvalidatePoint;
[[maybe_unused]] constexpr ZyrVector3d (C::*point)(int) const = &C::Point;
[[maybe_unused]] constexpr ZyrColor (C::*color)(int) const = &C::Color;
[[maybe_unused]] constexpr ZyrVector3d (C::*normal)(int) const = &C::Normal;
[[maybe_unused]] constexpr ZyrVector3d& (C::*refer)(int) = &C::operator[];
[[maybe_unused]] constexpr ZyrVector3d (C::*copy)(int) const = &C::operator[];
[[maybe_unused]] constexpr void (C::*append)(const C&) = &C::Append;
[[maybe_unused]] constexpr void (C::*clear)() = &C::Clear;
[[maybe_unused]] constexpr bool (C::*load)(const char*, bool, bool) = &C::Load;
[[maybe_unused]] constexpr bool (C::*loadWide)(const wchar_t*, bool, bool) = &C::Load;
[[maybe_unused]] constexpr bool (C::*save)(const char*, bool, bool) = &C::Save;
[[maybe_unused]] constexpr bool (C::*saveWide)(const wchar_t*, bool, bool) = &C::Save;
}  // namespace cloud

namespace clouds {
using A = ZyrPointCloudArray;
[[maybe_unused]] constexpr A (A::*assign)(const A&) = &A::operator=;
[[maybe_unused]] constexpr int (A::*length)() const = &A::Length;
[[maybe_unused]] constexpr void (A::*append)(const ZyrPointCloud&) = &A::Append;
[[maybe_unused]] constexpr void (A::*appendAll)(const A&) = &A::Append;
[[maybe_unused]] constexpr void (A::*insert)(int, ZyrPointCloud&) = &A::Insert;
[[maybe_unused]] constexpr void (A::*remove)(int) = &A::Remove;
[[maybe_unused]] constexpr void (A::*replace)(int, ZyrPointCloud&) = &A::Replace;
[[maybe_unused]] constexpr void (A::*select)(int, ZyrPointCloud*) = &A::Select;
[[maybe_unused]] constexpr void (A::*swap)(int, int) = &A::Swap;
[[maybe_unused]] constexpr void (A::*clear)() = &A::Clear;
[[maybe_unused]] constexpr ZyrPointCloud& (A::*refer)(int) = &A::operator[];
[[maybe_unused]] constexpr ZyrPointCloud (A::*copy)(int) const = &A::operator[];
}  // namespace clouds

// Static operations, so that they are called on the class and on an object of it.
namespace codec {
using Code = int (*)(unsigned char*, int, unsigned char*, int);
[[maybe_unused]] constexpr Code compress = &LZF::compress;
[[maybe_unused]] constexpr Code decompress = &LZF::decompress;
static_assert(kIsPlainlyOffered<LZF> && std::is_empty_v<LZF>);
static_assert(std::is_same_v<decltype(&LZF().compress), Code>);
static_assert(std::is_same_v<decltype(&LZF().decompress), Code>);
static_assert(HLOG == 14 && HSIZE == 16384 && MAX_LIT == 32 && MAX_OFF == 8192 && MAX_REF == 264);
static_assert(std::is_same_v<decltype(HSIZE), const int>);
}  // namespace codec

namespace files {
using IO = Zyr3DFileIO;
using Points = ZyrVector3dArray;
using Cloud = bool (*)(Points&, Points&, cv::Mat&, const char*, bool, bool);
using Mesh = bool (*)(Points&, Points&, cv::Mat&, Zyr3DIntArray&, Points&, cv::Mat&, const char*,
                      bool, bool);
[[maybe_unused]] constexpr Cloud saveCloud = &IO::SavePointCloud;
[[maybe_unused]] constexpr Cloud loadCloud = &IO::LoadPointCloud;
[[maybe_unused]] constexpr Mesh saveMesh = &IO::SaveTriangleMesh;
[[maybe_unused]] constexpr Mesh loadMesh = &IO::LoadTriangleMesh;
static_assert(kIsPlainlyOffered<IO> && std::is_empty_v<IO>);
static_assert(std::is_same_v<decltype(&IO().SavePointCloud), Cloud>);
static_assert(std::is_same_v<decltype(&IO().LoadPointCloud), Cloud>);
static_assert(std::is_same_v<decltype(&IO().SaveTriangleMesh), Mesh>);
static_assert(std::is_same_v<decltype(&IO().LoadTriangleMesh), Mesh>);
}  // namespace files
