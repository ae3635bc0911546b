#pragma once

#include "fileIO/LzfFormat.h"

/// Block encoders for any bytes; as lzfEncodeBlock, for 16 bytes or more.
namespace zyr {

/// Bytes, looked at one by one.
std::size_t lzfEncodeBytes(const Byte* in, std::size_t size, Byte* out);

/// 16-bit values, three at a time.
std::size_t lzfEncodeShorts(const Byte* in, std::size_t size, Byte* out);

/// 16-bit values of which three seldom return: their bytes, four at a time.
std::size_t lzfEncodeNoisyShorts(const Byte* in, std::size_t size, Byte* out);

}  // namespace zyr
