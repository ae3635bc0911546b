#include "Zyr3DDoubleArray.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/ArrayElements.h"
#include "support/LengthError.h"

using test::kInvalid;
using test::values;
using Values = std::vector<double>;

static_assert(!test::kHasSwap<Zyr3DDoubleArray>);

TEST(Zyr3DDoubleArray, BufferIsCopied) {
    double buffer[] = {1.5, -2, 3, 4};
    const Zyr3DDoubleArray array(buffer, 4, 99);
    buffer[0] = 9;
    EXPECT_EQ(values(array), (Values{1.5, -2, 3, 4}));
}

TEST(Zyr3DDoubleArray, MarkedValuesBecomeTheInvalidValue) {
    double buffer[] = {7, 1, 7, std::nextafter(7.0, 8)};
    const Zyr3DDoubleArray array(buffer, 4, 7);
    EXPECT_EQ(values(array), (Values{kInvalid, 1, kInvalid, std::nextafter(7.0, 8)}));
    EXPECT_EQ(buffer[0], 7);
}

TEST(Zyr3DDoubleArray, AZeroMarkTakesBothZeros) {
    double buffer[] = {0.0, -0.0, 1};
    EXPECT_EQ(values(Zyr3DDoubleArray(buffer, 3, 0.0)), (Values{kInvalid, kInvalid, 1}));
}

TEST(Zyr3DDoubleArray, TheInvalidValueAsMarkChangesNothing) {
    double buffer[] = {1, kInvalid};
    EXPECT_EQ(values(Zyr3DDoubleArray(buffer, 2, kInvalid)), (Values{1, kInvalid}));
}

TEST(Zyr3DDoubleArray, ANaNMarkMatchesNothing) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    double buffer[] = {nan, 1};
    const Zyr3DDoubleArray array(buffer, 2, nan);
    EXPECT_TRUE(std::isnan(array[0]));
    EXPECT_EQ(array[1], 1);
}

TEST(Zyr3DDoubleArray, ANullBufferGivesAnEmptyArrayWhateverTheCount) {
    for (int count : {0, 1, -1, std::numeric_limits<int>::max()})
        EXPECT_EQ(Zyr3DDoubleArray(nullptr, count, 0.0).Length(), 0) << count;
}

TEST(Zyr3DDoubleArray, ANegativeCountIsALengthError) {
    double buffer[] = {1};
    EXPECT_TRUE(test::isLengthError([&] { Zyr3DDoubleArray(buffer, -1, 0.0); }));
}

TEST(Zyr3DDoubleArray, ACountOfZeroGivesAnEmptyArray) {
    double buffer[] = {1};
    EXPECT_EQ(Zyr3DDoubleArray(buffer, 0, 0.0).Length(), 0);
}

TEST(Zyr3DDoubleArray, AnyElementInRangeIsValidWhateverItsValue) {
    double buffer[] = {1, kInvalid, std::numeric_limits<double>::quiet_NaN(),
                       std::numeric_limits<double>::infinity(), -1e300};
    Zyr3DDoubleArray array(buffer, 5, 1);
    for (int i = 0; i < 5; ++i) EXPECT_TRUE(array.IsValid(i)) << i;
}

TEST(Zyr3DDoubleArray, NoIndexOutOfRangeIsValid) {
    Zyr3DDoubleArray array = test::arrayOf<Zyr3DDoubleArray>({1, 2});
    Zyr3DDoubleArray empty;
    for (int i : {-1, 2, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        EXPECT_FALSE(array.IsValid(i)) << i;
    EXPECT_FALSE(empty.IsValid(0));
}

TEST(Zyr3DDoubleArray, SetSizeGrowsByZeros) {
    Zyr3DDoubleArray array;
    array.SetSize(4);
    EXPECT_EQ(values(array), (Values{0, 0, 0, 0}));
}

TEST(Zyr3DDoubleArray, ClearKeepsTheCapacity) {
    Zyr3DDoubleArray array;
    array.SetSize(1000);
    array.Clear();
    array.SetSize(1);
    const double* before = array.Data();
    array.SetSize(1000);  // needs a new block, unless capacity is left
    EXPECT_EQ(array.Data(), before);
}

TEST(Zyr3DDoubleArray, SelectWorksOnAConstArray) {
    const Zyr3DDoubleArray array = test::arrayOf<Zyr3DDoubleArray>({1, 2});
    double out = 0;
    array.Select(1, &out);
    EXPECT_EQ(out, 2.5);
}
