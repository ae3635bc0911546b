#include <gtest/gtest.h>

#include "Allocations.h"
#include "FaultyFile.h"
#include "Formats.h"
#include "support/MatrixLimit.h"

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

class MemoryFaults : public test::EachFormat {
protected:
    bool load(Content& content) const {
        return GetParam().load(content, sample_.c_str(), true, true);
    }

    bool save(Content& content) const { return GetParam().save(content, file_.c_str()); }

    /// Calls use with one allocation after the other failing, until none is reached: it succeeds
    /// only then. Gives how many there are.
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

    test::TempFolder folder_;
    std::string file_ = folder_.path("file");
    std::string sample_ = GetParam().samplePath();
};

}  // namespace

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

INSTANTIATE_TEST_SUITE_P(Formats, MemoryFaults, testing::ValuesIn(test::formats()),
                         test::formatName);
