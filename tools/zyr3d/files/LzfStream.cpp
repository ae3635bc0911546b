#include "files/LzfStream.h"

#include <cstring>

#include "LZF.h"

namespace zyr {
namespace {

struct Chunk {
    std::size_t bytes;     ///< in the stream
    std::size_t length;    ///< of its output
    std::size_t distance;  ///< back to what it copies; 0 for literals
};

Chunk chunkAt(const unsigned char* in, std::size_t left) {
    const std::size_t control = in[0];
    if (control < MAX_LIT) return {control + 2, control + 1, 0};
    const bool isLong = control >> 5 == 7;
    const std::size_t bytes = isLong ? 3 : 2;
    if (left < bytes) return {bytes, 0, 0};
    return {bytes, (control >> 5) + 2 + (isLong ? in[1] : 0U),
            ((control & 31) << 8) + in[bytes - 1] + 1};
}

void copyBack(unsigned char* out, const Chunk& chunk) {
    for (std::size_t i = 0; i < chunk.length; ++i) out[i] = *(out + i - chunk.distance);
}

}  // namespace

LzfWalk decodeLzf(const unsigned char* in, std::size_t inSize, unsigned char* out,
                  std::size_t outSize) {
    LzfWalk end;
    while (end.at < inSize) {
        const std::size_t left = inSize - end.at;
        const Chunk chunk = chunkAt(in + end.at, left);
        if (chunk.bytes > left)
            end.fault = "the stream's last chunk is cut";
        else if (chunk.length > outSize - end.produced)
            end.fault = "the stream gives more bytes than it should";
        else if (chunk.distance > end.produced)
            end.fault = "the stream refers to before its output";
        if (!end.fault.empty()) return end;
        if (chunk.distance == 0)
            std::memcpy(out + end.produced, in + end.at + 1, chunk.length);
        else
            copyBack(out + end.produced, chunk);
        end.at += chunk.bytes;
        end.produced += chunk.length;
    }
    return end;
}

std::size_t lzfChunkOf(const unsigned char* in, std::size_t inSize, std::size_t position) {
    std::size_t at = 0;
    for (std::size_t produced = 0; at < inSize;) {
        const Chunk chunk = chunkAt(in + at, inSize - at);
        produced += chunk.length;
        if (produced > position) break;
        at += chunk.bytes;
    }
    return at;
}

}  // namespace zyr
