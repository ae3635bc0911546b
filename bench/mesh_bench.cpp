// Saving, loading, counting and appending a mesh with vertex normals and colours, beside liblzf on
// the bytes of its columns alone and beside plain loops over flat buffers.

#include <Zyr3DData.h>
#include <benchmark/benchmark.h>
#include <liblzf/lzf.h>

#include <cmath>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "support/Npy.h"

namespace {

struct Lists {
    std::vector<double> xyz, normals;
    std::vector<unsigned char> bgr;
    std::vector<int> faces;
};

/// A wavy sheet of 256 x 256 vertices.
Lists sheet() {
    constexpr int kSide = 256;
    Lists lists;
    for (int i = 0; i < kSide * kSide; ++i) {
        const double x = i % kSide * 0.01, y = i / kSide * 0.01;
        lists.xyz.insert(lists.xyz.end(), {x, y, 0.1 * std::sin(x * 20) * std::cos(y * 20)});
        lists.normals.insert(lists.normals.end(), {std::sin(x), 0.0, std::cos(x)});
        for (int k = 0; k < 3; ++k) lists.bgr.push_back(static_cast<unsigned char>(i / 7 + k));
        if (i % kSide + 1 == kSide || i / kSide + 1 == kSide) continue;
        lists.faces.insert(lists.faces.end(),
                           {i, i + 1, i + kSide, i + 1, i + kSide + 1, i + kSide});
    }
    return lists;
}

/// A reconstructed surface where the data are there.
const Lists& lists() {
    static const Lists lists = [] {
        const std::string folder = ZYR_DATA_DIR "/mesh_frag115/";
        const Lists read{test::readNpy<double>(folder + "xyz.npy", "<f8"),
                         test::readNpy<double>(folder + "normals.npy", "<f8"),
                         test::readNpy<unsigned char>(folder + "bgr.npy", "|u1"),
                         test::readNpy<int>(folder + "faces.npy", "<i4")};
        return read.faces.empty() ? sheet() : read;
    }();
    return lists;
}

ZyrVector3dArray vectors(std::vector<double> flat) {
    return ZyrVector3dArray(flat.data(), static_cast<int>(flat.size()), zyr::kInvalidValue);
}

ZyrTriangleMesh newMesh() {
    ZyrColorArray colors;
    colors.Create(static_cast<int>(lists().bgr.size() / 3), 3);
    std::copy(lists().bgr.begin(), lists().bgr.end(), colors.Data());
    std::vector<int> faces = lists().faces;
    return ZyrTriangleMesh(vectors(lists().xyz),
                           Zyr3DIntArray(faces.data(), static_cast<int>(faces.size())), colors,
                           ZyrColorArray(), vectors(lists().normals), ZyrVector3dArray());
}

const ZyrTriangleMesh& mesh() {
    static const ZyrTriangleMesh mesh = newMesh();
    return mesh;
}

std::string path() {
    const char* folder = std::filesystem::exists("/dev/shm") ? "/dev/shm" : "/tmp";
    return std::string(folder) + "/zyr_mesh_bench.ztmt";
}

void perTriangle(benchmark::State& state) {
    state.counters["s/triangle"] =
        benchmark::Counter(mesh().NumTriangles(), benchmark::Counter::kIsIterationInvariantRate |
                                                      benchmark::Counter::kInvert);
}

template <class T, class Source>
void addColumns(std::vector<unsigned char>& bytes, const std::vector<Source>& flat) {
    for (std::size_t k = 0; k < 3; ++k)
        for (std::size_t i = k; i < flat.size(); i += 3) {
            const T value = static_cast<T>(flat[i]);
            const auto* first = reinterpret_cast<const unsigned char*>(&value);
            bytes.insert(bytes.end(), first, first + sizeof value);
        }
}

std::vector<unsigned char> columns() {
    std::vector<unsigned char> bytes;
    addColumns<double>(bytes, lists().xyz);
    addColumns<double>(bytes, lists().normals);
    for (std::size_t i = 0; i < lists().bgr.size(); i += 3)
        for (const unsigned char byte : {lists().bgr[i], lists().bgr[i + 1], lists().bgr[i + 2],
                                         static_cast<unsigned char>(255)})
            bytes.push_back(byte);
    addColumns<int>(bytes, lists().faces);
    return bytes;
}

void saveMesh(benchmark::State& state) {
    for (auto _ : state)
        if (!mesh().Save(path().c_str(), true, true)) state.SkipWithError("not saved");
    std::filesystem::remove(path());
    perTriangle(state);
}
BENCHMARK(saveMesh)->Unit(benchmark::kMillisecond);

void liblzfCompress(benchmark::State& state) {
    const std::vector<unsigned char> raw = columns();
    std::vector<unsigned char> packed(raw.size() * 2);
    for (auto _ : state) {
        lzf_compress(raw.data(), static_cast<unsigned>(raw.size()), packed.data(),
                     static_cast<unsigned>(packed.size()));
        benchmark::DoNotOptimize(packed.data());
    }
    perTriangle(state);
}
BENCHMARK(liblzfCompress)->Unit(benchmark::kMillisecond);

void loadMesh(benchmark::State& state) {
    if (!mesh().Save(path().c_str(), true, true)) state.SkipWithError("not saved");
    for (auto _ : state) {
        ZyrTriangleMesh loaded;
        if (!loaded.Load(path().c_str(), true, true)) state.SkipWithError("not loaded");
    }
    std::filesystem::remove(path());
    perTriangle(state);
}
BENCHMARK(loadMesh)->Unit(benchmark::kMillisecond);

void liblzfDecompress(benchmark::State& state) {
    std::vector<unsigned char> raw = columns();
    std::vector<unsigned char> packed(raw.size() * 2);
    const unsigned int size = lzf_compress(raw.data(), static_cast<unsigned>(raw.size()),
                                           packed.data(), static_cast<unsigned>(packed.size()));
    for (auto _ : state) {
        lzf_decompress(packed.data(), size, raw.data(), static_cast<unsigned>(raw.size()));
        benchmark::DoNotOptimize(raw.data());
    }
    perTriangle(state);
}
BENCHMARK(liblzfDecompress)->Unit(benchmark::kMillisecond);

void countValidTriangles(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(mesh().NumValidTriangles());
    perTriangle(state);
}
BENCHMARK(countValidTriangles)->Unit(benchmark::kMillisecond);

double length(const double* v) {
    return std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
}

bool isPoint(const double* v) {
    return v[0] < zyr::kInvalidValue && v[1] < zyr::kInvalidValue && v[2] < zyr::kInvalidValue;
}

/// The same test on flat buffers, all indices being in range.
bool isApart(const double* a, const double* b, const double* c) {
    const double u[] = {b[0] - a[0], b[1] - a[1], b[2] - a[2]};
    const double w[] = {b[0] - c[0], b[1] - c[1], b[2] - c[2]};
    const double dot = u[0] * w[0] + u[1] * w[1] + u[2] * w[2];
    return std::fabs(length(u) * length(w) / dot) - 1 > 1.1e-5;
}

void countValidTrianglesPlainly(benchmark::State& state) {
    const double* xyz = lists().xyz.data();
    for (auto _ : state) {
        int valid = 0;
        for (std::size_t i = 0; i < lists().faces.size(); i += 3) {
            const int* t = lists().faces.data() + i;
            const double *a = xyz + 3 * t[0], *b = xyz + 3 * t[1], *c = xyz + 3 * t[2];
            if (t[0] == t[1] || t[0] == t[2] || t[1] == t[2]) continue;
            valid += isPoint(a) && isPoint(b) && isPoint(c) && isApart(a, b, c) ? 1 : 0;
        }
        benchmark::DoNotOptimize(valid);
    }
    perTriangle(state);
}
BENCHMARK(countValidTrianglesPlainly)->Unit(benchmark::kMillisecond);

void appendMesh(benchmark::State& state) {
    for (auto _ : state) {
        ZyrTriangleMesh target;
        target.Append(mesh());
        target.Append(mesh());
        benchmark::DoNotOptimize(target.TriangleData());
    }
    perTriangle(state);
}
BENCHMARK(appendMesh)->Unit(benchmark::kMillisecond);

void appendPlainly(benchmark::State& state) {
    for (auto _ : state) {
        Lists target;
        for (int k = 0; k < 2; ++k) {
            const auto shift = static_cast<int>(target.xyz.size() / 3);
            const std::size_t before = target.faces.size();
            target.xyz.insert(target.xyz.end(), lists().xyz.begin(), lists().xyz.end());
            target.normals.insert(target.normals.end(), lists().normals.begin(),
                                  lists().normals.end());
            target.bgr.insert(target.bgr.end(), lists().bgr.begin(), lists().bgr.end());
            target.faces.insert(target.faces.end(), lists().faces.begin(), lists().faces.end());
            for (std::size_t i = before; i < target.faces.size(); ++i) target.faces[i] += shift;
        }
        benchmark::DoNotOptimize(target.faces.data());
    }
    perTriangle(state);
}
BENCHMARK(appendPlainly)->Unit(benchmark::kMillisecond);

}  // namespace
