#include <gtest/gtest.h>

#include <filesystem>
#include <limits>

#include "fileIO/File.h"
#include "fileIO/RangeImageFile.h"
#include "support/MatrixLimit.h"
#include "support/RangeFile.h"
#include "support/TempFolder.h"

// Whatever a file holds, a refused load leaves the stores and numbers as they were, save the three
// that are reset before the file is opened.

using test::Bytes;
using test::RangeFile;
using test::Stores;

namespace {

constexpr int kMost = std::numeric_limits<int>::max();
constexpr int kLeast = std::numeric_limits<int>::min();
constexpr test::FileCalibration kReset = {1, 1, -3, -4, -5, 0};

class RangeImageFileMalformed : public testing::Test {
protected:
    RangeImageFileMalformed() {
        file_.width = 3;
        file_.height = 2;
        file_.channels = 3;
        file_.valueStream = test::literalStream(test::goldenRangeValues(0));
        file_.colorStream = test::literalStream(test::goldenRangeColors(3));
    }

    /// Loads into stores of one pixel and one colour, which a refusal must leave.
    testing::AssertionResult isRefused(const Bytes& bytes, bool withColors) {
        test::writeFile(path_, bytes);
        return isFileRefused(withColors);
    }
    testing::AssertionResult isFileRefused(bool withColors) {
        const int openBefore = test::openDescriptors(path_);
        Stores stores;
        stores.values = cv::Mat(1, 1, CV_16S, cv::Scalar(9));
        stores.colors = cv::Mat(1, 1, CV_8U, cv::Scalar(8));
        if (stores.load(path_.c_str(), withColors)) return testing::AssertionFailure() << "loaded";
        const bool isKept =
            test::bytesOf(stores.values) == Bytes{9, 0} && stores.values.type() == CV_16S &&
            test::bytesOf(stores.colors) == Bytes{8} && stores.calibration() == kReset &&
            stores.minValue == -11 && stores.maxValue == -12;
        if (!isKept) return testing::AssertionFailure() << "stores or numbers changed";
        return testing::AssertionResult(test::openDescriptors(path_) == openBefore) << "left open";
    }
    testing::AssertionResult isRefused(bool withColors) {
        return isRefused(file_.bytes(), withColors);
    }
    testing::AssertionResult loads(const Bytes& bytes, bool withColors) {
        test::writeFile(path_, bytes);
        return fileLoads(withColors);
    }
    testing::AssertionResult fileLoads(bool withColors) {
        Stores stores;
        return testing::AssertionResult(stores.load(path_.c_str(), withColors));
    }
    /// The file with another number at an offset.
    Bytes with(std::size_t offset, std::int32_t number) const {
        Bytes bytes = file_.bytes();
        std::memcpy(bytes.data() + offset, &number, sizeof number);
        return bytes;
    }
    std::size_t colorSizeOffset() const { return 72 + file_.valueStream.size(); }

    test::TempFolder folder_;
    std::string path_ = folder_.path("image.zrt");
    RangeFile file_;
};

/// Reads from memory, in a buffer of exactly the prefix's size.
class RangeImageFilePrefix : public testing::TestWithParam<test::GoldenRange> {
protected:
    static bool isRead(Bytes bytes, bool withColors) {
        // The C library writes behind a buffer of no bytes.
        const zyr::File file(bytes.empty() ? std::fopen("/dev/null", "rb")
                                           : fmemopen(bytes.data(), bytes.size(), "rb"));
        Stores s;
        const bool isRead = zyr::readRangeImage(file.get(),
                                                {s.values, s.colors, s.resolutionX, s.resolutionY,
                                                 s.resolutionZ, s.offsetX, s.offsetY, s.offsetZ},
                                                withColors);
        EXPECT_EQ(s.values.empty(), !isRead);
        EXPECT_EQ(s.calibration() == Stores().calibration(), !isRead);
        return isRead;
    }
};

}  // namespace

TEST_P(RangeImageFilePrefix, IsReadOnlyWhenTheBlocksThatAreWantedAreWhole) {
    const Bytes whole = test::readFile(GetParam().path());
    const std::size_t valueEnd = 72 + test::parts(whole).valueStream.size();
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const Bytes cut = test::prefix(whole, size);
        EXPECT_FALSE(isRead(cut, true)) << size;
        EXPECT_EQ(isRead(cut, false), size >= valueEnd) << size;
    }
    EXPECT_TRUE(isRead(whole, true));
}

