#include <type_traits>

#include "ZyrRangeImage.h"
#include "ZyrRangeImageArray.h"
#include "support/Interface.h"

// Callers are linked against exactly these names, parameters and const. This file compiles or it
// does not.

static_assert(test::kIsPlainlyOffered<ZyrRangeImage>);
static_assert(test::kIsPlainlyOffered<ZyrRangeImageArray>);
static_assert(sizeof(ZyrRangeImage) == sizeof(void*));
static_assert(sizeof(ZyrRangeImageArray) == sizeof(void*));

namespace image {
using I = ZyrRangeImage;
[[maybe_unused]] constexpr I& (I::*assign)(const I&) = &I::operator=;
[[maybe_unused]] constexpr I (I::*deepCopy)() = &I::DeepCopy;
[[maybe_unused]] constexpr ZyrImage (I::*deepCopyValues)() const = &I::DeepCopyValues;
[[maybe_unused]] constexpr ZyrColorArray (I::*deepCopyColors)() const = &I::DeepCopyColors;
[[maybe_unused]] constexpr void (I::*clear)() = &I::Clear;
[[maybe_unused]] constexpr void (I::*setSize)(int, int, int) = &I::SetSize;
[[maybe_unused]] constexpr void (I::*setColorSize)(int, int, int) = &I::SetColorSize;
[[maybe_unused]] constexpr void (I::*setInfo)(double, double, double, double, double,
                                              double) = &I::SetInfo;
[[maybe_unused]] constexpr bool (I::*create)(void*, int, int, int, int, double, double, double,
                                             double, double, double, double,
                                             double) = &I::CreateRangeImage;
[[maybe_unused]] constexpr bool (I::*setValue)(void*, int, double, double, int, int) = &I::SetValue;
[[maybe_unused]] constexpr bool (I::*setColorValue)(void*, int, int, int, int) = &I::SetColorValue;
[[maybe_unused]] constexpr void* (I::*data)() const = &I::Data;
[[maybe_unused]] constexpr unsigned char* (I::*colorData)() const = &I::ColorData;
[[maybe_unused]] constexpr bool (I::*isValidColor)() const = &I::IsValidColor;
[[maybe_unused]] constexpr double (I::*getValue)(int, int) const = &I::GetValue;
[[maybe_unused]] constexpr ZyrColor (I::*getColor)(int, int) const = &I::GetColor;
[[maybe_unused]] constexpr int (I::*dataType)() const = &I::DataType;
[[maybe_unused]] constexpr int (I::*width)() const = &I::Width;
[[maybe_unused]] constexpr int (I::*height)() const = &I::Height;
[[maybe_unused]] constexpr double (I::*minValue)() const = &I::MinValue;
[[maybe_unused]] constexpr double (I::*maxValue)() const = &I::MaxValue;
[[maybe_unused]] constexpr double (I::*resolutionX)() const = &I::ResolutionX;
[[maybe_unused]] constexpr double (I::*offsetX)() const = &I::OffsetX;
[[maybe_unused]] constexpr double (I::*resolutionY)() const = &I::ResolutionY;
[[maybe_unused]] constexpr double (I::*offsetY)() const = &I::OffsetY;
[[maybe_unused]] constexpr double (I::*resolutionZ)() const = &I::ResolutionZ;
[[maybe_unused]] constexpr double (I::*offsetZ)() const = &I::OffsetZ;
[[maybe_unused]] constexpr bool (I::*load)(const char*, bool) = &I::Load;
[[maybe_unused]] constexpr bool (I::*loadWide)(const wchar_t*, bool) = &I::Load;
[[maybe_unused]] constexpr bool (I::*loadImage)(const char*, double, double) = &I::Load;
[[maybe_unused]] constexpr bool (I::*loadImageWide)(const wchar_t*, double, double) = &I::Load;
[[maybe_unused]] constexpr bool (I::*save)(const char*, bool) = &I::Save;
[[maybe_unused]] constexpr bool (I::*saveWide)(const wchar_t*, bool) = &I::Save;
[[maybe_unused]] constexpr bool (I::*saveImage)(const char*) = &I::Save;
[[maybe_unused]] constexpr bool (I::*saveImageWide)(const wchar_t*) = &I::Save;
}  // namespace image

namespace images {
using A = ZyrRangeImageArray;
[[maybe_unused]] constexpr A& (A::*assign)(const A&) = &A::operator=;
[[maybe_unused]] constexpr int (A::*length)() = &A::Length;
[[maybe_unused]] constexpr void (A::*append)(const ZyrRangeImage&) = &A::Append;
[[maybe_unused]] constexpr void (A::*appendAll)(const A&) = &A::Append;
[[maybe_unused]] constexpr void (A::*insert)(int, ZyrRangeImage&) = &A::Insert;
[[maybe_unused]] constexpr void (A::*remove)(int) = &A::Remove;
[[maybe_unused]] constexpr void (A::*replace)(int, ZyrRangeImage&) = &A::Replace;
[[maybe_unused]] constexpr void (A::*select)(int, ZyrRangeImage*) = &A::Select;
[[maybe_unused]] constexpr void (A::*swap)(int, int) = &A::Swap;
[[maybe_unused]] constexpr void (A::*clear)() = &A::Clear;
[[maybe_unused]] constexpr ZyrRangeImage (A::*pick)(int) = &A::operator[];
[[maybe_unused]] constexpr ZyrRangeImage (A::*pickConst)(int) const = &A::operator[];
}  // namespace images
