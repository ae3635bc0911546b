#include <gtest/gtest.h>

#include "fileIO/File.h"
#include "fileIO/RangeImageFile.h"
#include "support/RangeFile.h"
#include "support/TempFolder.h"

// Loads that succeed leave their file open, as stated. That is no leak in the sanitizer's eyes: the
// C library keeps a list of all open streams, which reaches them. The descriptors are counted
// instead.

using test::Bytes;
using test::RangeFile;
using test::Stores;

namespace {

class RangeImageFileRead : public testing::Test {
protected:
    bool load(const Bytes& file, bool withColors) {
        test::writeFile(path_, file);
        return stores_.load(path_.c_str(), withColors);
    }

    test::TempFolder folder_;
    std::string path_ = folder_.path("image.zrt");
    Stores stores_;
};

class RangeImageFileReadGolden : public testing::TestWithParam<test::GoldenRange> {};

/// Three columns and two rows of bytes, with three-channel colours.
RangeFile sample() {
    RangeFile file;
    file.width = 3;
    file.height = 2;
    file.channels = 3;
    file.valueStream = test::literalStream(test::goldenRangeValues(0));
    file.colorStream = test::literalStream(test::goldenRangeColors(3));
    return file;
}

void expectGrid(const cv::Mat& mat, int rows, int columns, int type, const Bytes& bytes) {
    EXPECT_EQ(mat.rows, rows);
    EXPECT_EQ(mat.cols, columns);
    EXPECT_EQ(mat.type(), type);
    EXPECT_EQ(test::bytesOf(mat), bytes);
}

}  // namespace

TEST_P(RangeImageFileReadGolden, GivesTheValuesAndTheCalibration) {
    Stores stores;
    ASSERT_TRUE(stores.load(GetParam().path().c_str(), false));
    expectGrid(stores.values, 2, 3, GetParam().type, test::goldenRangeValues(GetParam().type));
    EXPECT_EQ(stores.calibration(), test::kGoldenCalibration);
    EXPECT_TRUE(stores.colors.empty());
}

TEST_P(RangeImageFileReadGolden, GivesTheColorsThatItHasWhenWanted) {
    Stores stores;
    ASSERT_TRUE(stores.load(GetParam().path().c_str(), true));
    if (!GetParam().hasColors) {
        EXPECT_TRUE(stores.colors.empty());
        return;
    }
    const int channels = GetParam().channels;
    expectGrid(stores.colors, 2, 3, CV_8UC(channels), test::goldenRangeColors(channels));
}

INSTANTIATE_TEST_SUITE_P(Golden, RangeImageFileReadGolden, testing::ValuesIn(test::goldenRanges()),
                         [](const auto& golden) { return golden.param.name; });

TEST_F(RangeImageFileRead, ReadsBackReferences) {
    ASSERT_TRUE(stores_.load(ZYR_GOLDEN_DIR "/rangeimage/references.zrt", true));
    expectGrid(stores_.values, 30, 20, 2, test::bytesOf(std::vector<std::uint16_t>(600, 0x0102)));
    expectGrid(stores_.colors, 30, 20, CV_8U, Bytes(600, 7));
}

TEST_F(RangeImageFileRead, LeavesTheFileOpenOnSuccess) {
    ASSERT_TRUE(load(sample().bytes(), true));
    EXPECT_EQ(test::openDescriptors(path_), 1);
    ASSERT_TRUE(stores_.load(path_.c_str(), false));
    EXPECT_EQ(test::openDescriptors(path_), 2);
}

TEST_F(RangeImageFileRead, ClosesTheFileOnFailure) {
    RangeFile file = sample();
    file.valueStream.pop_back();
    EXPECT_FALSE(load(file.bytes(), true));
    EXPECT_FALSE(load({}, true));
    EXPECT_FALSE(load({0xFF}, true));
    EXPECT_EQ(test::openDescriptors(path_), 0);
}

TEST_F(RangeImageFileRead, InternalReaderLeavesTheStreamToItsCaller) {
    test::writeFile(path_, sample().bytes());
    for (int i = 0; i < 3; ++i) {
        const zyr::File file = zyr::openFile(path_.c_str(), "rb");
        ASSERT_TRUE(zyr::readRangeImage(
            file.get(),
            {stores_.values, stores_.colors, stores_.resolutionX, stores_.resolutionY,
             stores_.resolutionZ, stores_.offsetX, stores_.offsetY, stores_.offsetZ},
            true));
        EXPECT_EQ(test::openDescriptors(path_), 1);
    }
    EXPECT_EQ(test::openDescriptors(path_), 0);
    expectGrid(stores_.values, 2, 3, 0, test::goldenRangeValues(0));
}

TEST_F(RangeImageFileRead, LeavesTheValueRange) {
    ASSERT_TRUE(load(sample().bytes(), true));
    EXPECT_EQ(stores_.minValue, -11);
    EXPECT_EQ(stores_.maxValue, -12);
}

TEST_F(RangeImageFileRead, IgnoresTheVersion) {
    RangeFile file = sample();
    for (const int version : {0, 2, -2, 1234567}) {
        file.version = version;
        EXPECT_TRUE(load(file.bytes(), true)) << version;
    }
}

TEST_F(RangeImageFileRead, RefusesAFirstByteOf0xFFWhateverFollows) {
    RangeFile file = sample();
    file.version = 0xFF;
    EXPECT_FALSE(load(file.bytes(), false));
    file.version = 0xFFFE;
    EXPECT_TRUE(load(file.bytes(), false));
}

