#include <gtest/gtest.h>

#include <csignal>
#include <limits>
#include <opencv2/core.hpp>
#include <string>
#include <utility>

#include "ZyrColorArray.h"
#include "support/Colors.h"
#include "support/StopText.h"

// The four closed sizing operations: they stop the process for good arguments, and past their check
// only bad ones arrive.

using test::Bytes;
using test::bytes;
using test::colorsOf;

namespace {

constexpr int kMin = std::numeric_limits<int>::min();
constexpr int kMax = std::numeric_limits<int>::max();
constexpr char kSize[] = "size <0 || (channel!=1 && channel!=3 && channel!=4)";
constexpr char kArea[] = "width*height <0 || (channel != 1 && channel != 3 && channel != 4)";

unsigned char pixels[64];

std::string stopped(int line, const std::string& function, const char* expression) {
    return test::stopText("ZyrColorArray.cpp", line, function, expression);
}

std::string stoppedFromBuffer() {
    return stopped(54, "ZyrColorArray::ZyrColorArray(void*, int, int)", kSize);
}

std::string stoppedFromGrid() {
    return stopped(79, "ZyrColorArray::ZyrColorArray(void*, int, int, int)", kArea);
}

std::string stoppedCreateColorArray() {
    return stopped(98, "bool ZyrColorArray::CreateColorArray(void*, int, int, int)", kArea);
}

std::string stoppedSetSize() {
    return stopped(120, "void ZyrColorArray::SetSize(int, int, int)", kArea);
}

template <class Operation>
void expectNoDataError(Operation operation) {
    try {
        operation();
        ADD_FAILURE() << "no error";
    } catch (const cv::Exception& error) {
        EXPECT_EQ(error.err, "total() == 0 || data != NULL");
        EXPECT_EQ(error.func, "Mat");
    }
}

}  // namespace

TEST(ZyrColorArrayDeathTest, ConstructorFromABufferStopsForEachChannelCount) {
    for (int channel : {1, 3, 4})
        EXPECT_EXIT(ZyrColorArray(pixels, 12, channel), testing::KilledBySignal(SIGABRT),
                    stoppedFromBuffer());
}

TEST(ZyrColorArrayDeathTest, ConstructorFromABufferStopsForSizeZeroAndNullData) {
    EXPECT_DEATH(ZyrColorArray(pixels, 0, 3), stoppedFromBuffer());
    EXPECT_DEATH(ZyrColorArray(nullptr, 12, 3), stoppedFromBuffer());
}

TEST(ZyrColorArrayDeathTest, ConstructorFromAGridStopsForEachChannelCount) {
    for (int channel : {1, 3, 4})
        EXPECT_EXIT(ZyrColorArray(pixels, 2, 3, channel), testing::KilledBySignal(SIGABRT),
                    stoppedFromGrid());
}

TEST(ZyrColorArrayDeathTest, CreateColorArrayStopsForEachChannelCount) {
    ZyrColorArray colors;
    for (int channel : {1, 3, 4})
        EXPECT_EXIT(colors.CreateColorArray(pixels, 2, 3, channel),
                    testing::KilledBySignal(SIGABRT), stoppedCreateColorArray());
}

TEST(ZyrColorArrayDeathTest, SetSizeStopsForEachChannelCount) {
    ZyrColorArray colors;
    for (int channel : {1, 3, 4})
        EXPECT_EXIT(colors.SetSize(2, 3, channel), testing::KilledBySignal(SIGABRT),
                    stoppedSetSize());
}

TEST(ZyrColorArrayDeathTest, GridsOfNoElementsStopToo) {
    ZyrColorArray colors;
    EXPECT_DEATH(ZyrColorArray(nullptr, 0, 0, 1), stoppedFromGrid());
    EXPECT_DEATH(colors.CreateColorArray(nullptr, 0, -5, 3), stoppedCreateColorArray());
    EXPECT_DEATH(colors.SetSize(-5, 0, 4), stoppedSetSize());
}

TEST(ZyrColorArrayDeathTest, TwoNegativeSidesMakeAPositiveArea) {
    ZyrColorArray colors;
    EXPECT_DEATH(ZyrColorArray(pixels, -2, -3, 3), stoppedFromGrid());
    EXPECT_DEATH(colors.CreateColorArray(pixels, -2, -3, 3), stoppedCreateColorArray());
    EXPECT_DEATH(colors.SetSize(-2, -3, 3), stoppedSetSize());
}

