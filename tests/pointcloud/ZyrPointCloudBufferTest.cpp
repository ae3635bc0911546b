#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <random>
#include <stdexcept>

#include "ZyrPointCloud.h"
#include "support/Clouds.h"
#include "support/DoubleBits.h"

/// Clouds from a sensor's raw buffer.

using test::kInvalid;
using test::kInvalidVector;
using test::values;

namespace {

using Values = std::vector<double>;

/// All elements of the list, with a mark that marks nothing.
template <class T>
ZyrPointCloud fromBuffer(std::vector<T> data, int depth, double mark = kInvalid) {
    return ZyrPointCloud(data.data(), static_cast<int>(data.size()), depth, mark);
}

Values points(ZyrPointCloud cloud) {
    return values(cloud.PointData());
}

/// Of small numbers, of which 3 is the mark, against a plain loop.
template <class T>
void expectMarksAnywhere(int depth) {
    std::mt19937 random(1);
    for (const std::size_t n : {8U, 9U, 340U, 341U, 342U, 343U, 1001U, 70001U})
        for (const unsigned numbers : {4U, 20U, 400U}) {
            std::vector<T> buffer(3 * n);
            for (T& value : buffer) value = static_cast<T>(random() % numbers % 256);
            Values expected(buffer.begin(), buffer.end());
            for (std::size_t i = 0; i < buffer.size(); i += 3)
                if (buffer[i] == 3 || buffer[i + 1] == 3 || buffer[i + 2] == 3)
                    std::fill_n(expected.begin() + static_cast<std::ptrdiff_t>(i), 3, kInvalid);
            EXPECT_TRUE(points(fromBuffer(buffer, depth, 3.0)) == expected) << n << ", " << numbers;
        }
}

const float kNaNFloat = std::numeric_limits<float>::quiet_NaN();

}  // namespace

TEST(CloudBuffer, SevenFloatsMakeTwoPointsTheSecondMarked) {
    ZyrPointCloud cloud = fromBuffer<float>({1, 2, 3, 0, 0, 0, 7}, 5, 0.0);
    EXPECT_EQ(cloud.Length(), 2);
    EXPECT_EQ(cloud.NumValidPoints(), 1);
    EXPECT_EQ(values(cloud.Point(0)), (Values{1, 2, 3}));
    EXPECT_EQ(values(cloud.Point(1)), kInvalidVector);
}

TEST(CloudBuffer, Unsigned8BitIsRead) {
    EXPECT_EQ(points(fromBuffer<std::uint8_t>({0, 128, 255}, 0)), (Values{0, 128, 255}));
}

TEST(CloudBuffer, Unsigned16BitIsRead) {
    EXPECT_EQ(points(fromBuffer<std::uint16_t>({0, 32768, 65535}, 2)), (Values{0, 32768, 65535}));
}

TEST(CloudBuffer, FloatIsWidenedExactly) {
    EXPECT_EQ(points(fromBuffer<float>({0.1F, -1e38F, 1e-45F}, 5)),
              (Values{double(0.1F), double(-1e38F), double(1e-45F)}));
}

TEST(CloudBuffer, DoubleIsCopiedBitForBit) {
    ZyrPointCloud cloud = fromBuffer<double>({0.1, -0.0, 5e-324}, 6);
    EXPECT_EQ(test::bits(cloud.PointData()), test::bits(test::vectors({0.1, -0.0, 5e-324})));
}

TEST(CloudBuffer, OtherDepthsGiveValidPointsAtTheOrigin) {
    for (int depth : {1, 3, 4, 7, 8, -1, 100}) {
        ZyrPointCloud cloud = fromBuffer<std::int16_t>({1, 2, 3, 4, 5, 6, 7}, depth, 5.0);
        EXPECT_EQ(points(cloud), Values(6, 0.0)) << depth;
        EXPECT_EQ(cloud.NumValidPoints(), 2) << depth;
    }
}

