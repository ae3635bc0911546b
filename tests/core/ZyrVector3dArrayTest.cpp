#include "ZyrVector3dArray.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "support/LengthError.h"
#include "support/ZyrValues.h"

using test::kInvalid;
using test::values;
using Values = std::vector<double>;

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

}  // namespace

TEST(ZyrVector3dArray, BufferCountIsInDoubles) {
    double buffer[] = {1, 2, 3, 4, 5, 6};
    const ZyrVector3dArray array(buffer, 6, -1);
    EXPECT_EQ(array.Length(), 2);
    EXPECT_EQ(values(array), (Values{1, 2, 3, 4, 5, 6}));
}

TEST(ZyrVector3dArray, BufferIsCopied) {
    double buffer[] = {1, 2, 3};
    const ZyrVector3dArray array(buffer, 3, -1);
    buffer[0] = 9;
    EXPECT_EQ(array[0].x, 1);
}

TEST(ZyrVector3dArray, AMarkedComponentInvalidatesTheWholeVector) {
    double buffer[] = {1, 2, 3, 0, 5, 6, 4, 0, 6, 4, 5, 0};
    const ZyrVector3dArray array(buffer, 12, 0.0);
    Values marked{1, 2, 3};
    marked.resize(12, kInvalid);
    EXPECT_EQ(values(array), marked);
    EXPECT_EQ(array.NumValidPoints(), 1);
    EXPECT_EQ(buffer[3], 0);
}

TEST(ZyrVector3dArray, MarkIsComparedExactly) {
    double buffer[] = {-0.0, 1, 2, std::nextafter(5.0, 6), 1, 2};
    EXPECT_EQ(ZyrVector3dArray(buffer, 6, 0.0).NumValidPoints(), 1);
    EXPECT_EQ(ZyrVector3dArray(buffer, 6, 5.0).NumValidPoints(), 2);
}

TEST(ZyrVector3dArray, TheInvalidValueAsMarkMarksNothing) {
    double buffer[] = {1, 2, kInvalid, 4, 5, 6};
    const ZyrVector3dArray array(buffer, 6, kInvalid);
    EXPECT_EQ(values(array), (Values{1, 2, kInvalid, 4, 5, 6}));
    EXPECT_EQ(array.NumValidPoints(), 1);
}

TEST(ZyrVector3dArray, ANaNMarkKeepsNaNHoles) {
    double buffer[] = {1, kNaN, 3, 4, 5, 6};
    const ZyrVector3dArray array(buffer, 6, kNaN);
    EXPECT_EQ(array[0].x, 1);
    EXPECT_TRUE(std::isnan(array[0].y));
    EXPECT_EQ(array[0].z, 3);
    EXPECT_EQ(array.NumValidPoints(), 1);
}

TEST(ZyrVector3dArray, AnInfiniteMarkWorksLikeAnyOther) {
    const double inf = std::numeric_limits<double>::infinity();
    double buffer[] = {1, 2, inf, 1, 2, -inf};
    EXPECT_EQ(values(ZyrVector3dArray(buffer, 6, inf)),
              (Values{kInvalid, kInvalid, kInvalid, 1, 2, -inf}));
}

TEST(ZyrVector3dArray, ACountThatIsNoMultipleOfThreeGivesAnEmptyArray) {
    double buffer[] = {1, 2, 3, 4, 5};
    for (int count : {1, 2, 4, 5, -1, -2, -4}) {
        ZyrVector3dArray array(buffer, count, 0.0);
        EXPECT_EQ(array.Length(), 0) << count;
        array.Append(ZyrVector3d(1, 2, 3));
        EXPECT_EQ(array.Length(), 1) << count;
    }
}

TEST(ZyrVector3dArray, ACountOfZeroGivesAnEmptyArray) {
    double buffer[] = {1, 2, 3};
    EXPECT_EQ(ZyrVector3dArray(buffer, 0, 0.0).Length(), 0);
}

TEST(ZyrVector3dArray, ANullBufferGivesAnEmptyArrayWhateverTheCount) {
    for (int count : {0, 3, 4, -1, -3, std::numeric_limits<int>::max()})
        EXPECT_EQ(ZyrVector3dArray(nullptr, count, 0.0).Length(), 0) << count;
}

TEST(ZyrVector3dArray, ANegativeMultipleOfThreeIsALengthError) {
    double buffer[] = {1, 2, 3};
    for (int count : {-3, -6})
        EXPECT_TRUE(test::isLengthError([&] { ZyrVector3dArray(buffer, count, 0.0); })) << count;
}

TEST(ZyrVector3dArray, CountsTheValidPoints) {
    ZyrVector3dArray array;
    EXPECT_EQ(array.NumValidPoints(), 0);
    array.Append(ZyrVector3d(1, 2, 3));
    array.Append(ZyrVector3d());
    array.Append(ZyrVector3d(1, 2, kNaN));
    array.Append(ZyrVector3d(1, 2, -std::numeric_limits<double>::infinity()));
    EXPECT_EQ(array.NumValidPoints(), 2);
}

TEST(ZyrVector3dArray, CountsEachHoleWhereverItLies) {
    for (std::size_t hole = 0; hole < 51; ++hole) {
        Values buffer(51, 1.0);
        buffer[hole] = hole % 2 == 0 ? kInvalid : kNaN;
        EXPECT_EQ(ZyrVector3dArray(buffer.data(), 51, -1).NumValidPoints(), 16) << hole;
    }
}

TEST(ZyrVector3dArray, CountsAsAPlainLoopDoesWhateverTheShareOfHoles) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    const double odd[] = {kInvalid, kNaN, kInfinity, 2 * kInvalid, -kInvalid, -kInfinity};
    std::mt19937 random(1);
    for (const unsigned percent : {0U, 1U, 10U, 50U, 90U, 100U})
        for (const std::size_t vectors : {10U, 333U, 2002U, 100003U}) {
            Values buffer(3 * vectors);
            for (double& value : buffer)
                value = random() % 100 < percent ? odd[random() % 6] : double(random() % 1000);
            int valid = 0;
            for (std::size_t i = 0; i < buffer.size(); i += 3)
                valid +=
                    buffer[i] < kInvalid && buffer[i + 1] < kInvalid && buffer[i + 2] < kInvalid;
            const ZyrVector3dArray array(buffer.data(), static_cast<int>(buffer.size()), -1);
            EXPECT_EQ(array.NumValidPoints(), valid) << percent << ", " << vectors;
        }
}

TEST(ZyrVector3dArray, SetSizeGrowsByInvalidVectors) {
    ZyrVector3dArray array;
    array.SetSize(4);
    EXPECT_EQ(array.Length(), 4);
    EXPECT_EQ(array.NumValidPoints(), 0);
    EXPECT_EQ(values(array), Values(12, kInvalid));
}

TEST(ZyrVector3dArray, OneInvalidVectorIsNotCountedWhereverItIs) {
    const double infinity = std::numeric_limits<double>::infinity();
    for (std::size_t n = 1; n <= 9; ++n)
        for (std::size_t at = 0; at < 3 * n; ++at) {
            Values buffer(3 * n, 1);
            const auto count = [&](double value) {
                buffer[at] = value;
                return ZyrVector3dArray(buffer.data(), static_cast<int>(3 * n), -1)
                    .NumValidPoints();
            };
            const int all = static_cast<int>(n);
            for (const double value : {kInvalid, infinity, kNaN})
                EXPECT_EQ(count(value), all - 1) << n << ", " << at;
            EXPECT_EQ(count(-infinity), all) << n << ", " << at;
        }
}
