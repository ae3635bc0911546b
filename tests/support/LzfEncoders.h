#pragma once

#include "fileIO/LzfColumns.h"
#include "fileIO/LzfGreedy.h"

namespace test {

/// The encoders that a block's values choose from, each good for any bytes.
constexpr struct {
    const char* name;
    std::size_t (*encode)(const zyr::Byte*, std::size_t, zyr::Byte*);
} kEncoders[] = {
    {"float-born", zyr::lzfEncodeFloatBorn}, {"doubles", zyr::lzfEncodeDoubles},
    {"integers", zyr::lzfEncodeIntegers},    {"bytes", zyr::lzfEncodeBytes},
    {"shorts", zyr::lzfEncodeShorts},        {"noisy shorts", zyr::lzfEncodeNoisyShorts},
};

}  // namespace test
