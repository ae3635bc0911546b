#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "Allocations.h"
#include "FaultyFile.h"
#include "Formats.h"
#include "ZyrTriangleMesh.h"
#include "support/MatrixLimit.h"
#include "support/Sanitizer.h"

// Memory that runs out at each allocation in turn: false, nothing lost, and objects that go on
// working.

using test::Bytes;
using test::Content;

namespace {

/// Matrices' own allocations do not fail: OpenCV loses the pixels when it finds no memory for their
/// description. Tests of matrices without memory use the limit alone.
class SteadyMatrices : public test::MatrixLimit {
public:
    SteadyMatrices() : MatrixLimit(1 << 20) {}

    cv::UMatData* allocate(int dims, const int* sizes, int type, void* data, size_t* step,
                           cv::AccessFlag flags, cv::UMatUsageFlags usage) const override {
        const test::FailingPaused paused;
        return MatrixLimit::allocate(dims, sizes, type, data, step, flags, usage);
    }
    using MatrixLimit::allocate;
};

/// Calls use with one allocation after the other failing, until none is reached: it succeeds only
/// then. Gives how many there are.
template <class Use>
long forEachAllocation(Use use) {
    const SteadyMatrices steady;
    long n = 0;
    for (bool hasFailed = true; hasFailed; ++n) {
        Content fresh;
        test::failAllocation(n);
        const bool isGood = use(fresh);
        hasFailed = test::endFailing();
        EXPECT_EQ(isGood, !hasFailed) << n;
    }
    return n - 1;
}

class MemoryFaults : public test::EachFormat {
protected:
    bool load(Content& content) const {
        return GetParam().load(content, sample_.c_str(), true, true);
    }

    bool save(Content& content) const { return GetParam().save(content, file_.c_str()); }

    /// Loads the file while the address space is used up, with a little more memory each time. True
    /// where that gives false and then all of the file.
    bool copesWithLimits(const std::string& path) const;

    test::TempFolder folder_;
    std::string file_ = folder_.path("file");
    std::string sample_ = GetParam().samplePath();
};

/// All memory of a process that may not take more, but for the pieces that are given back.
class NoMemory {
public:
    NoMemory() {
        rlim_t pages = 0;
        std::ifstream("/proc/self/statm") >> pages;
        getrlimit(RLIMIT_AS, &before_);
        // A little more than what is in use: it depends on chance how much of that is free.
        constexpr rlim_t kMore = 4 << 20;
        const rlimit limit{pages * static_cast<rlim_t>(getpagesize()) + kMore, before_.rlim_max};
        setrlimit(RLIMIT_AS, &limit);
        // Pieces that the C library joins, and then what it keeps of any smaller size.
        takeAll(1 << 20);
        takeAll(1 << 11);
        pieces_ = last_;
        for (std::size_t bytes = 1 << 11; bytes > 0; bytes -= 8) takeAll(bytes);
    }
    ~NoMemory() { setrlimit(RLIMIT_AS, &before_); }
    NoMemory(const NoMemory&) = delete;
    NoMemory& operator=(const NoMemory&) = delete;

    /// Whether there was a piece left.
    bool giveBack() {
        Piece* piece = pieces_;
        if (piece == nullptr) return false;
        pieces_ = piece->before;
        std::free(piece);
        return true;
    }

private:
    struct Piece {
        Piece* before;
    };

    void takeAll(std::size_t bytes) {
        for (void* taken = std::malloc(bytes); taken != nullptr; taken = std::malloc(bytes))
            last_ = new (taken) Piece{last_};
    }

    rlimit before_{};
    Piece* last_ = nullptr;
    Piece* pieces_ = nullptr;
};

bool MemoryFaults::copesWithLimits(const std::string& path) const {
    Content content, whole;
    const auto load = [&](Content& c) { return GetParam().load(c, path.c_str(), true, true); };
    const bool isGood = load(whole);
    int refused = 0;
    {
        NoMemory memory;
        while (!load(content) && memory.giveBack()) ++refused;
    }
    return isGood && refused > 0 && test::bytesOf(content) == test::bytesOf(whole);
}

}  // namespace

