// The codec beside liblzf and beside itself as it is worded, byte by byte. Columns are encoded
// block by block as files are; liblzf and the plain form take them in one go. "decode" reads what
// liblzf wrote, "decode-own" what our block encoder wrote.

#include <benchmark/benchmark.h>
#include <liblzf/lzf.h>

#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Inputs.h"
#include "PlainCodec.h"
#include "fileIO/LzfCodec.h"
#include "fileIO/LzfEncoder.h"

namespace {

using bench::Byte;
using Bytes = std::vector<Byte>;

struct Set {
    std::string name;
    std::size_t width;           ///< bytes of a value
    std::vector<Bytes> columns;  ///< encoded on their own
    Bytes bytes;                 ///< one after the other
    Bytes there, own;            ///< liblzf's stream, our blocks
};

using SharedSet = std::shared_ptr<const Set>;

std::size_t encodeBlocks(const Set& set, Byte* out) {
    std::size_t size = 0;
    for (const Bytes& column : set.columns)
        for (std::size_t i = 0; i < column.size(); i += zyr::kLzfBlock)
            size +=
                zyr::lzfEncodeBlock(column.data() + i, std::min(zyr::kLzfBlock, column.size() - i),
                                    set.width, out + size);
    return size;
}

std::size_t encodeThere(const Bytes& bytes, Bytes& out) {
    return lzf_compress(bytes.data(), static_cast<unsigned>(bytes.size()), out.data(),
                        static_cast<unsigned>(out.size()));
}

std::size_t room(const Set& set) {
    return zyr::lzfBlockRoom(set.bytes.size()) + 64 * set.columns.size() + set.bytes.size() / 16;
}

/// Values that lie a0 b0 c0 a1 ... as columns.
template <class T>
SharedSet columnsOf(const std::string& name, const std::vector<T>& values, std::size_t columns) {
    auto set = std::make_shared<Set>(Set{name, sizeof(T), std::vector<Bytes>(columns), {}, {}, {}});
    for (std::size_t i = 0; i < values.size(); ++i) {
        const auto* first = reinterpret_cast<const Byte*>(&values[i]);
        Bytes& column = set->columns[i % columns];
        column.insert(column.end(), first, first + sizeof(T));
    }
    for (const Bytes& column : set->columns)
        set->bytes.insert(set->bytes.end(), column.begin(), column.end());
    set->there.resize(room(*set));
    set->own.resize(room(*set));
    set->there.resize(encodeThere(set->bytes, set->there));
    set->own.resize(encodeBlocks(*set, set->own.data()));
    return set;
}

std::vector<std::uint32_t> colourWords(const std::vector<Byte>& bgr) {
    std::vector<std::uint32_t> words;
    for (std::size_t i = 0; i + 2 < bgr.size(); i += 3)
        words.push_back(0xFF000000U | std::uint32_t(bgr[i + 2]) << 16 |
                        std::uint32_t(bgr[i + 1]) << 8 | bgr[i]);
    return words;
}

/// The counter "item" holds the seconds of a value, "bytes" the stream's size, "ratio" that over
/// liblzf's.
void add(const SharedSet& set, const std::string& operation, const std::string& competitor,
         const std::function<std::size_t(Bytes&)>& call, bool isEncoding) {
    const auto run = [=](benchmark::State& state) {
        Bytes out(room(*set));
        std::size_t size = 0;
        for (auto _ : state) {
            size = call(out);
            benchmark::DoNotOptimize(out.data());
        }
        if (!isEncoding && std::memcmp(out.data(), set->bytes.data(), set->bytes.size()) != 0)
            state.SkipWithError("other bytes");
        state.SetBytesProcessed(static_cast<std::int64_t>(set->bytes.size()) * state.iterations());
        state.counters["item"] = benchmark::Counter(
            static_cast<double>(set->bytes.size() / set->width),
            benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
        if (!isEncoding) return;
        state.counters["bytes"] = static_cast<double>(size);
        state.counters["ratio"] =
            static_cast<double>(size) / static_cast<double>(set->there.size());
    };
    benchmark::RegisterBenchmark((operation + "/" + set->name + "/" + competitor).c_str(), run);
}

void addDecoding(const SharedSet& set, const std::string& operation, const Bytes& stream) {
    const std::size_t size = set->bytes.size();
    add(
        set, operation, "ours",
        [&stream, size](Bytes& out) {
            return zyr::lzfDecompress(stream.data(), stream.size(), out.data(), size).produced;
        },
        false);
    add(
        set, operation, "liblzf",
        [&stream, size](Bytes& out) -> std::size_t {
            return lzf_decompress(stream.data(), static_cast<unsigned>(stream.size()), out.data(),
                                  static_cast<unsigned>(size));
        },
        false);
    add(
        set, operation, "plain",
        [&stream, size](Bytes& out) {
            return bench::plainDecode(stream.data(), stream.size(), out.data(), size);
        },
        false);
}

void addSet(const SharedSet& set) {
    if (set->bytes.empty()) return;
    const Bytes& bytes = set->bytes;
    const auto there = [&bytes](Bytes& out) { return encodeThere(bytes, out); };
    const auto plain = [&bytes](Bytes& out) {
        return bench::PlainEncoder(bytes.data(), bytes.size(), out.data()).encode();
    };
    add(
        set, "encode", "ours", [set](Bytes& out) { return encodeBlocks(*set, out.data()); }, true);
    add(set, "encode", "liblzf", there, true);
    add(set, "encode", "plain", plain, true);
    add(
        set, "compress", "ours",
        [&bytes](Bytes& out) {
            return zyr::lzfCompress(bytes.data(), bytes.size(), out.data(), out.size());
        },
        true);
    add(set, "compress", "liblzf", there, true);
    add(set, "compress", "plain", plain, true);
    addDecoding(set, "decode", set->there);
    addDecoding(set, "decode-own", set->own);
}

const bool kIsRegistered = [] {
    for (const bench::Cloud& cloud : bench::clouds()) {
        addSet(columnsOf(cloud.name + "-xyz", cloud.xyz, 3));
        addSet(columnsOf(cloud.name + "-colours", colourWords(cloud.bgr), 1));
    }
    for (const bench::Mesh& mesh : bench::meshes()) {
        addSet(columnsOf(mesh.name + "-xyz", mesh.xyz, 3));
        addSet(columnsOf(mesh.name + "-normals", mesh.normals, 3));
        addSet(columnsOf(mesh.name + "-faces", mesh.faces, 3));
        addSet(columnsOf(mesh.name + "-colours", colourWords(mesh.bgr), 1));
    }
    for (const bench::Frame& frame : bench::frames())
        addSet(columnsOf(frame.name + "-rows", frame.grid, 1));
    return true;
}();

}  // namespace
