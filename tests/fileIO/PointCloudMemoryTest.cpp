#include <gtest/gtest.h>
#include <sys/resource.h>

#include <cstdlib>
#include <fstream>

#include "support/CloudFile.h"
#include "support/Sanitizer.h"

/// Allocations that fail, in a child process that may not take more memory.

namespace {

constexpr int kPoints = 2000000;

/// Takes all memory but small pieces, what the allocator keeps from earlier tests included.
void limitMemory() {
    rlim_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    const rlim_t most = pages * 4096 + (rlim_t(16) << 20);
    const rlimit limit{most, most};
    setrlimit(RLIMIT_AS, &limit);
    static void* volatile taken;  // volatile, so that the allocations are not optimised away
    do taken = std::malloc(1 << 20);
    while (taken != nullptr);
}

}  // namespace

TEST(PointCloudMemory, LoadingWithoutEnoughGivesFalseForEveryKindOfBody) {
    if (test::hasSanitizer()) GTEST_SKIP() << "the sanitizer needs the address space";
    for (const char* kind : {"ascii", "binary", "binary_compressed"}) {
        const test::CloudHeader header =
            test::CloudHeader(kPoints).columns("x y z", "4 4 4", "F F F", "1 1 1").kind(kind);
        const test::MemoryFile file(header.bytes());
        // With enough memory the points are there, so that nothing but its lack makes a false.
        EXPECT_TRUE(test::loadFile(file.path(), false, false).isLoaded) << kind;
        const auto load = [&] {
            limitMemory();
            std::exit(test::loadFile(file.path(), false, false).isLoaded ? 1 : 0);
        };
        EXPECT_EXIT(load(), testing::ExitedWithCode(0), "") << kind;
    }
}
