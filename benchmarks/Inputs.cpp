#include "Inputs.h"

#include <ZyrVector3d.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <random>

#include "support/Npy.h"

namespace bench {
namespace {

constexpr unsigned kSeed = 1;

std::string data(const std::string& name) {
    return std::string(ZYR_DATA_DIR "/") + name;
}

bool isCut() {
    return std::getenv("ZYR_BENCH_POINTS") != nullptr;
}

template <class T>
void cut(std::vector<T>& elements, std::size_t perPoint) {
    if (isCut() && elements.size() > points() * perPoint) elements.resize(points() * perPoint);
}

void addMeasured(std::vector<Cloud>& clouds, const std::string& name) {
    Cloud cloud{name, test::readNpy<double>(data("cloud_" + name + "/xyz.npy"), "<f8"), {}};
    if (cloud.xyz.empty()) return;
    cloud.bgr = test::readNpy<unsigned char>(data("cloud_" + name + "/bgr.npy"), "|u1");
    cut(cloud.xyz, 3);
    cut(cloud.bgr, 3);
    clouds.push_back(std::move(cloud));
}

/// Three-digit decimals, as text formats give them.
std::vector<double> decimals(std::vector<double> xyz) {
    for (double& value : xyz) value = std::round(value * 1000) / 1000;
    return xyz;
}

std::vector<double> entropy() {
    std::mt19937_64 random(kSeed);
    std::uniform_real_distribution<double> uniform(-1, 1);
    std::vector<double> xyz(3 * points());
    for (double& value : xyz) value = uniform(random);
    return xyz;
}

/// A fifth of the points missing.
std::vector<double> holes(std::vector<double> xyz) {
    std::mt19937 random(kSeed);
    for (std::size_t i = 0; i < xyz.size(); i += 3)
        if (random() % 5 == 0)
            for (std::size_t k = 0; k < 3; ++k) xyz[i + k] = zyr::kInvalidValue;
    return xyz;
}

/// A wavy sheet of side x side vertices.
Mesh sheet(int side) {
    Mesh mesh;
    mesh.name = "sheet";
    for (int i = 0; i < side * side; ++i) {
        const double x = i % side * 0.01, y = i / side * 0.01;
        mesh.xyz.insert(mesh.xyz.end(), {x, y, 0.1 * std::sin(x * 20) * std::cos(y * 20)});
        mesh.normals.insert(mesh.normals.end(), {std::sin(x), 0.0, std::cos(x)});
        for (int k = 0; k < 3; ++k) mesh.bgr.push_back(static_cast<unsigned char>(i / 7 + k));
        if (i % side + 1 == side || i / side + 1 == side) continue;
        mesh.faces.insert(mesh.faces.end(), {i, i + 1, i + side, i + 1, i + side + 1, i + side});
    }
    return mesh;
}

void addMeasured(std::vector<Mesh>& meshes, const std::string& name) {
    if (isCut()) return;
    const std::string folder = data("mesh_" + name + "/");
    Mesh mesh{name, test::readNpy<double>(folder + "xyz.npy", "<f8"),
              test::readNpy<double>(folder + "normals.npy", "<f8"),
              test::readNpy<unsigned char>(folder + "bgr.npy", "|u1"),
              test::readNpy<int>(folder + "faces.npy", "<i4")};
    if (!mesh.faces.empty()) meshes.push_back(std::move(mesh));
}

Frame wave(int side) {
    Frame frame{"wave", side, side, {}};
    std::mt19937 random(kSeed);
    std::normal_distribution<double> noise(0, 2);
    for (int i = 0; i < side * side; ++i)
        frame.grid.push_back(static_cast<unsigned short>(
            1000 + 500 * std::sin(i % side * 0.02) * std::cos(i / side * 0.02) + noise(random)));
    return frame;
}

void addMeasured(std::vector<Frame>& frames, const std::string& name, int width, int height) {
    if (isCut()) return;
    Frame frame{name, width, height,
                test::readNpy<unsigned short>(data("range_" + name + "/grid.npy"), "<u2")};
    if (!frame.grid.empty()) frames.push_back(std::move(frame));
}

}  // namespace

std::size_t points() {
    const char* text = std::getenv("ZYR_BENCH_POINTS");
    return text == nullptr ? 300000 : static_cast<std::size_t>(std::atol(text));
}

std::vector<std::size_t> sizes() {
    if (isCut()) return {100};
    return {100, 10000, 100000, 1000000, 10000000};
}

std::vector<double> floatBorn(std::size_t points) {
    std::mt19937 random(kSeed);
    std::normal_distribution<float> noise(0, 0.0003F);
    std::vector<double> xyz;
    xyz.reserve(3 * points);
    for (std::size_t i = 0; i < points; ++i) {
        const float x = static_cast<float>(i % 640) * 0.001F + noise(random);
        const float y = static_cast<float>(i / 640) * 0.001F + noise(random);
        xyz.insert(xyz.end(), {x, y, 0.1F * std::sin(x * 20) * std::cos(y * 20) + noise(random)});
    }
    return xyz;
}

const std::vector<Cloud>& clouds() {
    static const std::vector<Cloud> all = [] {
        std::vector<Cloud> clouds;
        for (const char* name : {"milk", "rs1", "autzen"}) addMeasured(clouds, name);
        const std::vector<double> surface = floatBorn(points());
        clouds.push_back({"float-born", surface, {}});
        clouds.push_back({"decimals", decimals(surface), {}});
        clouds.push_back({"entropy", entropy(), {}});
        clouds.push_back({"holes", holes(surface), {}});
        clouds.push_back({"constant", std::vector<double>(surface.size(), 1.5), {}});
        return clouds;
    }();
    return all;
}

const std::vector<Mesh>& meshes() {
    static const std::vector<Mesh> all = [] {
        std::vector<Mesh> meshes;
        addMeasured(meshes, "frag115");
        addMeasured(meshes, "counter");
        meshes.push_back(sheet(isCut() ? 16 : 256));
        return meshes;
    }();
    return all;
}

const std::vector<Frame>& frames() {
    static const std::vector<Frame> all = [] {
        std::vector<Frame> frames;
        addMeasured(frames, "rgbd", 640, 480);
        addMeasured(frames, "counter", 1289, 1280);
        frames.push_back(wave(isCut() ? 16 : 640));
        return frames;
    }();
    return all;
}

TempFile::TempFile(const std::string& suffix) {
    static int count = 0;
    const char* folder = std::filesystem::exists("/dev/shm") ? "/dev/shm" : "/tmp";
    path_ = std::string(folder) + "/zyr_bench_" + std::to_string(getpid()) + "_" +
            std::to_string(count++) + "." + suffix;
}

TempFile::~TempFile() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
}

double TempFile::size() const {
    return static_cast<double>(std::filesystem::file_size(path_));
}

}  // namespace bench
