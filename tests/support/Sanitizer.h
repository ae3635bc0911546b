#pragma once

extern "C" {
[[gnu::weak]] void __asan_init();
[[gnu::weak]] void __tsan_init();
}

namespace test {

/// Whether a sanitizer is in the program, which reserves more addresses than any limit leaves and
/// takes memory of its own.
inline bool hasSanitizer() {
    return __asan_init != nullptr || __tsan_init != nullptr;
}

}  // namespace test
