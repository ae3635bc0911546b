// Saving and loading a range image in its own file and as a 16-bit PNG.

#include <Zyr3DData.h>
#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/Npy.h"

namespace {

struct Frame {
    const char* name;
    int width, height;
};

constexpr Frame kFrames[] = {{"range_rgbd", 640, 480}, {"range_counter", 1289, 1280}};

ZyrRangeImage frame(const benchmark::State& state) {
    const Frame& frame = kFrames[state.range(0)];
    std::vector<std::uint16_t> grid = test::readNpy<std::uint16_t>(
        std::string(ZYR_DATA_DIR "/") + frame.name + "/grid.npy", "<u2");
    if (grid.empty()) return ZyrRangeImage();
    return ZyrRangeImage(grid.data(), frame.width, frame.height, 0, 2, 0, 0, 1, 0, 1, 0, 1, 0);
}

std::string path(const char* suffix) {
    const char* folder = std::filesystem::exists("/dev/shm") ? "/dev/shm" : "/tmp";
    return std::string(folder) + "/zyr_range_bench." + suffix;
}

/// Times a call on the frame, a pixel, with the size of the file that it leaves or reads.
template <class Call>
void measure(benchmark::State& state, ZyrRangeImage& image, const char* suffix, Call call) {
    for (auto _ : state)
        if (!call()) state.SkipWithError("failed");
    const double pixels = static_cast<double>(image.Width()) * image.Height();
    state.counters["s/pixel"] = benchmark::Counter(
        pixels, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    state.counters["bytes/pixel"] =
        static_cast<double>(std::filesystem::file_size(path(suffix))) / pixels;
    std::filesystem::remove(path(suffix));
}

void saveOwn(benchmark::State& state) {
    ZyrRangeImage image = frame(state);
    if (!image.Save(path("zrt").c_str(), false)) return state.SkipWithError("no data");
    measure(state, image, "zrt", [&] { return image.Save(path("zrt").c_str(), false); });
}

void savePng(benchmark::State& state) {
    ZyrRangeImage image = frame(state);
    if (!image.Save(path("png").c_str())) return state.SkipWithError("no data");
    measure(state, image, "png", [&] { return image.Save(path("png").c_str()); });
}

void loadOwn(benchmark::State& state) {
    ZyrRangeImage image = frame(state);
    if (!image.Save(path("zrt").c_str(), false)) return state.SkipWithError("no data");
    measure(state, image, "zrt", [] {
        ZyrRangeImage loaded;
        return loaded.Load(path("zrt").c_str(), false);
    });
}

void loadPng(benchmark::State& state) {
    ZyrRangeImage image = frame(state);
    if (!image.Save(path("png").c_str())) return state.SkipWithError("no data");
    measure(state, image, "png", [] {
        ZyrRangeImage loaded;
        return loaded.Load(path("png").c_str(), 1.0, 0.0);
    });
}

// A load of the own file leaves it open, so its rounds are few.
BENCHMARK(saveOwn)->DenseRange(0, 1)->Unit(benchmark::kMillisecond);
BENCHMARK(savePng)->DenseRange(0, 1)->Unit(benchmark::kMillisecond);
BENCHMARK(loadOwn)->DenseRange(0, 1)->Unit(benchmark::kMillisecond)->Iterations(100);
BENCHMARK(loadPng)->DenseRange(0, 1)->Unit(benchmark::kMillisecond)->Iterations(100);

}  // namespace
