#pragma once

#include <cstddef>
#include <string>
#include <vector>

/// What the benchmarks work on: the measured data of ../shared/data where it is, and data made up
/// here, always the same (seed 1).
namespace bench {

struct Cloud {
    std::string name;
    std::vector<double> xyz;
    std::vector<unsigned char> bgr;  ///< empty, or three bytes a point

    std::size_t points() const { return xyz.size() / 3; }
};

struct Mesh {
    std::string name;
    std::vector<double> xyz, normals;
    std::vector<unsigned char> bgr;
    std::vector<int> faces;
};

struct Frame {
    std::string name;
    int width, height;
    std::vector<unsigned short> grid;
};

/// Points of the made-up clouds; ZYR_BENCH_POINTS sets another number and cuts all other data to
/// it.
std::size_t points();

/// From 100 points on, as far as ZYR_BENCH_POINTS allows, to see how the cost grows.
std::vector<std::size_t> sizes();

/// A wavy surface of so many points, whose coordinates were born as floats.
std::vector<double> floatBorn(std::size_t points);

/// milk (a camera frame with holes), rs1, autzen; float-born, decimals, entropy, holes, constant.
const std::vector<Cloud>& clouds();
const std::vector<Mesh>& meshes();
const std::vector<Frame>& frames();

/// A path in memory for a file of this process, removed with the object.
class TempFile {
public:
    explicit TempFile(const std::string& suffix);
    ~TempFile();
    TempFile(const TempFile&) = delete;
    TempFile& operator=(const TempFile&) = delete;

    const char* path() const { return path_.c_str(); }
    double size() const;

private:
    std::string path_;
};

}  // namespace bench
