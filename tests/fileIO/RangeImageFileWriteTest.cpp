#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <random>

#include "fileIO/LzfEncoder.h"
#include "fileIO/RangeImageFile.h"
#include "support/MatrixLimit.h"
#include "support/RangeFile.h"
#include "support/TempFolder.h"

using test::Bytes;
using test::RangeFile;
using test::Stores;

namespace {

class RangeImageFileWrite : public testing::Test {
protected:
    /// The parts of the file that the stores make.
    RangeFile written(Stores& stores, bool withColors) {
        EXPECT_TRUE(stores.save(path_.c_str(), withColors));
        return test::parts(test::readFile(path_));
    }
    bool isRefused(Stores& stores, bool withColors) {
        return !stores.save(path_.c_str(), withColors) && !test::fileExists(path_);
    }

    test::TempFolder folder_;
    std::string path_ = folder_.path("image.zrt");
};

class RangeImageFileWriteGolden : public RangeImageFileWrite,
                                  public testing::WithParamInterface<test::GoldenRange> {};

Stores sample(int type = 0) {
    Stores stores;
    stores.values = test::matOf(2, 3, type, test::goldenRangeValues(type));
    return stores;
}

cv::Mat colorGrid(int rows, int columns, int channels) {
    return cv::Mat(rows, columns, CV_8UC(channels), cv::Scalar(1, 2, 3, 4));
}

}  // namespace

TEST_P(RangeImageFileWriteGolden, HasTheHeadByteByByteAndBlocksThatDecodeToTheSame) {
    const Bytes expected = test::readFile(GetParam().path());
    Stores stores = GetParam().stores();
    const RangeFile file = written(stores, GetParam().hasColors);
    EXPECT_EQ(file.head(), test::prefix(expected, 68));
    EXPECT_EQ(test::prefix(test::readFile(path_), 68), test::prefix(expected, 68));
    const Bytes values = test::goldenRangeValues(GetParam().type);
    EXPECT_EQ(test::plainDecode(file.valueStream, values.size()), values);
    if (!GetParam().hasColors) {
        EXPECT_TRUE(file.colorStream.empty());
        return;
    }
    const Bytes colors = test::goldenRangeColors(GetParam().channels);
    EXPECT_EQ(test::plainDecode(file.colorStream, colors.size()), colors);
}

INSTANTIATE_TEST_SUITE_P(Golden, RangeImageFileWriteGolden, testing::ValuesIn(test::goldenRanges()),
                         [](const auto& golden) { return golden.param.name; });

TEST_F(RangeImageFileWrite, FloatsWithoutColorsTakeTheirBlockAnd76Bytes) {
    Stores stores = sample(5);
    const RangeFile file = written(stores, false);
    const Bytes bytes = test::readFile(path_);
    EXPECT_EQ(bytes.size(), 68 + 4 + file.valueStream.size() + 4);
    EXPECT_EQ(test::valueAt<std::int32_t>(bytes, bytes.size() - 4), 0);
}

TEST_F(RangeImageFileWrite, ValuesAreEncodedByTheirWidthAndColorsByTheirChannels) {
    std::mt19937 random(5);
    const auto encoded = [](const cv::Mat& grid, std::size_t width) {
        const Bytes bytes = test::bytesOf(grid);
        Bytes stream(zyr::lzfBlockRoom(bytes.size()));
        stream.resize(zyr::lzfEncodeBlock(bytes.data(), bytes.size(), width, stream.data()));
        return stream;
    };
    Stores stores;
    stores.values = cv::Mat(40, 50, CV_32F);
    stores.colors = cv::Mat(40, 50, CV_8UC4);
    for (int i = 0; i < 2000; ++i) {
        stores.values.ptr<float>()[i] = float(random() % 300);
        stores.colors.ptr<cv::Vec4b>()[i] = {std::uint8_t(random() % 4), std::uint8_t(i % 7), 9, 0};
    }
    ASSERT_NE(encoded(stores.colors, 4), encoded(stores.colors, 1));
    const RangeFile file = written(stores, true);
    EXPECT_EQ(file.valueStream, encoded(stores.values, 4));
    EXPECT_EQ(file.colorStream, encoded(stores.colors, 4));
    stores.colors = cv::Mat(40, 50, CV_8UC3, stores.colors.data).clone();
    EXPECT_EQ(written(stores, true).colorStream, encoded(stores.colors, 1));
}

TEST_F(RangeImageFileWrite, FileEndsWithTheColorBlock) {
    Stores stores = sample();
    stores.colors = colorGrid(2, 3, 3);
    const RangeFile file = written(stores, true);
    ASSERT_FALSE(file.colorStream.empty());
    EXPECT_EQ(test::readFile(path_).size(),
              72 + file.valueStream.size() + 4 + file.colorStream.size());
}

TEST_F(RangeImageFileWrite, DoesNotStoreTheValueRange) {
    Stores stores = sample();
    written(stores, false);
    const Bytes before = test::readFile(path_);
    stores.minValue = 1;
    stores.maxValue = 2;
    written(stores, false);
    EXPECT_EQ(test::readFile(path_), before);
}