TEST_F(RangeImageFileRead, RefusesAnEmptyFile) {
    EXPECT_FALSE(load({}, false));
}

TEST_F(RangeImageFileRead, RefusesWhatCannotBeOpenedOrRead) {
    EXPECT_FALSE(stores_.load(nullptr, false));
    EXPECT_FALSE(stores_.load(folder_.path("missing.zrt").c_str(), false));
    EXPECT_FALSE(stores_.load(folder_.path("").c_str(), false));
}

TEST_F(RangeImageFileRead, ResetsThreeNumbersBeforeItOpensTheFile) {
    const test::FileCalibration reset = {1, 1, -3, -4, -5, 0};
    EXPECT_FALSE(stores_.load(folder_.path("missing.zrt").c_str(), false));
    EXPECT_EQ(stores_.calibration(), reset);
    Stores other;
    EXPECT_FALSE(other.load(nullptr, false));
    EXPECT_EQ(other.calibration(), reset);
}

TEST_F(RangeImageFileRead, IgnoresBytesBehindTheColorBlock) {
    ASSERT_TRUE(load(test::joined(sample().bytes(), Bytes(100, 0xFF)), true));
    EXPECT_FALSE(stores_.colors.empty());
}

TEST_F(RangeImageFileRead, KeepsTheOldColorsWhenNoneAreStoredOrWanted) {
    stores_.colors = cv::Mat(1, 1, CV_8U, cv::Scalar(9));
    ASSERT_TRUE(load(sample().bytes(), false));
    expectGrid(stores_.colors, 1, 1, CV_8U, {9});
    RangeFile file = sample();
    file.colorStream.clear();
    ASSERT_TRUE(load(file.bytes(), true));
    expectGrid(stores_.colors, 1, 1, CV_8U, {9});
}

TEST_F(RangeImageFileRead, WritesToNoMatrixThatIsShared) {
    stores_.values = cv::Mat(2, 3, CV_8U, cv::Scalar(9));
    stores_.colors = cv::Mat(2, 3, CV_8UC3, cv::Scalar(9, 9, 9));
    const cv::Mat values = stores_.values;
    const cv::Mat colors = stores_.colors;
    ASSERT_TRUE(load(sample().bytes(), true));
    EXPECT_EQ(test::bytesOf(values), Bytes(6, 9));
    EXPECT_EQ(test::bytesOf(colors), Bytes(18, 9));
}

TEST_F(RangeImageFileRead, WritesToNoForeignBuffer) {
    Bytes buffer(6, 9);
    stores_.values = cv::Mat(2, 3, CV_8U, buffer.data());
    ASSERT_TRUE(load(sample().bytes(), false));
    EXPECT_EQ(buffer, Bytes(6, 9));
    EXPECT_NE(stores_.values.data, buffer.data());
}

TEST_F(RangeImageFileRead, BlocksOfAnyLengthAroundAPieceOfTheFileAreRead) {
    for (std::size_t numPixels = 63540; numPixels < 63560; ++numPixels) {
        Bytes pixels(numPixels);
        for (std::size_t i = 0; i < numPixels; ++i) pixels[i] = static_cast<unsigned char>(i % 251);
        RangeFile file;
        file.width = static_cast<int>(numPixels);
        file.height = 1;
        file.valueStream = test::literalStream(pixels);
        test::writeFile(path_, file.bytes());
        Stores stores;
        EXPECT_TRUE(stores.load(path_.c_str(), true)) << file.valueStream.size();
        EXPECT_EQ(test::bytesOf(stores.values), pixels);
    }
}

TEST_F(RangeImageFileRead, AnUnknownTypeLeavesTheValuesAndReadsOn) {
    stores_.values = cv::Mat(1, 1, CV_8U, cv::Scalar(9));
    RangeFile file = sample();
    file.valueStream = {0xFF, 1, 2, 3, 4};
    for (const int type : {-1, 7, 8, 16}) {
        file.type = type;
        stores_.colors = cv::Mat();
        ASSERT_TRUE(load(file.bytes(), true)) << type;
        expectGrid(stores_.values, 1, 1, CV_8U, {9});
        expectGrid(stores_.colors, 2, 3, CV_8UC3, test::goldenRangeColors(3));
        EXPECT_EQ(stores_.calibration(), test::kGoldenCalibration);
    }
}

TEST_F(RangeImageFileRead, AnUnknownTypesBlockOfAnyLengthIsPassedOver) {
    RangeFile file = sample();
    file.type = 7;
    for (const std::size_t size : {0U, 1U, 65535U, 65536U, 65537U, 200000U}) {
        file.valueStream = Bytes(size, 1);
        stores_.colors = cv::Mat();
        ASSERT_TRUE(load(file.bytes(), true)) << size;
        expectGrid(stores_.colors, 2, 3, CV_8UC3, test::goldenRangeColors(3));
    }
}

TEST_F(RangeImageFileRead, AnUnknownTypeLoadsWhateverTheSizesSay) {
    RangeFile file = sample();
    file.type = 7;
    file.colorStream.clear();
    const std::vector<std::pair<int, int>> sizes = {
        {0, 0}, {-1, 5}, {2147483647, 2147483647}, {-2147483647 - 1, -2147483647 - 1}};
    for (const auto& [width, height] : sizes) {
        file.width = width;
        file.height = height;
        EXPECT_TRUE(load(file.bytes(), true)) << width;
    }
    file.valueStream.clear();
    EXPECT_TRUE(load(file.bytes(), true));
}
