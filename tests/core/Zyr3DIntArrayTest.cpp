#include "Zyr3DIntArray.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/ArrayElements.h"
#include "support/LengthError.h"

using test::values;
using Values = std::vector<int>;

namespace {

constexpr int kMin = std::numeric_limits<int>::min();
constexpr int kMax = std::numeric_limits<int>::max();

}  // namespace

TEST(Zyr3DIntArray, BufferIsCopiedWithoutMarking) {
    int buffer[] = {1, 0, -1, kMin, kMax};
    const Zyr3DIntArray array(buffer, 5);
    buffer[0] = 9;
    EXPECT_EQ(values(array), (Values{1, 0, -1, kMin, kMax}));
}

TEST(Zyr3DIntArray, ANullBufferGivesAnEmptyArrayWhateverTheCount) {
    for (int count : {0, 1, -1, kMax}) EXPECT_EQ(Zyr3DIntArray(nullptr, count).Length(), 0);
}

TEST(Zyr3DIntArray, ACountOfZeroGivesAnEmptyArray) {
    int buffer[] = {1};
    EXPECT_EQ(Zyr3DIntArray(buffer, 0).Length(), 0);
}

TEST(Zyr3DIntArray, ANegativeCountIsALengthError) {
    int buffer[] = {1};
    EXPECT_TRUE(test::isLengthError([&] { Zyr3DIntArray(buffer, -1); }));
}

TEST(Zyr3DIntArray, AnyElementInRangeIsValidWhateverItsValue) {
    int buffer[] = {0, -1, kMin, kMax};
    Zyr3DIntArray array(buffer, 4);
    for (int i = 0; i < 4; ++i) EXPECT_TRUE(array.IsValid(i)) << i;
}

TEST(Zyr3DIntArray, NoIndexOutOfRangeIsValid) {
    Zyr3DIntArray array = test::arrayOf<Zyr3DIntArray>({1, 2});
    Zyr3DIntArray empty;
    for (int i : {-1, 2, kMin, kMax}) EXPECT_FALSE(array.IsValid(i)) << i;
    EXPECT_FALSE(empty.IsValid(0));
}

TEST(Zyr3DIntArray, SetSizeGrowsByZeros) {
    Zyr3DIntArray array;
    array.SetSize(3);
    EXPECT_EQ(values(array), (Values{0, 0, 0}));
}
