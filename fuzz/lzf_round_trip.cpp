#include <liblzf/lzf.h>

#include "Harness.h"
#include "LZF.h"
#include "fileIO/LzfEncoder.h"
#include "support/PlainLzf.h"

// Input: how often the bytes are repeated, how they change each time, then the bytes. What is
// compressed, as the text of the compressor has it and as files hold it, comes back by three
// decoders, and liblzf's streams come back too.

namespace {

using fuzz::Bytes;
using fuzz::require;

Bytes dataOf(Bytes input) {
    const std::size_t times = 1 + fuzz::take<std::uint8_t>(input) % 8U;
    const auto change = fuzz::take<std::uint8_t>(input);
    Bytes data;
    for (std::size_t i = 0; i < times && data.size() < 9000 && !input.empty(); ++i) {
        data.insert(data.end(), input.begin(), input.end());
        input[i % input.size()] = static_cast<unsigned char>(input[i % input.size()] + change);
    }
    return Bytes(data);
}

int compress(Bytes& data, Bytes& stream) {
    return LZF::compress(data.data(), static_cast<int>(data.size()), stream.data(),
                         static_cast<int>(stream.size()));
}

Bytes decompressed(Bytes stream, std::size_t size) {
    Bytes out(size);
    const int produced = LZF::decompress(stream.data(), static_cast<int>(stream.size()), out.data(),
                                         static_cast<int>(size));
    return test::prefix(out, static_cast<std::size_t>(produced));
}

Bytes decompressedByLiblzf(const Bytes& stream, std::size_t size) {
    Bytes out(size);
    const unsigned produced = lzf_decompress(stream.data(), static_cast<unsigned>(stream.size()),
                                             out.data(), static_cast<unsigned>(size));
    return test::prefix(out, produced);
}

/// With exactly the room that the stream takes, and with a byte less.
void checkRoom(Bytes& data, const Bytes& stream) {
    Bytes exact(stream.size());
    require(compress(data, exact) == static_cast<int>(stream.size()), "exact room is enough");
    require(exact == stream, "the stream does not depend on the room");
    Bytes less(stream.size() - 1);
    require(compress(data, less) == 0, "a byte less is not enough");
}

void checkLiblzfStream(const Bytes& data) {
    Bytes stream(data.size() + data.size() / 16 + 64);
    const unsigned size = lzf_compress(data.data(), static_cast<unsigned>(data.size()),
                                       stream.data(), static_cast<unsigned>(stream.size()));
    require(size > 0, "liblzf compresses");
    require(decompressed(test::prefix(stream, size), data.size()) == data, "liblzf's stream");
}

/// As the body of a file, for values of each width.
void checkBlocks(const Bytes& data) {
    const Bytes block = test::prefix(data, zyr::kLzfBlock);
    for (const std::size_t width : {8U, 4U, 2U, 1U}) {
        Bytes stream(zyr::lzfBlockRoom(block.size()));
        stream.resize(zyr::lzfEncodeBlock(block.data(), block.size(), width, stream.data()));
        require(stream.size() <= zyr::lzfWorstCase(block.size()), "a block's worst case");
        require(test::plainDecode(stream, block.size()) == block, "a block comes back");
        require(decompressed(stream, block.size()) == block, "LZF::decompress gives the block");
        require(decompressedByLiblzf(stream, block.size()) == block, "liblzf gives the block");
    }
}

}  // namespace

void fuzz::fuzzOne(Bytes input) {
    Bytes data = dataOf(std::move(input));
    if (data.empty()) return;
    Bytes room(data.size() + (data.size() + 31) / 32);
    const int size = compress(data, room);
    require(size > 0, "the worst case is enough room");
    const Bytes stream = test::prefix(room, static_cast<std::size_t>(size));
    require(stream == test::plainEncode(data), "the stream is that of the plain encoder");
    require(decompressed(stream, data.size()) == data, "LZF::decompress gives the data");
    require(test::plainDecode(stream, data.size()) == data, "the plain decoder gives the data");
    require(decompressedByLiblzf(stream, data.size()) == data, "liblzf gives the data");
    checkRoom(data, stream);
    checkLiblzfStream(data);
    checkBlocks(data);
}
