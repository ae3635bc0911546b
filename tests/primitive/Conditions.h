#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

#include "Zyr3DTorus.h"
#include "support/ZyrValues.h"

/// For walking the conditions of a primitive's test: values just inside and just outside a bound,
/// and the question whether all of them pass or fail.
namespace test {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kSmallest = std::numeric_limits<double>::denorm_min();

inline double above(double value) {
    return std::nextafter(value, kInfinity);
}

inline double below(double value) {
    return std::nextafter(value, -kInfinity);
}

/// (1, 2, 3) with each component in turn replaced by each value.
inline std::vector<ZyrVector3d> withComponents(const std::vector<double>& replacements) {
    std::vector<ZyrVector3d> vectors;
    for (const double value : replacements) {
        vectors.emplace_back(value, 2, 3);
        vectors.emplace_back(1, value, 3);
        vectors.emplace_back(1, 2, value);
    }
    return vectors;
}

inline std::vector<ZyrVector3d> barelyValidVectors() {
    return withComponents({below(kInvalid), -kInvalid, -kInfinity, 0.0});
}

inline std::vector<ZyrVector3d> barelyInvalidVectors() {
    return withComponents({kInvalid, above(kInvalid), kInfinity, kNaN});
}

/// A primitive's doubles in the order in which they lie in memory.
template <class Primitive>
std::vector<double> fields(const Primitive& primitive) {
    static_assert(std::is_trivially_copyable_v<Primitive>);
    static_assert(sizeof(Primitive) % sizeof(double) == 0);
    std::vector<double> doubles(sizeof(Primitive) / sizeof(double));
    std::memcpy(doubles.data(), &primitive, sizeof(Primitive));
    return doubles;
}

/// With the type, which is no double, as one.
inline std::vector<double> fields(const Zyr3DTorus& torus) {
    std::vector<double> doubles = fields<Zyr3DTorus>(torus);
    int type;
    std::memcpy(&type, &doubles[4], sizeof(type));
    doubles[4] = type;
    return doubles;
}

/// Bit for bit, so that a NaN is like itself.
template <class Primitive>
bool areIdentical(const Primitive& one, const Primitive& other) {
    const std::vector<double> left = fields(one), right = fields(other);
    return std::memcmp(left.data(), right.data(), left.size() * sizeof(double)) == 0;
}

inline std::string text(double value) {
    return testing::PrintToString(value);
}

inline std::string text(const ZyrVector3d& v) {
    return testing::PrintToString(values(v));
}

/// Whether the primitive made from each value is valid, and stays as it is.
template <class Make, class Value>
testing::AssertionResult allPass(Make make, const std::vector<Value>& arguments) {
    for (const Value& argument : arguments) {
        auto primitive = make(argument);
        const auto before = primitive;
        if (!primitive.IsValid()) return testing::AssertionFailure() << text(argument) << " fails";
        if (!areIdentical(primitive, before))
            return testing::AssertionFailure() << text(argument) << " passes, but changes";
    }
    return testing::AssertionSuccess();
}

/// Whether the primitive made from each value is invalid, and becomes a default one.
template <class Make, class Value>
testing::AssertionResult allFail(Make make, const std::vector<Value>& arguments) {
    for (const Value& argument : arguments) {
        auto primitive = make(argument);
        if (primitive.IsValid()) return testing::AssertionFailure() << text(argument) << " passes";
        if (!areIdentical(primitive, decltype(primitive)()))
            return testing::AssertionFailure() << text(argument) << " fails without a reset";
    }
    return testing::AssertionSuccess();
}

/// The doubles that "greater than 0" takes and refuses.
inline const std::vector<double> kPositive = {kSmallest, 1.0, kInvalid, kInfinity};
inline const std::vector<double> kNotPositive = {0.0, -0.0, -kSmallest, -kInfinity, kNaN};
/// The doubles that "0 or more" takes and refuses.
inline const std::vector<double> kNotNegative = {0.0, -0.0, kSmallest, kInvalid, kInfinity};
inline const std::vector<double> kNegative = {-kSmallest, -1.0, -kInfinity, kNaN};

}  // namespace test
