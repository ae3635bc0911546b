#pragma once

#include "fileIO/LzfFormat.h"

/// Block encoders for columns of numbers; as lzfEncodeBlock, for 16 bytes or more.
namespace zyr {

/// Doubles that were floats, but for a few.
std::size_t lzfEncodeFloatBorn(const Byte* in, std::size_t size, Byte* out);

/// Doubles whose values or lower halves return, such as decimals.
std::size_t lzfEncodeDoubles(const Byte* in, std::size_t size, Byte* out);

/// 32-bit integers whose values return, such as a mesh's indices.
std::size_t lzfEncodeIntegers(const Byte* in, std::size_t size, Byte* out);

}  // namespace zyr
