#pragma once

#include <string>
#include <vector>

#include "support/CloudFile.h"
#include "support/ZyrValues.h"

/// The values of the golden point-cloud files, as golden/make_golden.py has them.
namespace test {

struct GoldenVariant {
    bool hasNormals;
    int channels;  ///< 0: no colours
    const char* name;

    std::string path() const { return std::string(ZYR_GOLDEN_DIR "/pointcloud/") + name + ".zpt"; }
};

/// For the names of parameterised tests.
inline void PrintTo(const GoldenVariant& variant, std::ostream* out) {
    *out << variant.name;
}

inline const std::vector<GoldenVariant>& goldenVariants() {
    static const std::vector<GoldenVariant> variants = {
        {false, 0, "points"},
        {false, 1, "points_grey"},
        {false, 3, "points_bgr"},
        {false, 4, "points_bgra"},
        {true, 0, "points_normals"},
        {true, 1, "points_normals_grey"},
        {true, 3, "points_normals_bgr"},
        {true, 4, "points_normals_bgra"},
    };
    return variants;
}

inline ZyrVector3dArray goldenPoints() {
    return vectors({1.5, -2.0, 3.25, kInvalid, kInvalid, kInvalid, 0.0, -0.0, 1e-300, 123456.789,
                    0.1, -1e10, 5e-324, 1.0, 2.0});
}

inline ZyrVector3dArray goldenNormals() {
    return vectors({0.0, 0.0, 1.0, 1.0, 0.0, 0.0, 0.0, -1.0, 0.0, 0.6, 0.8, 0.0, kInvalid, kInvalid,
                    kInvalid});
}

inline cv::Mat goldenColors(int channels) {
    switch (channels) {
        case 1:
            return colorRow({0, 7, 128, 200, 255}, 1);
        case 3:
            return colorRow({30, 20, 10, 0, 0, 0, 255, 254, 253, 7, 8, 9, 200, 100, 50}, 3);
        case 4:
            return colorRow(
                {30, 20, 10, 255, 0, 0, 0, 0, 255, 254, 253, 128, 7, 8, 9, 1, 200, 100, 50, 254},
                4);
        default:
            return cv::Mat();
    }
}

}  // namespace test
