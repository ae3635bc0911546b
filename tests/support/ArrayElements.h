#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <type_traits>
#include <utility>
#include <vector>

#include "Zyr3DDoubleArray.h"
#include "Zyr3DIntArray.h"
#include "ZyrVector3dArray.h"
#include "support/ZyrValues.h"

/// Elements for the suites that run over all three sharing arrays: 1, 2, 3 ... name distinct
/// elements of any of them.
namespace test {

using Arrays = testing::Types<ZyrVector3dArray, Zyr3DDoubleArray, Zyr3DIntArray>;

template <class Array>
using ElementOf = std::decay_t<decltype(std::declval<const Array&>()[0])>;

template <class Element>
Element element(int n) {
    if constexpr (std::is_same_v<Element, ZyrVector3d>)
        return ZyrVector3d(n + 0.25, -n, n + 0.5);
    else if constexpr (std::is_same_v<Element, double>)
        return n + 0.5;
    else
        return n;
}

template <class Array>
Array arrayOf(std::initializer_list<int> names) {
    Array array;
    for (int name : names) array.Append(element<ElementOf<Array>>(name));
    return array;
}

inline std::vector<double> flat(const std::vector<ZyrVector3d>& vectors) {
    std::vector<double> values;
    for (const ZyrVector3d& v : vectors) values.insert(values.end(), {v.x, v.y, v.z});
    return values;
}

template <class Number>
std::vector<Number> flat(const std::vector<Number>& numbers) {
    return numbers;
}

template <class Element>
auto flatElement(const Element& element) {
    return flat(std::vector<Element>{element});
}

/// What values() gives for an array of these elements.
template <class Array>
auto expected(std::initializer_list<int> names) {
    std::vector<ElementOf<Array>> elements;
    for (int name : names) elements.push_back(element<ElementOf<Array>>(name));
    return flat(elements);
}

template <class Array, class = void>
constexpr bool kHasSwap = false;

template <class Array>
constexpr bool kHasSwap<Array, std::void_t<decltype(std::declval<Array&>().Swap(0, 0))>> = true;

}  // namespace test
