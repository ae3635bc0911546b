#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
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

#include "support/MeshFile.h"
#include "support/RangeFile.h"

// Sizes at the edges of 32-bit integers. Each case runs in a process of its own, whose memory is
// measured. usage: int32_edges FOLDER

namespace {

namespace fs = std::filesystem;

std::string folder;

std::string file(const char* name) {
    return folder + "/" + name;
}

// What lies at a list's i-th place: values that hardly compress, or ones in long runs.
using Value = double (*)(std::size_t i);

double scattered(std::size_t i) {
    return 0.01 * static_cast<double>(i * 2654435761U % 1000003);
}

double inRuns(std::size_t i) {
    return static_cast<double>(i >> 16);
}

struct Size {
    int points;
    bool isFull;  ///< with normals and colours
    Value value;
};

/// The first whose bytes, times three, no longer fit an int.
constexpr Size kPoints24{29826162, false, scattered};
constexpr Size kPoints52{13765921, true, scattered};
/// Bodies that take more than 2 GiB, and compress.
constexpr Size kInRuns{95000000, false, inRuns};
constexpr int kVertices = 60000000, kTriangles = 75000000;
constexpr int kRows = 46341;
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

void fill(ZyrVector3dArray& list, int n, Value value) {
    list.SetSize(n);
    double* values = list.Data();
    for (std::size_t i = 0; i < 3 * static_cast<std::size_t>(n); ++i) values[i] = value(i);
}

void fill(Cloud& cloud, const Size& size) {
    fill(cloud.points, size.points, size.value);
    if (!size.isFull) return;
    cloud.normals = cloud.points;
    cloud.colors = cv::Mat(1, size.points, CV_8UC4);
    for (std::size_t i = 0; i < 4 * static_cast<std::size_t>(size.points); ++i)
        cloud.colors.data[i] = static_cast<unsigned char>(i * 31 % 251);
}

bool holds(const ZyrVector3dArray& list, int n, Value value) {
    if (list.Length() != n) return false;
    const double* values = list.Data();
    for (std::size_t i = 0; i < 3 * static_cast<std::size_t>(n); ++i)
        if (values[i] != value(i)) return false;
    return true;
}

bool holds(const Cloud& cloud, const Size& size) {
    if (!holds(cloud.points, size.points, size.value)) return false;
    if (!size.isFull) return true;
    if (cloud.colors.cols != size.points || cloud.colors.channels() != 4) return false;
    for (std::size_t i = 0; i < 4 * static_cast<std::size_t>(size.points); ++i)
        if (cloud.colors.data[i] != static_cast<unsigned char>(i * 31 % 251)) return false;
    return holds(cloud.normals, size.points, size.value);
}

bool writesCloud(const Size& size) {
    Cloud cloud;
    fill(cloud, size);
    return cloud.save(file("edge.zpt"), size.isFull) && fs::file_size(file("edge.zpt")) > 1000000;
}

bool readsCloud(const Size& size) {
    Cloud cloud;
    return cloud.load(file("edge.zpt"), size.isFull) && holds(cloud, size);
}

bool writesMesh() {
    test::MeshLists mesh;
    fill(mesh.vertices, kVertices, inRuns);
    mesh.triangles.SetSize(3 * kTriangles);
    for (std::size_t i = 0; i < 3 * static_cast<std::size_t>(kTriangles); ++i)
        mesh.triangles.Data()[i] = static_cast<int>(inRuns(i));
    return mesh.save(file("edge.ztmt"), false, false);
}

bool readsMesh() {
    test::MeshLists mesh;
    if (!mesh.load(file("edge.ztmt"), false, false) || mesh.triangles.Length() != 3 * kTriangles)
        return false;
    for (std::size_t i = 0; i < 3 * static_cast<std::size_t>(kTriangles); ++i)
        if (mesh.triangles.Data()[i] != static_cast<int>(inRuns(i))) return false;
    return holds(mesh.vertices, kVertices, inRuns);
}

bool writesImage() {
    test::Stores image;
    image.values = cv::Mat(kRows, kRows, CV_8U);
    for (int row = 0; row < kRows; ++row) std::memset(image.values.ptr(row), row >> 8, kRows);
    return image.save(file("edge.zrt").c_str(), false);
}

bool readsImage() {
    test::Stores image;
    if (!image.load(file("edge.zrt").c_str(), true)) return false;
    const cv::Mat& values = image.values;
    if (values.rows != kRows || values.cols != kRows || values.type() != CV_8U) return false;
    for (int row = 0; row < kRows; ++row)
        if (std::count(values.ptr(row), values.ptr(row) + kRows, row >> 8) != kRows) return false;
    return image.colors.empty();
}

/// Random bytes do not compress: their stream is longer than they are.
void randomize(void* bytes, std::size_t size) {
    std::mt19937_64 random(1);
    for (std::size_t i = 0; i + 8 <= size; i += 8) {
        const std::uint64_t word = random();
        std::memcpy(static_cast<unsigned char*>(bytes) + i, &word, sizeof word);
    }
}

bool isCloudRefused(Cloud cloud, bool isFull) {
    return !cloud.save(file("refused"), isFull) && !fs::exists(file("refused"));
}

bool isLargeCloudRefused(int points, bool isFull) {
    Cloud cloud;
    cloud.points.SetSize(points);
    if (isFull) {
        cloud.normals = cloud.points;
        cloud.colors = cv::Mat::zeros(1, points, CV_8UC4);
    }
    return isCloudRefused(cloud, isFull);
}

bool isRandomCloudRefused() {
    Cloud cloud;
    cloud.points.SetSize(kRefused24 - 1);
    randomize(cloud.points.Data(), 24 * static_cast<std::size_t>(kRefused24 - 1));
    return isCloudRefused(cloud, false);
}

bool isLargeMeshRefused() {
    test::MeshLists mesh;
    mesh.vertices.SetSize(kRefused24 - 1);
    mesh.triangles.SetSize(6);
    return !mesh.save(file("refused"), false, false) && !fs::exists(file("refused"));
}

cv::Mat randomGrid() {
    cv::Mat grid(kRows, kRows, CV_8U);
    randomize(grid.data, grid.total());
    return grid;
}

bool isImageRefused(const cv::Mat& values, const cv::Mat& colors) {
    test::Stores image;
    image.values = values;
    image.colors = colors;
    return !image.save(file("refused").c_str(), true) && !fs::exists(file("refused"));
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
    std::printf("%-6s %-48s %6.1f s %8.0f MB\n", isGood ? "good" : "FAILED", name.c_str(),
                time.count(), static_cast<double>(usage.ru_maxrss) / 1024);
    std::fflush(stdout);
    return isGood;
}

}  // namespace