TEST_F(RangeImageFileWrite, ColorsAreStoredOnlyWhenWanted) {
    Stores stores = sample();
    stores.colors = colorGrid(2, 3, 4);
    const RangeFile file = written(stores, false);
    EXPECT_TRUE(file.colorStream.empty());
    EXPECT_EQ(file.channels, 4);
    EXPECT_FALSE(written(stores, true).colorStream.empty());
}

TEST_F(RangeImageFileWrite, ColorsOfAnotherNumberAreLeftOut) {
    Stores stores = sample();
    stores.colors = colorGrid(2, 4, 3);
    const RangeFile file = written(stores, true);
    EXPECT_TRUE(file.colorStream.empty());
    EXPECT_EQ(file.channels, 3);
}

TEST_F(RangeImageFileWrite, ColorsOfAnotherShapeAreStoredWhenTheirNumberFits) {
    Stores stores = sample();
    stores.colors = test::matOf(1, 6, CV_8UC3, test::goldenRangeColors(3));
    EXPECT_EQ(test::plainDecode(written(stores, true).colorStream, 18), test::goldenRangeColors(3));
}

TEST_F(RangeImageFileWrite, AMatrixOfAnotherKindCountsAsNoColors) {
    Stores stores = sample();
    for (const int type : {CV_8UC2, CV_8SC3, CV_16UC3, CV_32FC1}) {
        stores.colors = cv::Mat(2, 3, type, cv::Scalar(0));
        const RangeFile file = written(stores, true);
        EXPECT_TRUE(file.colorStream.empty()) << type;
        EXPECT_EQ(file.channels, 1) << type;
    }
}

TEST_F(RangeImageFileWrite, RowsOfAViewAreStoredPacked) {
    Bytes padded = {1, 2, 3, 99, 4, 5, 6, 99};
    Stores stores;
    stores.values = cv::Mat(2, 3, CV_8U, padded.data(), 4);
    const RangeFile file = written(stores, false);
    EXPECT_EQ(test::plainDecode(file.valueStream, 6), (Bytes{1, 2, 3, 4, 5, 6}));
}

TEST_F(RangeImageFileWrite, ColorRowsOfAViewAreStoredPacked) {
    Bytes padded = {1, 2, 3, 99, 4, 5, 6, 99};
    Stores stores = sample();
    stores.colors = cv::Mat(2, 3, CV_8U, padded.data(), 4);
    const RangeFile file = written(stores, true);
    EXPECT_EQ(test::plainDecode(file.colorStream, 6), (Bytes{1, 2, 3, 4, 5, 6}));
}

TEST_F(RangeImageFileWrite, ReplacesAnOlderFile) {
    test::writeFile(path_, Bytes(5000, 9));
    Stores stores = sample();
    const RangeFile file = written(stores, false);
    EXPECT_EQ(test::readFile(path_).size(), 76 + file.valueStream.size());
}

TEST_F(RangeImageFileWrite, ClosesTheFile) {
    Stores stores = sample();
    written(stores, false);
    EXPECT_EQ(test::openDescriptors(path_), 0);
}

TEST_F(RangeImageFileWrite, RefusesAnImageWithoutValuesBeforeCreatingTheFile) {
    Stores stores;
    EXPECT_TRUE(isRefused(stores, false));
    stores.values = cv::Mat(0, 3, CV_8U);
    EXPECT_TRUE(isRefused(stores, false));
    stores.values = cv::Mat(2, 0, CV_8U);
    EXPECT_TRUE(isRefused(stores, false));
}

TEST_F(RangeImageFileWrite, RefusesValuesOfAnotherTypeBeforeCreatingTheFile) {
    Stores stores;
    for (const int type : {CV_16F, CV_8UC2, CV_16UC3, CV_64FC4}) {
        stores.values = cv::Mat(2, 3, type, cv::Scalar(0));
        EXPECT_TRUE(isRefused(stores, false)) << type;
    }
    const std::array<int, 3> sizes = {2, 2, 2};
    stores.values = cv::Mat(3, sizes.data(), CV_8U, cv::Scalar(0));
    EXPECT_TRUE(isRefused(stores, false));
}

TEST_F(RangeImageFileWrite, RefusesAPathThatCannotBeOpened) {
    Stores stores = sample();
    EXPECT_FALSE(stores.save(nullptr, false));
    EXPECT_FALSE(stores.save("", false));
    EXPECT_FALSE(stores.save(folder_.path("missing/image.zrt").c_str(), false));
    EXPECT_FALSE(stores.save(folder_.path("").c_str(), false));
}

TEST_F(RangeImageFileWrite, ReportsADeviceThatIsFull) {
    if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no /dev/full";
    Stores stores = sample();
    EXPECT_FALSE(stores.save("/dev/full", false));
    stores.values = cv::Mat(1000, 1000, CV_16U);
    cv::randu(stores.values, 0, 65536);
    EXPECT_FALSE(stores.save("/dev/full", false));
}

TEST_F(RangeImageFileWrite, PacksTheRowsOfAViewWithoutAMatrixForThem) {
    Bytes padded(8);
    Stores stores;
    stores.values = cv::Mat(2, 3, CV_8U, padded.data(), 4);
    const test::MatrixLimit limit(0);
    EXPECT_TRUE(stores.save(path_.c_str(), false));
    EXPECT_EQ(limit.largest(), 0U);
}
