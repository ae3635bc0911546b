#pragma once

#include <rapidcheck/gtest.h>

#include <cstdint>
#include <cstring>
#include <vector>

#include "support/CloudFile.h"

/// Random clouds for property tests.
namespace test {

/// A double of any bit pattern or one that data have: small whole numbers and holes.
inline rc::Gen<double> anyDouble() {
    const auto ofBits = rc::gen::map(rc::gen::arbitrary<std::uint64_t>(), [](std::uint64_t word) {
        double value;
        std::memcpy(&value, &word, sizeof value);
        return value;
    });
    const auto whole = rc::gen::map(rc::gen::inRange(-5, 5), [](int i) { return double(i); });
    return rc::gen::oneOf(ofBits, whole, rc::gen::element(3.4028234663852886e+38, -0.0, 5e-324));
}

inline ZyrVector3dArray anyVectors(std::size_t length) {
    return vectors(*rc::gen::container<std::vector<double>>(3 * length, anyDouble()));
}

inline cv::Mat anyColors(std::size_t length, int channels) {
    const auto size = length * static_cast<std::size_t>(channels);
    return colorRow(*rc::gen::container<Bytes>(size, rc::gen::arbitrary<unsigned char>()),
                    channels);
}

/// The array with NaN components as 0.0, as a reader of compressed bodies leaves them.
inline ZyrVector3dArray withoutNaN(ZyrVector3dArray array) {
    ZyrVector3dArray copy = array.DeepCopy();
    for (int i = 0; i < 3 * copy.Length(); ++i)
        if (copy.Data()[i] != copy.Data()[i]) copy.Data()[i] = 0.0;
    return copy;
}

}  // namespace test
