#pragma once

#include <cmath>

#include "Harness.h"
#include "support/CloudFile.h"
#include "support/DoubleBits.h"
#include "support/PlainHeader.h"
#include "support/ZyrValues.h"

/// What must hold of any point-cloud file, whatever its bytes.
namespace fuzz {

/// Elements that all checks have time for.
constexpr std::int64_t kMostElements = 5000;

/// What no file may state counts as the most that one may.
inline std::int64_t stated(const test::PlainHeader& header, const char* keyword) {
    return std::clamp<std::int64_t>(header.number(keyword), 0, 2147483647);
}

inline std::int64_t cloudBytes(const test::PlainHeader& header) {
    return 24 * stated(header, "POINTS");
}

/// Whether elements of so many bytes need more bytes of the file than any input has.
inline bool areUnbacked(std::int64_t bytes) {
    return bytes > std::int64_t(64) << 20;
}

/// Many elements that need no bytes of the file: a matter of time alone, and of other tests.
inline bool isSlow(std::int64_t elements, std::int64_t bytes) {
    return elements > kMostElements && !areUnbacked(bytes);
}

/// One row of as many colours as there are elements.
inline bool isColorRow(const cv::Mat& colors, int elements) {
    const int channels = colors.channels();
    return colors.rows == 1 && colors.cols == elements && colors.depth() == CV_8U &&
           (channels == 1 || channels == 3 || channels == 4);
}

/// As a file gives them back.
inline ZyrVector3dArray withoutNaN(ZyrVector3dArray array) {
    ZyrVector3dArray plain = array.DeepCopy();
    double* values = plain.Data();
    for (int i = 0; i < 3 * plain.Length(); ++i)
        if (std::isnan(values[i])) values[i] = 0.0;
    return plain;
}

inline void checkCloudRoundTrip(test::LoadedCloud& cloud) {
    static InputFile file;
    const bool hasNormals = cloud.normals.Length() > 0;
    const bool hasColors = !cloud.colors.empty();
    require(Zyr3DFileIO::SavePointCloud(cloud.points, cloud.normals, cloud.colors, file.path(),
                                        hasNormals, hasColors),
            "a cloud that was read is written");
    const test::LoadedCloud again = test::loadFile(file.path(), hasNormals, hasColors);
    require(again.isLoaded, "what was written is read");
    require(test::bits(again.points) == test::bits(withoutNaN(cloud.points)), "points come back");
    require(test::bits(again.normals) == test::bits(withoutNaN(cloud.normals)),
            "normals come back");
    require(again.colorBytes() == cloud.colorBytes(), "colours come back");
}

inline void checkCloud(const InputFile& file, const test::PlainHeader& header, Flags flags) {
    test::LoadedCloud cloud = test::loadFile(file.path(), flags.withNormals, flags.withColors);
    require(test::takeStop() == header.stop(), "stops are the stated ones");
    require(!cloud.isLoaded || header.isCloud(), "headers that are none are refused");
    require(!cloud.isLoaded || !areUnbacked(cloudBytes(header)), "points need bytes");
    if (!cloud.isLoaded) return;
    const auto points = static_cast<int>(header.number("POINTS"));
    const bool hasNormals = flags.withNormals && header.index("nx") >= 0;
    require(cloud.points.Length() == points, "as many points as stated");
    require(cloud.normals.Length() == (hasNormals ? points : 0), "as many normals");
    require(cloud.colors.empty() || isColorRow(cloud.colors, points), "as many colours");
    if (points > 0 && points <= kMostElements) checkCloudRoundTrip(cloud);
}

}  // namespace fuzz
