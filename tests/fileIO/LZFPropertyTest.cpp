#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "LZF.h"
#include "fileIO/LzfCodec.h"
#include "support/Lzf.h"
#include "support/PlainLzf.h"

using test::Bytes;

namespace {

Bytes roundTrip(const Bytes& data) {
    return test::lzfDecompressed(test::lzfCompressed(data), data.size());
}

/// Bytes with repeats: a few values, blocks copied from before.
rc::Gen<Bytes> repetitiveBytes() {
    return rc::gen::map(
        rc::gen::container<std::vector<std::pair<unsigned char, unsigned char>>>(rc::gen::pair(
            rc::gen::arbitrary<unsigned char>(), rc::gen::arbitrary<unsigned char>())),
        [](const std::vector<std::pair<unsigned char, unsigned char>>& steps) {
            Bytes bytes;
            for (const auto& [back, count] : steps) {
                bytes.push_back(back);
                for (int k = 0; k < count; ++k)
                    bytes.push_back(bytes[bytes.size() - 1 - back % bytes.size()]);
            }
            return bytes;
        });
}

}  // namespace

RC_GTEST_PROP(LZFProperty, AnyBytesComeBack, (const Bytes& data)) {
    RC_ASSERT(roundTrip(data) == data);
}

RC_GTEST_PROP(LZFProperty, RepetitiveBytesComeBack, ()) {
    const Bytes data = *repetitiveBytes();
    RC_ASSERT(roundTrip(data) == data);
}

RC_GTEST_PROP(LZFProperty, AnyStreamReadsAsTheFormatIsWorded, (const Bytes& stream)) {
    // The last chunk may reach behind the input by 32 bytes.
    Bytes padded = test::joined(stream, Bytes(32));
    const auto outLen = *rc::gen::inRange<std::size_t>(0, 600);
    const test::PlainResult plain = test::plainDecode(padded, stream.size(), outLen);
    Bytes out(outLen);
    const int produced = LZF::decompress(padded.data(), static_cast<int>(stream.size()), out.data(),
                                         static_cast<int>(outLen));
    RC_ASSERT(produced == static_cast<int>(plain.bytes.size()));
    RC_ASSERT(test::prefix(out, plain.bytes.size()) == plain.bytes);
}

RC_GTEST_PROP(LZFProperty, StrictDecodingOfAnyBytesGivesWhatTheyHold, (const Bytes& bytes)) {
    const Bytes stream = test::prefix(bytes, bytes.size());
    RC_PRE(!stream.empty());
    const auto outLen = *rc::gen::inRange<std::size_t>(0, 600);
    const test::PlainResult plain = test::plainDecode(stream, stream.size(), outLen);
    Bytes out(outLen);
    const zyr::LzfResult result =
        zyr::lzfDecompress(stream.data(), stream.size(), out.data(), outLen);
    const bool isError =
        result.end == zyr::LzfEnd::Overrun || result.end == zyr::LzfEnd::BadReference;
    RC_ASSERT(isError == plain.isError);
    RC_ASSERT((result.end == zyr::LzfEnd::Cut) == plain.isCut);
    if (!isError) RC_ASSERT(test::prefix(out, result.produced) == plain.bytes);
}
