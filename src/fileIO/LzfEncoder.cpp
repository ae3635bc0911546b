#include "fileIO/LzfEncoder.h"

#include "fileIO/LzfCodec.h"

namespace zyr {

std::size_t lzfEncodeBlock(const Byte* in, std::size_t size, std::size_t /*width*/, Byte* out) {
    return lzfCompress(in, size, out, lzfWorstCase(size));
}

}  // namespace zyr
