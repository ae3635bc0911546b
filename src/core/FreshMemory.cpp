#include "core/FreshMemory.h"

#include <sys/mman.h>

#include <cstdint>

namespace zyr {

void preferHugePages(void* first, std::size_t bytes) {
    constexpr std::uintptr_t kHugePage = 2 << 20;
    constexpr std::size_t kWorthIt = 4 << 20;
    if (bytes < kWorthIt) return;
    const auto address = reinterpret_cast<std::uintptr_t>(first);
    const std::uintptr_t begin = (address + kHugePage - 1) / kHugePage * kHugePage;
    const std::uintptr_t end = (address + bytes) / kHugePage * kHugePage;
    // Advice only: where it can't be followed, small pages serve.
    (void)madvise(static_cast<char*>(first) + (begin - address), end - begin, MADV_HUGEPAGE);
}

}  // namespace zyr
