#pragma once

#include "LZF.h"
#include "support/Bytes.h"

/// The library's codec on byte strings, in buffers of exactly the size that is promised to do.
namespace test {

inline Bytes lzfCompressed(Bytes data) {
    Bytes out(data.size() + (data.size() + 31) / 32);
    const int size = LZF::compress(data.data(), static_cast<int>(data.size()), out.data(),
                                   static_cast<int>(out.size()));
    return prefix(out, static_cast<std::size_t>(size));
}

/// Nothing gives nothing; the decoder itself takes one chunk at least.
inline Bytes lzfDecompressed(Bytes stream, std::size_t size) {
    if (stream.empty()) return {};
    Bytes out(size);
    const int produced = LZF::decompress(stream.data(), static_cast<int>(stream.size()), out.data(),
                                         static_cast<int>(size));
    return prefix(out, static_cast<std::size_t>(produced));
}

}  // namespace test
