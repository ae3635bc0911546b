#pragma once

#include <type_traits>
#include <utility>

/// Questions about what a class offers, answered while compiling.
namespace test {

template <class T>
void take(T);

template <class Void, class T, class... Arguments>
constexpr bool kMakesImplicitly = false;

template <class T, class... Arguments>
constexpr bool kMakesImplicitly<std::void_t<decltype(take<T>({std::declval<Arguments>()...}))>, T,
                                Arguments...> = true;

/// Whether take({arguments...}) makes a T: not so for an explicit constructor, nor where an
/// argument would be narrowed.
template <class T, class... Arguments>
constexpr bool kMakes = kMakesImplicitly<void, T, Arguments...>;

template <class T, class = void>
constexpr bool kHasNotEqual = false;

template <class T>
constexpr bool
    kHasNotEqual<T, std::void_t<decltype(std::declval<T&>() != std::declval<const T&>())>> = true;

template <class T, class = void>
constexpr bool kHasBegin = false;

template <class T>
constexpr bool kHasBegin<T, std::void_t<decltype(std::declval<T&>().begin())>> = true;

/// Whether T is made and copied without a word, and offers neither != nor a range.
template <class T>
constexpr bool kIsPlainlyOffered =
    kMakes<T>&& std::is_convertible_v<const T&, T> && !kHasNotEqual<T> && !kHasBegin<T>;

}  // namespace test
