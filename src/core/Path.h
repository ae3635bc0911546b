#pragma once

#include <memory>
#include <string_view>

#include "Zyr3DInner.h"

/// Paths as the file functions take them. None of these throws, which the file functions must not
/// either.
namespace zyr {

/// What follows the path's last '.'; empty when there is none, and for null.
template <class Char>
std::basic_string_view<Char> suffixOf(const Char* path) {
    const auto text =
        path == nullptr ? std::basic_string_view<Char>() : std::basic_string_view<Char>(path);
    const std::size_t dot = text.rfind(Char('.'));
    return dot == text.npos ? std::basic_string_view<Char>() : text.substr(dot + 1);
}

/// The path in the other kind of characters, by Zyr3DInner's conversion; null without memory.
template <class Target, class Source>
std::unique_ptr<Target[]> convertedPath(const Source* path,
                                        Target* (*conversion)(const Source*)) try {
    return std::unique_ptr<Target[]>(conversion(path));
} catch (...) {
    return nullptr;
}

inline std::unique_ptr<char[]> narrowPath(const wchar_t* path) {
    return convertedPath(path, Zyr3DInner::wchar2char);
}

inline std::unique_ptr<wchar_t[]> widePath(const char* path) {
    return convertedPath(path, Zyr3DInner::char2wchar);
}

}  // namespace zyr
