// Saving and loading a point cloud, beside liblzf on the bytes of its columns alone.

#include <Zyr3DData.h>
#include <benchmark/benchmark.h>
#include <liblzf/lzf.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "support/Npy.h"

namespace {

/// A real scan where the data are there, else a wavy surface of float-born coordinates, seed 1.
std::vector<double> coordinates() {
    std::vector<double> xyz = test::readNpy<double>(ZYR_DATA_DIR "/cloud_rs1/xyz.npy", "<f8");
    if (!xyz.empty()) return xyz;
    std::mt19937 random(1);
    std::normal_distribution<float> noise(0, 0.0003F);
    for (int i = 0; i < 300000; ++i) {
        const float x = static_cast<float>(i % 640) * 0.001F + noise(random);
        const float y = static_cast<float>(i / 640) * 0.001F + noise(random);
        xyz.insert(xyz.end(), {x, y, 0.1F * std::sin(x * 20) * std::cos(y * 20) + noise(random)});
    }
    return xyz;
}

ZyrPointCloud& cloud() {
    static ZyrPointCloud cloud = [] {
        std::vector<double> xyz = coordinates();
        return ZyrPointCloud(xyz.data(), static_cast<int>(xyz.size()), 6, zyr::kInvalidValue);
    }();
    return cloud;
}

std::vector<unsigned char> columns() {
    const auto length = static_cast<std::size_t>(cloud().Length());
    std::vector<double> values(3 * length);
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = cloud().PointData().Data()[i % length * 3 + i / length];
    const auto* bytes = reinterpret_cast<const unsigned char*>(values.data());
    return std::vector<unsigned char>(bytes, bytes + values.size() * sizeof(double));
}

std::string path() {
    const char* folder = std::filesystem::exists("/dev/shm") ? "/dev/shm" : "/tmp";
    return std::string(folder) + "/zyr_cloud_file_bench.zpt";
}

void perPoint(benchmark::State& state) {
    state.counters["s/point"] = benchmark::Counter(
        static_cast<double>(cloud().Length()),
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void saveCloud(benchmark::State& state) {
    for (auto _ : state)
        if (!cloud().Save(path().c_str(), false, false)) state.SkipWithError("not saved");
    state.counters["bytes/point"] =
        static_cast<double>(std::filesystem::file_size(path())) / cloud().Length();
    std::filesystem::remove(path());
    perPoint(state);
}
BENCHMARK(saveCloud)->Unit(benchmark::kMillisecond);

void liblzfCompress(benchmark::State& state) {
    const std::vector<unsigned char> raw = columns();
    std::vector<unsigned char> packed(raw.size() * 2);
    unsigned int size = 0;
    for (auto _ : state) {
        size = lzf_compress(raw.data(), static_cast<unsigned>(raw.size()), packed.data(),
                            static_cast<unsigned>(packed.size()));
        benchmark::DoNotOptimize(packed.data());
    }
    state.counters["bytes/point"] = static_cast<double>(size) / cloud().Length();
    perPoint(state);
}
BENCHMARK(liblzfCompress)->Unit(benchmark::kMillisecond);

void loadCloud(benchmark::State& state) {
    if (!cloud().Save(path().c_str(), false, false)) state.SkipWithError("not saved");
    for (auto _ : state) {
        ZyrPointCloud loaded;
        if (!loaded.Load(path().c_str(), false, false)) state.SkipWithError("not loaded");
    }
    std::filesystem::remove(path());
    perPoint(state);
}
BENCHMARK(loadCloud)->Unit(benchmark::kMillisecond);

void liblzfDecompress(benchmark::State& state) {
    std::vector<unsigned char> raw = columns();
    std::vector<unsigned char> packed(raw.size() * 2);
    const unsigned int size = lzf_compress(raw.data(), static_cast<unsigned>(raw.size()),
                                           packed.data(), static_cast<unsigned>(packed.size()));
    for (auto _ : state) {
        lzf_decompress(packed.data(), size, raw.data(), static_cast<unsigned>(raw.size()));
        benchmark::DoNotOptimize(raw.data());
    }
    perPoint(state);
}
BENCHMARK(liblzfDecompress)->Unit(benchmark::kMillisecond);

}  // namespace
