#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstddef>
#include <string>
#include <type_traits>
#include <vector>

#include "Zyr3DShape.h"
#include "primitive/Conditions.h"
#include "support/ZyrValues.h"

/// The kinds of fixed size as a table: what each of their fields takes and refuses, on storing and
/// on reading.
namespace test {

using Doubles = std::vector<double>;

/// What a field, or a run of fields that are checked together, just takes and just refuses: lists
/// of doubles to put in its place.
struct Rule {
    std::vector<Doubles> taken;
    std::vector<Doubles> refused;
};

struct Kind {
    int code;
    std::string name;
    Doubles sample;
    /// The rules of the fields in their order.
    std::vector<Rule> storing;
    std::vector<Rule> reading;
};

inline std::vector<Doubles> each(const std::vector<ZyrVector3d>& vectors) {
    std::vector<Doubles> lists;
    for (const ZyrVector3d& v : vectors) lists.push_back(values(v));
    return lists;
}

inline std::vector<Doubles> each(const Doubles& numbers) {
    std::vector<Doubles> lists;
    for (const double number : numbers) lists.push_back({number});
    return lists;
}

inline std::vector<Doubles> both(std::vector<Doubles> one, const std::vector<Doubles>& other) {
    one.insert(one.end(), other.begin(), other.end());
    return one;
}

inline const Rule kValidVector = {each(barelyValidVectors()), each(barelyInvalidVectors())};
/// The squares of 1e-170 are 0, and so is the length; those of -1e200 are infinite, and it passes.
inline const Rule kDirection = {
    both(kValidVector.taken, {{0, 0, 1e-160}, {-1e200, 0, 0}, {0, 0, 3}}),
    both(kValidVector.refused, {{0, 0, 0}, {-0.0, -0.0, -0.0}, {1e-170, 1e-170, 1e-170}})};
inline const Rule kExtent = {each(withComponents({kSmallest, below(kInvalid)})),
                             both(kValidVector.refused, each(withComponents(kNotPositive)))};
inline const Rule kAnyNumber = {each({0.0, -1.0, kInvalid, kInfinity, -kInfinity, kNaN}), {}};
inline const Rule kPositiveNumber = {each(kPositive), each(kNotPositive)};
inline const Rule kNotNegativeNumber = {each(kNotNegative), each(kNegative)};
inline const Rule kStart = {each({0.0, -0.0, kSmallest, 360.0}),
                            each({-kSmallest, above(360), kInfinity, kNaN})};
/// Inner and outer radius.
inline const Rule kRadii = {
    {{0, 6}, {-0.0, 6}, {0, kSmallest}, {6, 6}, {5, kInfinity}, {kInfinity, kInfinity}},
    {{-kSmallest, 6},
     {above(6), 6},
     {6, below(6)},
     {0, 0},
     {-0.0, 0},
     {-2, -1},
     {kNaN, 6},
     {5, kNaN}}};
inline const Rule kGivenType = {each({0, 1}), each({-1, 2, 5, INT_MAX, INT_MIN})};
/// Truncated toward zero, and what does not fit 32 bits is no type.
inline const Rule kStoredType = {
    each({0.0, 1.0, -0.0, below(1), above(-1), below(2), kSmallest}),
    each({2.0, -1.0, 4294967296.0, 4294967297.0, -4294967295.0, kInfinity, -kInfinity, kNaN})};
/// The vertices of a triangle, told by the angle at the second.
inline const Rule kCorners = {{{0, 0, 0, 1, 0, 0, 1, 1, 0}, {0, 0, 0, 1, 0, 0, 0, 0.01, 0}},
                              {{0, 0, 0, 1, 0, 0, 2, 0, 0},
                               {0, 0, 0, 1, 0, 0, 0, 0.001, 0},
                               {1, 2, 3, 1, 2, 3, 1, 1, 0},
                               {kInvalid, 0, 0, 1, 0, 0, 1, 1, 0},
                               {0, 0, 0, 1, kNaN, 0, 1, 1, 0},
                               {0, 0, 0, 1, 0, 0, 1, 1, kInfinity}}};

/// As both blocks have them, save that the twins read an ellipse each in its own way.
inline std::vector<Kind> kinds(const Rule& readRadiusA) {
    const Rule &valid = kValidVector, &direction = kDirection, &extent = kExtent, &any = kAnyNumber,
               &positive = kPositiveNumber, &notNegative = kNotNegativeNumber;
    return {
        {1, "point", {1, 2, 3}, {valid}, {valid}},
        {2, "line", {1, 2, 3, 4, 5, 6}, {valid, direction}, {valid, direction}},
        {3, "line segment", {1, 2, 3, 4, 5, 6}, {valid, valid}, {valid, valid}},
        {4, "circle", {1, 2, 3, 4, 5, 6, 7}, {valid, direction, positive}, {valid, direction, any}},
        {5, "plane", {1, 2, 3, 4, 5, 6}, {valid, direction}, {valid, direction}},
        {6, "box", {1, 2, 3, 4, 5, 6, 7, 8, 9}, {valid, valid, extent}, {valid, valid, valid}},
        {7, "sphere", {1, 2, 3, 4}, {valid, positive}, {valid, any}},
        {8,
         "cylinder",
         {1, 2, 3, 4, 5, 6, 7, 8},
         {valid, direction, positive, positive},
         {valid, direction, any, any}},
        {9, "triangle", {1, 2, 3, 4, 5, 6, 7, 8, 10}, {kCorners}, {valid, valid, valid}},
        {11,
         "ellipse",
         {1, 2, 3, 4, 5, 6, 7, 8},
         {valid, valid, positive, positive},
         {valid, valid, readRadiusA, positive}},
        {12,
         "ellipsoid",
         {1, 2, 3, 4, 5, 6, 7, 8, 9},
         {valid, valid, extent},
         {valid, valid, extent}},
        {13,
         "rectangle",
         {1, 2, 3, 4, 5, 6, 7, 8},
         {valid, valid, positive, positive},
         {valid, valid, positive, positive}},
        {14,
         "torus",
         {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 1},
         {valid, valid, kRadii, any, notNegative, kGivenType},
         {valid, valid, kRadii, kStart, any, kStoredType}},
        {15,
         "tube",
         {1, 2, 3, 4, 5, 6, 7, 8, 9},
         {valid, direction, kRadii, positive},
         {valid, valid, kRadii, notNegative}},
        {16,
         "arc",
         {1, 2, 3, 4, 5, 6, 7, 8, 9},
         {valid, valid, positive, any, notNegative},
         {valid, valid, positive, kStart, notNegative}},
    };
}

template <class Block>
std::vector<Kind> kindsOf() {
    const bool isRegion = std::is_same_v<Block, IZyr3DROIPara> || std::is_same_v<Block, Zyr3DROI>;
    return kinds(isRegion ? kAnyNumber : kPositiveNumber);
}

/// The samples with each field in turn replaced by what the chosen lists of its rule hold.
inline std::vector<Doubles> variants(const Doubles& sample, const std::vector<Rule>& rules,
                                     std::vector<Doubles> Rule::*lists) {
    std::vector<Doubles> result;
    auto first = sample.begin();
    for (const Rule& rule : rules) {
        for (const Doubles& replacement : rule.*lists) {
            result.push_back(sample);
            std::copy(replacement.begin(), replacement.end(),
                      result.back().begin() + (first - sample.begin()));
        }
        first += static_cast<std::ptrdiff_t>(rule.taken.front().size());
    }
    EXPECT_EQ(first, sample.end()) << "the rules cover the layout";
    return result;
}

/// Towards zero; INT_MIN where the result does not fit, and for NaN.
inline int truncated(double value) {
    return value > -2147483649.0 && value < 2147483648.0 ? static_cast<int>(value) : INT_MIN;
}

}  // namespace test