INSTANTIATE_TEST_SUITE_P(Golden, RangeImageFilePrefix, testing::ValuesIn(test::goldenRanges()),
                         [](const auto& golden) { return golden.param.name; });

TEST_F(RangeImageFileMalformed, RefusesEveryPrefixUnlessTheBlocksThatAreWantedAreWhole) {
    test::writeFile(path_, file_.bytes());
    for (std::size_t size = file_.bytes().size(); size-- > 0;) {
        std::filesystem::resize_file(path_, size);
        EXPECT_TRUE(isFileRefused(true)) << size;
        EXPECT_TRUE(size < colorSizeOffset() ? isFileRefused(false) : fileLoads(false)) << size;
    }
}

TEST_F(RangeImageFileMalformed, SampleLoadsAsItIs) {
    EXPECT_TRUE(loads(file_.bytes(), true));
}

TEST_F(RangeImageFileMalformed, RefusesSizesOfZeroOrBelowForEachKnownType) {
    for (int type = 0; type <= 6; ++type) {
        file_.type = type;
        for (const int bad : {0, -1, -3, kLeast}) {
            file_.width = bad;
            file_.height = 2;
            EXPECT_TRUE(isRefused(false)) << type << " width " << bad;
            file_.width = 3;
            file_.height = bad;
            EXPECT_TRUE(isRefused(false)) << type << " height " << bad;
        }
    }
}

TEST_F(RangeImageFileMalformed, RefusesTwoNegativeSizesWhoseProductWouldFit) {
    file_.width = -3;
    file_.height = -2;
    EXPECT_TRUE(isRefused(false));
}

TEST_F(RangeImageFileMalformed, RefusesZeroSizesWithAnEmptyBlock) {
    file_.valueStream.clear();
    for (const auto& [width, height] : {std::pair(0, 0), {0, 2}, {3, 0}}) {
        file_.width = width;
        file_.height = height;
        EXPECT_TRUE(isRefused(false)) << width << " x " << height;
    }
}

TEST_F(RangeImageFileMalformed, RefusesSizesWhoseProductOverflows) {
    const std::vector<std::pair<int, int>> sizes = {
        {kMost, kMost}, {65536, 65536}, {1 << 30, 1 << 30}, {1 << 30, 4}, {kMost, 1}, {1, kMost}};
    for (int type = 0; type <= 6; ++type)
        for (const auto& [width, height] : sizes) {
            file_.type = type;
            file_.width = width;
            file_.height = height;
            EXPECT_TRUE(isRefused(false)) << type << ": " << width << " x " << height;
        }
}

TEST_F(RangeImageFileMalformed, RefusesAnImageThatItsBlockCannotFill) {
    // 88 bytes for each byte of a stream, and no more.
    file_.valueStream = {0, 7, 0xE0, 255, 0};
    file_.height = 1;
    file_.width = 5 * 88 + 1;
    EXPECT_TRUE(isRefused(false));
    file_.width = 5 * 88;
    EXPECT_TRUE(isRefused(false));
    file_.width = 265;
    EXPECT_TRUE(loads(file_.bytes(), false));
}

TEST_F(RangeImageFileMalformed, AllocatesNoImageThatItsBlockCannotFill) {
    file_.width = 40000;
    file_.height = 40000;
    test::writeFile(path_, file_.bytes());
    Stores stores;
    const test::MatrixLimit limit(1 << 20);
    EXPECT_FALSE(stores.load(path_.c_str(), true));
    EXPECT_LE(limit.largest(), 88 * file_.valueStream.size());
    file_.type = 7;
    test::writeFile(path_, file_.bytes());
    EXPECT_FALSE(stores.load(path_.c_str(), true));
    EXPECT_LE(limit.largest(), 88 * file_.colorStream.size());
}

TEST_F(RangeImageFileMalformed, AllocatesNoPixelMoreThanItsBlockCanFill) {
    const std::size_t most = 88 * file_.valueStream.size();
    for (int type = 0; type <= 6; ++type) {
        file_.type = type;
        file_.width = 1;
        file_.height = static_cast<int>(most / CV_ELEM_SIZE1(type)) + 1;
        test::writeFile(path_, file_.bytes());
        Stores stores;
        const test::MatrixLimit limit(1 << 20);
        EXPECT_FALSE(stores.load(path_.c_str(), false));
        EXPECT_EQ(limit.largest(), 0U) << type;
    }
}

