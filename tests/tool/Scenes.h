#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "formats/Fault.h"
#include "formats/Readers.h"
#include "support/Bytes.h"
#include "support/ZyrValues.h"

/// What the tests of foreign formats share.
namespace test {

/// The values one after the other, to be compared at once.
inline std::vector<double> flat(ZyrVector3dArray vectors) {
    std::vector<double> values;
    for (int i = 0; i < vectors.Length(); ++i)
        values.insert(values.end(), {vectors[i].x, vectors[i].y, vectors[i].z});
    return values;
}

inline std::vector<double> pointsOf(const zyr::Scene& scene) {
    ZyrPointCloud cloud = scene.cloud;
    return flat(cloud.PointData());
}

inline std::vector<double> normalsOf(const zyr::Scene& scene) {
    ZyrPointCloud cloud = scene.cloud;
    return flat(cloud.NormalData());
}

inline std::vector<int> bytesOf(const ZyrColorArray& colors) {
    const int size = colors.Length() > 0 ? colors.Length() * colors.Channel() : 0;
    return std::vector<int>(colors.Data(), colors.Data() + size);
}

/// As they are kept: blue, green, red.
inline std::vector<int> colorsOf(const zyr::Scene& scene) {
    ZyrPointCloud cloud = scene.cloud;
    return bytesOf(cloud.ColorData());
}

inline std::vector<int> trianglesOf(const zyr::Scene& scene) {
    return std::vector<int>(scene.triangles.Data(),
                            scene.triangles.Data() + scene.triangles.Length());
}

inline std::string leftOut(const zyr::Scene& scene) {
    std::string text;
    for (const std::string& what : scene.leftOut) text += what + "; ";
    return text;
}

/// What is wrong with the bytes; "" when nothing is.
template <class Read>
std::string faultOf(Read read, const std::string& bytes) {
    try {
        read(bytes);
    } catch (const zyr::FormatFault& fault) {
        return fault.what();
    }
    return "";
}

template <class Read>
void expectFault(Read read, const std::string& bytes, const std::string& text) {
    const std::string fault = faultOf(read, bytes);
    EXPECT_NE(fault.find(text), std::string::npos) << "instead: " << fault;
}

/// The values as they lie in a little-endian file.
template <class T>
std::string raw(const std::vector<T>& values) {
    return std::string(reinterpret_cast<const char*>(values.data()), values.size() * sizeof(T));
}

template <class T>
std::string swapped(const std::vector<T>& values) {
    std::string bytes;
    for (const T& value : values) {
        const std::string one = raw(std::vector<T>{value});
        bytes.append(one.rbegin(), one.rend());
    }
    return bytes;
}

}  // namespace test
