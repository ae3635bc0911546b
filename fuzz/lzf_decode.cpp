#include <liblzf/lzf.h>

#include "Harness.h"
#include "LZF.h"
#include "fileIO/LzfCodec.h"
#include "support/PlainLzf.h"

// Input: the room for the output, then the stream. In buffers of exactly their size the decoder
// gives what a byte-wise one gives.

namespace {

using fuzz::Bytes;
using fuzz::require;

void compareWithPlain(const Bytes& stream, std::size_t room, const test::PlainResult& plain) {
    const Bytes in(stream);
    Bytes out(room);
    const zyr::LzfResult result = zyr::lzfDecompress(in.data(), in.size(), out.data(), room);
    const bool isError =
        result.end == zyr::LzfEnd::Overrun || result.end == zyr::LzfEnd::BadReference;
    require(isError == plain.isError, "errors are those of the plain decoder");
    if (isError) return;
    require((result.end == zyr::LzfEnd::Cut) == plain.isCut, "so is the cut");
    require(test::prefix(out, result.produced) == plain.bytes, "so are the bytes");
}

/// The public form, which trusts the stream to be whole.
void compareTrusted(Bytes stream, std::size_t room, const test::PlainResult& plain) {
    Bytes out(room);
    const int produced = LZF::decompress(stream.data(), static_cast<int>(stream.size()), out.data(),
                                         static_cast<int>(room));
    require(static_cast<std::size_t>(produced) == plain.bytes.size(), "LZF::decompress's length");
    require(test::prefix(out, plain.bytes.size()) == plain.bytes, "LZF::decompress's bytes");
}

void compareWithLiblzf(const Bytes& stream, std::size_t room, const test::PlainResult& plain) {
    Bytes out(room);
    const unsigned produced = lzf_decompress(stream.data(), static_cast<unsigned>(stream.size()),
                                             out.data(), static_cast<unsigned>(room));
    require(produced == plain.bytes.size(), "liblzf's length");
    require(test::prefix(out, produced) == plain.bytes, "liblzf's bytes");
}

}  // namespace

void fuzz::fuzzOne(Bytes input) {
    const std::size_t room = take<std::uint16_t>(input);
    input.shrink_to_fit();
    const Bytes stream = input.empty() ? Bytes() : Bytes(input.begin(), input.end());
    if (stream.empty()) return;
    const test::PlainResult plain = test::plainDecode(stream, stream.size(), room);
    compareWithPlain(stream, room, plain);
    if (plain.isCut) return;
    compareTrusted(stream, room, plain);
    compareWithLiblzf(stream, room, plain);
}