TEST_F(RangeImageFileMalformed, RefusesAnImageThatThereIsNoMemoryFor) {
    test::writeFile(path_, file_.bytes());
    const test::MatrixLimit limit(5);
    Stores stores;
    EXPECT_FALSE(stores.load(path_.c_str(), true));
    EXPECT_EQ(test::openDescriptors(path_), 0);
}

TEST_F(RangeImageFileMalformed, RefusesAValueBlockThatDecodesToTooFewOrTooManyBytes) {
    for (const std::size_t size : {5U, 7U, 12U}) {
        file_.valueStream = test::literalStream(Bytes(size));
        EXPECT_TRUE(isRefused(false)) << size;
    }
}

TEST_F(RangeImageFileMalformed, RefusesAValueBlockThatIsNoStream) {
    file_.valueStream = {0x20, 0x00};  // a reference before the start
    EXPECT_TRUE(isRefused(false));
    file_.valueStream = {5, 1, 2, 3};  // a literal run that the block cuts
    EXPECT_TRUE(isRefused(false));
    file_.valueStream = {0, 1, 0xE0};  // a reference that the block cuts
    EXPECT_TRUE(isRefused(false));
    file_.valueStream = test::joined(file_.valueStream, {0x80});
    EXPECT_TRUE(isRefused(false));
}

TEST_F(RangeImageFileMalformed, RefusesAnEmptyValueBlock) {
    file_.valueStream.clear();
    EXPECT_TRUE(isRefused(false));
}

TEST_F(RangeImageFileMalformed, RefusesAValueBlockOfNegativeSizeOrPastTheEnd) {
    for (const int size : {-1, kLeast, kMost, 1000})
        EXPECT_TRUE(isRefused(with(68, size), false)) << size;
}

TEST_F(RangeImageFileMalformed, RefusesABadValueBlockOfAnUnknownTypeToo) {
    file_.type = 7;
    for (const int size : {-1, kLeast, kMost, 1000})
        EXPECT_TRUE(isRefused(with(68, size), false)) << size;
}

TEST_F(RangeImageFileMalformed, RefusesAColorBlockOfNegativeSizeOnlyWhenWanted) {
    for (const int size : {-1, kLeast}) {
        EXPECT_TRUE(isRefused(with(colorSizeOffset(), size), true)) << size;
        EXPECT_TRUE(loads(with(colorSizeOffset(), size), false)) << size;
    }
}

TEST_F(RangeImageFileMalformed, RefusesAColorBlockPastTheEndOnlyWhenWanted) {
    for (const int size : {kMost, 20}) {
        EXPECT_TRUE(isRefused(with(colorSizeOffset(), size), true)) << size;
        EXPECT_TRUE(loads(with(colorSizeOffset(), size), false)) << size;
    }
}

TEST_F(RangeImageFileMalformed, RefusesAnotherChannelCountOnlyWhenColorsAreWantedAndStored) {
    for (const int channels : {0, 2, 5, -1, -3, 512, 1 << 20, kMost, kLeast}) {
        EXPECT_TRUE(isRefused(with(64, channels), true)) << channels;
        EXPECT_TRUE(loads(with(64, channels), false)) << channels;
    }
    file_.colorStream.clear();
    for (const int channels : {0, 2, 5, -1, kMost, kLeast})
        EXPECT_TRUE(loads(with(64, channels), true)) << channels;
}

TEST_F(RangeImageFileMalformed, RefusesAColorBlockThatDoesNotDecodeToItsGrid) {
    EXPECT_TRUE(isRefused(with(64, 1), true));
    EXPECT_TRUE(isRefused(with(64, 4), true));
    file_.colorStream = {0x20, 0x00};
    EXPECT_TRUE(isRefused(true));
}

TEST_F(RangeImageFileMalformed, RefusesColorsOfImpossibleSizesBehindAnUnknownType) {
    file_.type = 7;
    for (const int width : {0, -3, kLeast, kMost}) {
        file_.width = width;
        EXPECT_TRUE(isRefused(true)) << width;
        EXPECT_TRUE(loads(file_.bytes(), false)) << width;
    }
}
