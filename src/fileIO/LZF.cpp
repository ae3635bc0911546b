#include "LZF.h"

#include <algorithm>

#include "fileIO/LzfCodec.h"

namespace {

std::size_t length(int value) {
    return static_cast<std::size_t>(std::max(value, 0));
}

}  // namespace

int LZF::compress(unsigned char* in, int inLen, unsigned char* out, int outLen) {
    return static_cast<int>(zyr::lzfCompress(in, length(inLen), out, length(outLen)));
}

int LZF::decompress(unsigned char* in, int inLen, unsigned char* out, int outLen) {
    const zyr::LzfResult result = zyr::lzfDecompressTrusted(in, length(inLen), out, length(outLen));
    return result.end == zyr::LzfEnd::Whole ? static_cast<int>(result.produced) : 0;
}
