#pragma once

#include <cstddef>

#include "support/Bytes.h"

/// LZF written byte by byte as its format is worded, for comparison: slow and plain.
namespace test {

/// What decoding gives; no bytes on an error.
struct PlainResult {
    Bytes bytes;
    bool isError = false;
    bool isCut = false;  ///< the input ended inside a chunk
};

/// Decodes while fewer than inLen bytes are used, at least one chunk. Bytes beyond the vector count
/// as the end of the input; pass a vector longer than inLen to let the last chunk reach past it.
inline PlainResult plainDecode(const Bytes& in, std::size_t inLen, std::size_t outLen) {
    PlainResult result;
    Bytes& out = result.bytes;
    const PlainResult error{{}, true, false};
    std::size_t i = 0;
    do {
        if (i >= in.size()) {
            result.isCut = true;
            return result;
        }
        const std::size_t c = in[i++];
        if (c < 32) {
            if (out.size() + c + 1 > outLen) return error;
            for (std::size_t k = 0; k < c + 1; ++k) {
                if (i >= in.size()) {
                    result.isCut = true;
                    return result;
                }
                out.push_back(in[i++]);
            }
        } else {
            std::size_t length = c >> 5;
            if (i + (length == 7 ? 2 : 1) > in.size()) {
                result.isCut = true;
                return result;
            }
            if (length == 7) length += in[i++];
            const std::size_t distance = ((c & 31) << 8) + in[i++] + 1;
            if (out.size() + length + 2 > outLen || distance > out.size()) return error;
            for (std::size_t k = 0; k < length + 2; ++k) out.push_back(out[out.size() - distance]);
        }
    } while (i < inLen);
    return result;
}

inline Bytes plainDecode(const Bytes& stream, std::size_t outLen) {
    return plainDecode(stream, stream.size(), outLen).bytes;
}

/// Encodes as LZF::compress must, byte for byte. A table of 16384 positions, zero at first, holds
/// where each hash of three bytes was last. While four bytes remain, the position there is
/// exchanged for the present one; if it lies 1 to 8192 bytes back and three bytes or more are
/// equal, up to 264 become a reference, else one byte becomes a literal. Behind a reference its
/// last two positions are entered.
inline Bytes plainEncode(const Bytes& in) {
    std::vector<std::size_t> last(16384, 0);
    const auto exchange = [&](std::size_t i) {
        const unsigned h = static_cast<unsigned>(in[i] << 16 | in[i + 1] << 8 | in[i + 2]);
        const std::size_t before = last[(((h ^ (h << 5)) >> 10) - h * 5) & 16383];
        last[(((h ^ (h << 5)) >> 10) - h * 5) & 16383] = i;
        return before;
    };
    Bytes out;
    Bytes pending;
    const auto flush = [&] {
        for (std::size_t i = 0; i < pending.size(); ++i) {
            if (i % 32 == 0)
                out.push_back(
                    static_cast<unsigned char>(std::min<std::size_t>(32, pending.size() - i) - 1));
            out.push_back(pending[i]);
        }
        pending.clear();
    };
    std::size_t i = 0;
    while (i + 4 <= in.size()) {
        const std::size_t before = exchange(i);
        std::size_t length = 0;
        if (before < i && i - before <= 8192)
            while (length < 264 && i + length < in.size() && in[before + length] == in[i + length])
                ++length;
        if (length < 3) {
            pending.push_back(in[i++]);
            continue;
        }
        flush();
        const std::size_t offset = i - before - 1;
        const std::size_t code = std::min<std::size_t>(length - 2, 7);
        out.push_back(static_cast<unsigned char>(code << 5 | offset >> 8));
        if (code == 7) out.push_back(static_cast<unsigned char>(length - 9));
        out.push_back(static_cast<unsigned char>(offset & 255));
        i += length;
        for (std::size_t p = i - 2; p < i && p + 3 <= in.size(); ++p) exchange(p);
    }
    pending.insert(pending.end(), in.begin() + static_cast<std::ptrdiff_t>(i), in.end());
    flush();
    return out;
}

/// The bytes as literal runs of up to 32: the plainest stream, and the longest of a sane encoder.
inline Bytes literalStream(const Bytes& bytes) {
    Bytes stream;
    for (std::size_t i = 0; i < bytes.size(); i += 32) {
        const std::size_t run = std::min<std::size_t>(32, bytes.size() - i);
        stream.push_back(static_cast<unsigned char>(run - 1));
        const auto first = bytes.begin() + static_cast<std::ptrdiff_t>(i);
        stream.insert(stream.end(), first, first + static_cast<std::ptrdiff_t>(run));
    }
    return stream;
}

/// A chunk as it stands in a stream.
struct Chunk {
    bool isReference;
    std::size_t length;    ///< bytes of output
    std::size_t distance;  ///< of a reference
};

/// The chunks of a sound stream.
inline std::vector<Chunk> chunksOf(const Bytes& stream) {
    std::vector<Chunk> chunks;
    for (std::size_t i = 0; i < stream.size();) {
        const std::size_t c = stream[i++];
        if (c < 32) {
            chunks.push_back({false, c + 1, 0});
            i += c + 1;
            continue;
        }
        std::size_t length = c >> 5;
        if (length == 7) length += stream[i++];
        chunks.push_back({true, length + 2, ((c & 31) << 8) + stream[i++] + 1});
    }
    return chunks;
}

}  // namespace test