TEST_P(MemoryFaults, UnderALimitOfTheAddressSpaceLoadingGivesFalseUntilThereIsEnough) {
    if (test::hasSanitizer()) GTEST_SKIP() << "the sanitizers need the addresses";
    const std::string folder = std::string(ZYR_GOLDEN_DIR "/") + GetParam().folder;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".py") continue;
        const pid_t child = fork();
        if (child == 0) std::_Exit(copesWithLimits(entry.path()) ? 0 : 1);
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0) << entry.path();
    }
}

TEST_P(MemoryFaults, LoadingGivesFalseAtEachAllocation) {
    EXPECT_GT(forEachAllocation([&](Content& fresh) { return load(fresh); }), 0);
}

TEST_P(MemoryFaults, LoadingSucceedsAfterwards) {
    const Bytes whole = test::bytesOf(test::sampleOf(GetParam()));
    const SteadyMatrices steady;
    Content content;
    for (long n = 0; n < 40; ++n) {
        test::failAllocation(n);
        load(content);
        test::endFailing();
        EXPECT_TRUE(load(content));
        EXPECT_EQ(test::bytesOf(content), whole) << n;
    }
}

TEST_P(MemoryFaults, SavingGivesFalseAtEachAllocationAndLeavesTheObjects) {
    Content content = test::sampleOf(GetParam());
    const Bytes before = test::bytesOf(content);
    EXPECT_GT(forEachAllocation([&](Content&) { return save(content); }), 0);
    EXPECT_EQ(test::bytesOf(content), before);
    Content again;
    EXPECT_TRUE(GetParam().load(again, file_.c_str(), true, true));
    EXPECT_EQ(test::bytesOf(again), before);
}

TEST_P(MemoryFaults, NothingIsLostAndNoFileIsLeftOpen) {
    Content content = test::sampleOf(GetParam());
    const SteadyMatrices steady;
    const test::FaultyFiles counted({});
    for (long n = 0; n < 40; ++n) {
        const std::size_t before = test::heldBytes();
        {
            Content fresh;
            test::failAllocation(n);
            load(fresh);
            save(content);
            test::endFailing();
        }
        EXPECT_EQ(test::heldBytes(), before) << n;
        EXPECT_EQ(test::FaultyFiles::open(), 0) << n;
    }
}

TEST_P(MemoryFaults, WithoutMemoryForMatricesLoadingGivesFalse) {
    Content content;
    {
        const test::MatrixLimit limit(0);
        EXPECT_FALSE(load(content));
    }
    EXPECT_TRUE(load(content));
}

TEST(MemoryFaultsOfObjects, AMeshLoadsAndSavesUnderEitherPathOrGivesFalse) {
    const test::TempFolder folder;
    const std::string golden = ZYR_GOLDEN_DIR "/mesh/mesh_vn_vc3_tn_tc4.ztmt";
    const std::string file = folder.path("a.ztmt");
    const std::wstring wideGolden(golden.begin(), golden.end()), wideFile(file.begin(), file.end());
    ZyrTriangleMesh mesh, saved;
    ASSERT_TRUE(saved.Load(golden.c_str(), true, true));
    const auto reaches = [](auto use) {
        return forEachAllocation([&](Content&) { return use(); }) > 0;
    };
    EXPECT_TRUE(reaches([&] { return mesh.Load(golden.c_str(), true, true); }));
    EXPECT_TRUE(reaches([&] { return mesh.Load(wideGolden.c_str(), true, true); }));
    EXPECT_TRUE(reaches([&] { return saved.Save(file.c_str(), true, true); }));
    EXPECT_TRUE(reaches([&] { return saved.Save(wideFile.c_str(), true, true); }));
    EXPECT_TRUE(mesh.Load(file.c_str(), true, true));
}

INSTANTIATE_TEST_SUITE_P(Formats, MemoryFaults, testing::ValuesIn(test::formats()),
                         test::formatName);
