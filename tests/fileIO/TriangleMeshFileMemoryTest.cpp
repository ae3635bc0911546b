#include <gtest/gtest.h>
#include <sys/resource.h>

#include <cstdlib>
#include <fstream>

#include "support/MeshFile.h"
#include "support/Sanitizer.h"

/// Allocations that fail, in a child process that may not take more memory.

namespace {

// What a small file may declare.
constexpr int kDeclaredVertices = 2000000;

/// No more address space than the process has, and a little.
void limitMemory() {
    rlim_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    const rlim_t most = pages * 4096 + (rlim_t(16) << 20);
    const rlimit limit{most, most};
    setrlimit(RLIMIT_AS, &limit);
}

}  // namespace

TEST(MeshMemory, LoadingWithoutEnoughGivesFalse) {
    if (test::hasSanitizer()) GTEST_SKIP() << "the sanitizer needs the address space";
    // A process of its own, whose heap holds nothing that earlier tests gave back.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const test::MemoryFile file(test::MeshHeader(kDeclaredVertices, 0).kind("ascii").bytes());
    const auto load = [&] {
        limitMemory();
        test::MeshLists mesh;
        std::exit(mesh.load(file.path(), false, false) ? 1 : 0);
    };
    EXPECT_EXIT(load(), testing::ExitedWithCode(0), "");
}