TEST(CloudBuffer, OtherDepthsDoNotReadTheBuffer) {
    char one = 1;
    EXPECT_EQ(ZyrPointCloud(&one, 3000, 4, kInvalid).Length(), 1000);
}

TEST(CloudBuffer, OriginsOfOtherDepthsAreMarkedByZero) {
    EXPECT_EQ(fromBuffer<std::int16_t>({1, 2, 3}, 3, 0.0).NumValidPoints(), 0);
}

TEST(CloudBuffer, UnalignedBuffersAreRead) {
    for (std::size_t shift = 1; shift < 8; ++shift) {
        std::vector<unsigned char> bytes(shift);
        for (double value : {1.5, 2.5, 3.5}) test::put(bytes, value);
        EXPECT_EQ(points(ZyrPointCloud(bytes.data() + shift, 3, 6, kInvalid)),
                  (Values{1.5, 2.5, 3.5}));
    }
}

TEST(CloudBuffer, UnalignedShortsAndFloatsAreRead) {
    std::vector<unsigned char> shorts(1), floats(1);
    for (const std::uint16_t value : std::vector<std::uint16_t>{1, 2, 3}) test::put(shorts, value);
    for (const float value : {1.5F, 2.5F, 3.5F}) test::put(floats, value);
    EXPECT_EQ(points(ZyrPointCloud(shorts.data() + 1, 3, 2, kInvalid)), (Values{1, 2, 3}));
    EXPECT_EQ(points(ZyrPointCloud(floats.data() + 1, 3, 5, kInvalid)), (Values{1.5, 2.5, 3.5}));
}

TEST(CloudBuffer, RemainderIsNotRead) {
    for (int count : {3, 4, 5}) {
        std::vector<float> data = {1, 2, 3};  // no room for more
        EXPECT_EQ(points(ZyrPointCloud(data.data(), count, 5, kInvalid)), (Values{1, 2, 3}));
    }
}

TEST(CloudBuffer, FewerThanThreeValuesAreNoPoint) {
    float data[] = {1, 2};
    for (int count : {0, 1, 2, -1, -2})
        EXPECT_EQ(ZyrPointCloud(data, count, 5, kInvalid).Length(), 0) << count;
}

TEST(CloudBuffer, NegativeCountIsALengthError) {
    float data[] = {1, 2, 3};
    for (int count : {-3, -4, -2147483647 - 1})
        for (int depth : {5, 4})
            EXPECT_THROW(ZyrPointCloud(data, count, depth, 0.0), std::length_error) << count;
}

TEST(CloudBuffer, NullIsAnEmptyCloud) {
    for (int count : {0, 3, 300, -1, -3})
        for (int depth : {0, 2, 4, 5, 6})
            EXPECT_EQ(ZyrPointCloud(nullptr, count, depth, 0.0).Length(), 0);
}

TEST(CloudBuffer, OneMarkedCoordinateInvalidatesThePoint) {
    ZyrPointCloud cloud = fromBuffer<double>({9, 1, 1, 1, 9, 1, 1, 1, 9, 1, 1, 1}, 6, 9.0);
    for (int i : {0, 1, 2}) EXPECT_EQ(values(cloud.Point(i)), kInvalidVector) << i;
    EXPECT_EQ(values(cloud.Point(3)), (Values{1, 1, 1}));
}

TEST(CloudBuffer, MarkIsComparedAfterTheConversion) {
    EXPECT_EQ(fromBuffer<std::uint8_t>({1, 2, 255}, 0, 255.0).NumValidPoints(), 0);
    EXPECT_EQ(fromBuffer<std::uint8_t>({1, 2, 255}, 0, -1.0).NumValidPoints(), 1);
    EXPECT_EQ(fromBuffer<float>({0.1F, 2, 3}, 5, 0.1).NumValidPoints(), 1);
    EXPECT_EQ(fromBuffer<float>({0.1F, 2, 3}, 5, double(0.1F)).NumValidPoints(), 0);
}