TEST(ZyrColorArrayDeathTest, AreasBeyond32BitsStayPositive) {
    ZyrColorArray colors;
    EXPECT_DEATH(ZyrColorArray(pixels, 65536, 32768, 3), stoppedFromGrid());
    EXPECT_DEATH(colors.CreateColorArray(pixels, kMax, kMax, 1), stoppedCreateColorArray());
    EXPECT_DEATH(colors.SetSize(kMin, kMin, 1), stoppedSetSize());
}

TEST(ZyrColorArrayClosed, AnUnknownChannelGivesAnEmptyArray) {
    for (int channel : {0, 2, 5, -1, kMin, kMax}) {
        EXPECT_EQ(ZyrColorArray(pixels, 12, channel).Width(), 0) << channel;
        EXPECT_EQ(ZyrColorArray(nullptr, -12, channel).Width(), 0) << channel;
        EXPECT_EQ(ZyrColorArray(pixels, 2, 3, channel).Width(), 0) << channel;
        EXPECT_EQ(ZyrColorArray(nullptr, 2, -3, channel).Width(), 0) << channel;
    }
}

TEST(ZyrColorArrayClosed, CreateColorArrayOfAnUnknownChannelDoesNothingAndIsTrue) {
    for (int channel : {0, 2, 5, -1}) {
        ZyrColorArray colors = colorsOf(3, {1, 2, 3});
        EXPECT_TRUE(colors.CreateColorArray(pixels, 2, 3, channel)) << channel;
        EXPECT_TRUE(colors.CreateColorArray(nullptr, 2, -3, channel)) << channel;
        EXPECT_EQ(bytes(colors), (Bytes{1, 2, 3})) << channel;
    }
}

TEST(ZyrColorArrayClosed, SetSizeOfAnUnknownChannelDoesNothing) {
    for (int channel : {0, 2, 5, -1}) {
        ZyrColorArray colors = colorsOf(3, {1, 2, 3});
        colors.SetSize(2, 3, channel);
        colors.SetSize(2, -3, channel);
        EXPECT_EQ(bytes(colors), (Bytes{1, 2, 3})) << channel;
    }
}

TEST(ZyrColorArrayClosed, ANegativeSizeIsOpenCVsError) {
    for (int channel : {1, 3, 4}) {
        EXPECT_THROW(ZyrColorArray(pixels, -12, channel), cv::Exception);
        EXPECT_THROW(ZyrColorArray(pixels, kMin, channel), cv::Exception);
        EXPECT_THROW(ZyrColorArray(pixels, -2, 3, channel), cv::Exception);
        EXPECT_THROW(ZyrColorArray(pixels, 2, -3, channel), cv::Exception);
    }
}

TEST(ZyrColorArrayClosed, ANegativeSizeThatMakesNoElementGivesAnEmptyArray) {
    EXPECT_EQ(ZyrColorArray(pixels, -2, 3).Length(), 0);
    EXPECT_EQ(ZyrColorArray(nullptr, -3, 4).Length(), 0);
    EXPECT_THROW(ZyrColorArray(pixels, -1, 1), cv::Exception);
}

TEST(ZyrColorArrayClosed, ANegativeSizeIsOpenCVsErrorAndLeavesTheArrayAsItWas) {
    ZyrColorArray colors = colorsOf(3, {1, 2, 3, 4, 5, 6});
    const auto [width, height] = std::pair(2, -3);
    EXPECT_THROW(colors.CreateColorArray(pixels, width, height, 3), cv::Exception);
    EXPECT_THROW(colors.CreateColorArray(pixels, height, width, 1), cv::Exception);
    EXPECT_THROW(colors.SetSize(width, height, 3), cv::Exception);
    EXPECT_THROW(colors.SetSize(height, width, 4), cv::Exception);
    EXPECT_EQ(bytes(colors), (Bytes{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(colors.Height(), 1);
    EXPECT_EQ(colors.Channel(), 3);
}

TEST(ZyrColorArrayClosed, AreasBeyond32BitsStayNegative) {
    ZyrColorArray colors;  // 32 bits would make 1673527296 of the product
    EXPECT_THROW(ZyrColorArray(pixels, -65536, 40000, 3), cv::Exception);
    EXPECT_THROW(colors.CreateColorArray(pixels, -65536, 40000, 3), cv::Exception);
    EXPECT_THROW(colors.SetSize(-65536, 40000, 3), cv::Exception);
}

TEST(ZyrColorArrayClosed, NullDataIsOpenCVsErrorOfAMatrixWithoutData) {
    expectNoDataError([] { ZyrColorArray(nullptr, -9, 3); });
    expectNoDataError([] { ZyrColorArray(nullptr, 2, -3, 1); });
    expectNoDataError([] { ZyrColorArray().CreateColorArray(nullptr, -2, 3, 4); });
}
