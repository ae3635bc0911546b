#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <functional>
#include <opencv2/core.hpp>
#include <random>
#include <string>

#include "Zyr3DFileIO.h"
#include "ZyrVector3dArray.h"

// Sizes at the edges of 32-bit integers. Each case runs in a process of its own, whose memory is
// measured. usage: int32_edges FOLDER

namespace {

namespace fs = std::filesystem;

std::string folder;

/// The first whose bytes, times three, no longer fit an int.
constexpr int kPoints24 = 29826162;
constexpr int kPoints52 = 13765921;
/// The first numbers of points whose columns take 4 GiB and more.
constexpr int kRefused24 = 178956971;
constexpr int kRefused52 = 82595525;

struct Cloud {
    ZyrVector3dArray points, normals;
    cv::Mat colors;

    bool save(const std::string& path, bool isFull) {
        return Zyr3DFileIO::SavePointCloud(points, normals, colors, path.c_str(), isFull, isFull);
    }
    bool load(const std::string& path, bool isFull) {
        return Zyr3DFileIO::LoadPointCloud(points, normals, colors, path.c_str(), isFull, isFull);
    }
};

double coordinate(std::size_t i) {
    return 0.01 * static_cast<double>(i * 2654435761U % 1000003);
}

void fill(ZyrVector3dArray& list, int n) {
    list.SetSize(n);
    double* values = list.Data();
    for (std::size_t i = 0; i < 3 * static_cast<std::size_t>(n); ++i) values[i] = coordinate(i);
}

void fill(Cloud& cloud, int points, bool isFull) {
    fill(cloud.points, points);
    if (!isFull) return;
    cloud.normals = cloud.points;
    cloud.colors = cv::Mat(1, points, CV_8UC4);
    for (std::size_t i = 0; i < 4 * static_cast<std::size_t>(points); ++i)
        cloud.colors.data[i] = static_cast<unsigned char>(i * 31 % 251);
}

bool holds(const ZyrVector3dArray& list, int n) {
    if (list.Length() != n) return false;
    const double* values = list.Data();
    for (std::size_t i = 0; i < 3 * static_cast<std::size_t>(n); ++i)
        if (values[i] != coordinate(i)) return false;
    return true;
}

bool holds(const Cloud& cloud, int points, bool isFull) {
    if (!holds(cloud.points, points)) return false;
    if (!isFull) return true;
    if (cloud.colors.cols != points || cloud.colors.channels() != 4) return false;
    for (std::size_t i = 0; i < 4 * static_cast<std::size_t>(points); ++i)
        if (cloud.colors.data[i] != static_cast<unsigned char>(i * 31 % 251)) return false;
    return holds(cloud.normals, points);
}

bool writes(int points, bool isFull, const std::string& path) {
    Cloud cloud;
    fill(cloud, points, isFull);
    return cloud.save(path, isFull) && fs::file_size(path) > 1000000;
}

bool reads(int points, bool isFull, const std::string& path) {
    Cloud cloud;
    return cloud.load(path, isFull) && holds(cloud, points, isFull);
}

bool isRefused(int points, bool isFull) {
    const std::string path = folder + "/refused.zpt";
    Cloud cloud;
    cloud.points.SetSize(points);
    if (isFull) {
        cloud.normals = cloud.points;
        cloud.colors = cv::Mat::zeros(1, points, CV_8UC4);
    }
    return !cloud.save(path, isFull) && !fs::exists(path);
}

/// Random bytes do not compress, and their stream is longer than a size word can state.
cv::Mat randomGrid() {
    cv::Mat grid(46341, 46341, CV_8U);
    std::mt19937_64 random(1);
    for (std::size_t i = 0; i + 8 <= grid.total(); i += 8) {
        const std::uint64_t word = random();
        std::memcpy(grid.data + i, &word, sizeof word);
    }
    return grid;
}

bool isImageRefused(cv::Mat values, cv::Mat colors) {
    const std::string path = folder + "/refused.zrt";
    double n = 1;
    return !Zyr3DFileIO::SaveRangeImage(values, colors, path.c_str(), n, n, n, n, n, n, n, n,
                                        true) &&
           !fs::exists(path);
}

bool run(const std::string& name, const std::function<bool()>& work) {
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0) std::_Exit(work() ? 0 : 1);
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    const bool isGood = WIFEXITED(status) && WEXITSTATUS(status) == 0;
    std::printf("%-6s %-46s %6.1f s %8.0f MB\n", isGood ? "good" : "FAILED", name.c_str(),
                time.count(), static_cast<double>(usage.ru_maxrss) / 1024);
    std::fflush(stdout);
    return isGood;
}

}  // namespace

int main(int argc, char** argv) {
    folder = argc > 1 ? argv[1] : ".";
    const std::string small = folder + "/edge24.zpt";
    const std::string full = folder + "/edge52.zpt";
    bool isGood = true;
    isGood &= run("29826162 points of 24 bytes are written",
                  [&] { return writes(kPoints24, false, small); });
    isGood &= run("and read back bit for bit", [&] { return reads(kPoints24, false, small); });
    fs::remove(small);
    isGood &= run("13765921 points of 52 bytes are written",
                  [&] { return writes(kPoints52, true, full); });
    isGood &= run("and read back bit for bit", [&] { return reads(kPoints52, true, full); });
    fs::remove(full);
    isGood &= run("178956971 points of 24 bytes are refused",
                  [] { return isRefused(kRefused24, false); });
    isGood &=
        run("82595525 points of 52 bytes are refused", [] { return isRefused(kRefused52, true); });
    isGood &= run("an image of 46341 x 46341 random bytes is refused",
                  [] { return isImageRefused(randomGrid(), cv::Mat()); });
    isGood &= run("one with as many random colours is refused", [] {
        const cv::Mat colors = randomGrid();
        return isImageRefused(cv::Mat::zeros(colors.size(), CV_8U), colors);
    });
    return isGood ? 0 : 1;
}