TEST(CloudBuffer, ZeroMarksNegativeZeroToo) {
    EXPECT_EQ(fromBuffer<float>({-0.0F, 2, 3}, 5, 0.0).NumValidPoints(), 0);
}

TEST(CloudBuffer, NaNMarksNothingButStaysInvalid) {
    ZyrPointCloud cloud = fromBuffer<float>({1, kNaNFloat, 3, 4, 5, 6}, 5, double(kNaNFloat));
    EXPECT_EQ(cloud.Point(0).x, 1);
    EXPECT_TRUE(cloud.Point(0).y != cloud.Point(0).y);
    EXPECT_EQ(cloud.NumValidPoints(), 1);
}

TEST(CloudBuffer, InvalidValueAsTheMarkLeavesPointsAsTheyAre) {
    ZyrPointCloud cloud = fromBuffer<double>({kInvalid, 2, 3, 4, 5, 6}, 6, kInvalid);
    EXPECT_EQ(values(cloud.Point(0)), (Values{kInvalid, 2, 3}));
    EXPECT_EQ(cloud.NumValidPoints(), 1);
}

TEST(CloudBuffer, LargestFloatIsTheInvalidValue) {
    ZyrPointCloud cloud = fromBuffer<float>({std::numeric_limits<float>::max(), 2, 3}, 5, 0.0);
    EXPECT_EQ(values(cloud.Point(0)), (Values{kInvalid, 2, 3}));
    EXPECT_EQ(cloud.NumValidPoints(), 0);
}

TEST(CloudBuffer, InfinityMarks) {
    const double infinity = std::numeric_limits<double>::infinity();
    ZyrPointCloud cloud = fromBuffer<double>({-infinity, 2, 3, infinity, 5, 6}, 6, -infinity);
    EXPECT_EQ(values(cloud.Point(0)), kInvalidVector);
    EXPECT_EQ(values(cloud.Point(1)), (Values{infinity, 5, 6}));
}

TEST(CloudBuffer, GivesNeitherColoursNorNormals) {
    ZyrPointCloud cloud = fromBuffer<float>({1, 2, 3}, 5);
    EXPECT_EQ(cloud.ColorData().Length(), 0);
    EXPECT_EQ(cloud.NormalData().Length(), 0);
}

TEST(CloudBuffer, IsNotShared) {
    double data[] = {1, 2, 3};
    const ZyrPointCloud cloud(data, 3, 6, 1.0);
    EXPECT_EQ(data[0], 1);
    data[0] = 5;
    EXPECT_EQ(values(cloud.Point(0)), kInvalidVector);
}

TEST(CloudBuffer, MarkIsFoundInAnyPlaceOfAnyNumberOfPoints) {
    for (std::size_t n = 1; n <= 7; ++n)
        for (std::size_t marked = 0; marked < 3 * n; ++marked) {
            std::vector<float> buffer(3 * n, 2);
            buffer[marked] = 0;
            Values expected(3 * n, 2);
            for (std::size_t k = 0; k < 3; ++k) expected[marked / 3 * 3 + k] = kInvalid;
            EXPECT_EQ(points(fromBuffer(buffer, 5, 0.0)), expected) << n << ", " << marked;
        }
}

TEST(CloudBuffer, LongBufferIsReadWhole) {
    std::vector<std::uint16_t> buffer(3 * 100003);
    Values expected(buffer.size());
    for (std::size_t i = 0; i < buffer.size(); ++i)
        expected[i] = buffer[i] = static_cast<std::uint16_t>(i % 65000 + 1);
    EXPECT_TRUE(points(fromBuffer(buffer, 2, 0.0)) == expected);
}

TEST(CloudBuffer, MarksAreFoundAnywhereInBuffersOfAnyTypeAndLength) {
    expectMarksAnywhere<std::uint8_t>(0);
    expectMarksAnywhere<std::uint16_t>(2);
    expectMarksAnywhere<float>(5);
    expectMarksAnywhere<double>(6);
}