int main(int argc, char** argv) {
    folder = argc > 1 ? argv[1] : ".";
    bool isGood = true;
    const auto cloudComesBack = [&](const std::string& name, const Size& size) {
        isGood &= run(name + " written", [&] { return writesCloud(size); });
        isGood &= run("and read back bit for bit", [&] { return readsCloud(size); });
        fs::remove(file("edge.zpt"));
    };
    cloudComesBack("29826162 points of 24 bytes", kPoints24);
    cloudComesBack("13765921 points of 52 bytes", kPoints52);
    cloudComesBack("95000000 points of 24 bytes in runs", kInRuns);
    isGood &= run("60000000 vertices, 75000000 triangles written", writesMesh);
    isGood &= run("and read back", readsMesh);
    fs::remove(file("edge.ztmt"));
    isGood &= run("an image of 46341 x 46341 bytes written", writesImage);
    isGood &= run("and read back", readsImage);
    fs::remove(file("edge.zrt"));
    isGood &= run("178956971 points of 24 bytes refused",
                  [] { return isLargeCloudRefused(kRefused24, false); });
    isGood &= run("82595525 points of 52 bytes refused",
                  [] { return isLargeCloudRefused(kRefused52, true); });
    isGood &= run("178956970 random points of 24 bytes refused", isRandomCloudRefused);
    isGood &= run("178956970 vertices, 2 triangles refused", isLargeMeshRefused);
    isGood &= run("an image of 46341 x 46341 random bytes refused",
                  [] { return isImageRefused(randomGrid(), cv::Mat()); });
    isGood &= run("one with as many random colours refused", [] {
        const cv::Mat colors = randomGrid();
        return isImageRefused(cv::Mat::zeros(colors.size(), CV_8U), colors);
    });
    return isGood ? 0 : 1;
}
