#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <cwctype>
#include <filesystem>
#include <memory>
#include <opencv2/imgcodecs.hpp>

#include "ZyrRangeImage.h"
#include "support/MatrixLimit.h"
#include "support/RangeFile.h"
#include "support/RangeImages.h"
#include "support/ScopedVariable.h"
#include "support/TempFolder.h"

// The route to ordinary image files: loading is chosen by two numbers, saving by none.

using test::Bytes;
using test::calibration;

namespace {

using Numbers = std::vector<double>;

constexpr const char* kSuffixes[] = {"png", "jpg", "jpeg", "bmp", "tif", "tiff",
                                     "PNG", "JPG", "JPEG", "BMP", "TIF", "TIFF",
                                     "pNg", "jPg", "Jpeg", "bmP", "tIf", "Tiff"};

class ImageFile : public testing::Test {
protected:
    std::string path(const std::string& name) const { return folder_.path(name); }
    std::wstring widePath(const std::wstring& name) const {
        const std::string folder = folder_.path("");
        return std::wstring(folder.begin(), folder.end()) + name;
    }
    /// What the image file holds once the library has written it.
    cv::Mat written(ZyrRangeImage& image, const std::string& name) {
        EXPECT_TRUE(image.Save(path(name).c_str()));
        return cv::imread(path(name), cv::IMREAD_UNCHANGED);
    }

    int failuresUnderTurkishLocale() {
        if (std::setlocale(LC_ALL, "tr_TR.UTF-8") == nullptr) return 100;
        int failures = std::towupper(L'i') == static_cast<std::wint_t>(L'I') ? 50 : 0;
        for (const char* suffix : kSuffixes) {
            const std::string file = path(std::string("a.") + suffix);
            if (!image_->Save(file.c_str())) ++failures;
            if (!image_->Load(file.c_str(), 1.0, 0.0)) ++failures;
        }
        const bool isKept = std::string(std::setlocale(LC_ALL, nullptr)) == "tr_TR.UTF-8";
        return failures + (isKept ? 0 : 70);
    }

    test::TempFolder folder_;
    std::unique_ptr<ZyrRangeImage> image_{test::newSample()};
};

using ImageFileDeathTest = ImageFile;

template <class T>
ZyrRangeImage row(std::vector<T> data, int type, double resolutionZ, double offsetZ) {
    return ZyrRangeImage(data.data(), static_cast<int>(data.size()), 1, 0, type, 0, 0, resolutionZ,
                         offsetZ, 1, 0, 1, 0);
}

Bytes shorts(const std::vector<std::uint16_t>& values) {
    return test::bytesOf(values);
}

}  // namespace

TEST_F(ImageFile, SixSuffixesInAnyLetterCaseAreWrittenAndRead) {
    for (const char* suffix : kSuffixes) {
        const std::string file = path(std::string("a.") + suffix);
        EXPECT_TRUE(image_->Save(file.c_str())) << suffix;
        EXPECT_TRUE(ZyrRangeImage().Load(file.c_str(), 1.0, 0.0)) << suffix;
    }
}

TEST_F(ImageFile, OtherSuffixesAreRefused) {
    for (const char* name :
         {"a.gif", "a.zrt", "a.ZRT", "a.pn", "a.pngg", "a.jpe", "a.webp", "a", "a.", "png"}) {
        EXPECT_FALSE(image_->Save(path(name).c_str())) << name;
        EXPECT_FALSE(test::fileExists(path(name))) << name;
        cv::imwrite(path("real.png"), cv::Mat(1, 1, CV_8U, cv::Scalar(1)));
        std::filesystem::rename(path("real.png"), path(name));
        EXPECT_FALSE(ZyrRangeImage().Load(path(name).c_str(), 1.0, 0.0)) << name;
        std::filesystem::remove(path(name));
    }
}

// In a process of its own, which ends at once: the C library itself leaks where LOCPATH is set.
TEST_F(ImageFileDeathTest, SuffixesDoNotDependOnTheLocale) {
    // A Turkish i has a dot in both cases, so that "tif" and "TIF" differ in more than case.
    const std::string make = "localedef -i tr_TR -f UTF-8 " + path("tr_TR.UTF-8") + " 2>/dev/null";
    if (std::system(make.c_str()) != 0) GTEST_SKIP() << "no Turkish locale can be made";
    const test::ScopedVariable locales("LOCPATH", path("").c_str());
    EXPECT_EXIT(std::_Exit(failuresUnderTurkishLocale()), testing::ExitedWithCode(0), "");
}

TEST_F(ImageFile, LoadTakesTheZCalibrationAndResetsXAndY) {
    ASSERT_TRUE(image_->Save(path("a.png").c_str()));
    ASSERT_TRUE(image_->Load(path("a.png").c_str(), 0.5, 10.0));
    EXPECT_EQ(image_->ResolutionZ(), 0.5);
    EXPECT_EQ(image_->OffsetZ(), 10.0);
    EXPECT_EQ(image_->ResolutionX(), 1.0);
    EXPECT_EQ(image_->OffsetX(), 0.0);
    EXPECT_EQ(image_->ResolutionY(), 1.0);
    EXPECT_EQ(image_->OffsetY(), 0.0);
}

TEST_F(ImageFile, FailedLoadSetsTheCalibrationAllTheSameAndKeepsTheValues) {
    test::writeFile(path("noimage.png"), {1, 2, 3});
    for (const char* name : {"missing.png", "noimage.png", "a.gif", "a"}) {
        image_->SetInfo(9, 9, 9, 9, 9, 9);
        EXPECT_FALSE(image_->Load(path(name).c_str(), 0.5, 10.0)) << name;
        EXPECT_EQ(calibration(*image_), (Numbers{1, 0, 1, 0, 0.5, 10})) << name;
        EXPECT_EQ(image_->GetValue(1, 2), 6.0) << name;
    }
}

TEST_F(ImageFile, NullPathsAreRefusedLikeAnyOther) {
    EXPECT_FALSE(image_->Load(static_cast<const char*>(nullptr), 0.5, 10.0));
    EXPECT_EQ(calibration(*image_), (Numbers{1, 0, 1, 0, 0.5, 10}));
    EXPECT_FALSE(image_->Load(static_cast<const wchar_t*>(nullptr), 0.25, 20.0));
    EXPECT_EQ(calibration(*image_), (Numbers{1, 0, 1, 0, 0.25, 20}));
    EXPECT_FALSE(image_->Save(static_cast<const char*>(nullptr)));
    EXPECT_FALSE(image_->Save(static_cast<const wchar_t*>(nullptr)));
}

TEST_F(ImageFile, LoadLeavesColorsAndValueRange) {
    ASSERT_TRUE(image_->Save(path("a.png").c_str()));
    test::setColors(*image_, 2, 3, 3);
    const void* colors = image_->ColorData();
    ASSERT_TRUE(image_->Load(path("a.png").c_str(), 0.5, 10.0));
    EXPECT_EQ(image_->ColorData(), colors);
    EXPECT_EQ(test::valueRange(*image_), (Numbers{1, 6}));
}

TEST_F(ImageFile, LoadLeavesThePixelsToThoseWhoShareThem) {
    ASSERT_TRUE(image_->Save(path("a.png").c_str()));
    const ZyrRangeImage copy(*image_);
    ASSERT_TRUE(image_->Load(path("a.png").c_str(), 1.0, 0.0));
    EXPECT_NE(image_->Data(), copy.Data());
}

TEST_F(ImageFile, LoadKeepsTheStoredDepth) {
    cv::imwrite(path("8.png"), cv::Mat(2, 3, CV_8U, cv::Scalar(200)));
    cv::imwrite(path("16.png"), cv::Mat(2, 3, CV_16U, cv::Scalar(60000)));
    cv::imwrite(path("float.tif"), cv::Mat(2, 3, CV_32F, cv::Scalar(0.25)));
    ZyrRangeImage loaded;
    ASSERT_TRUE(loaded.Load(path("8.png").c_str(), 1.0, 0.0));
    EXPECT_EQ(test::shape(loaded), (std::vector{3, 2, 0}));
    EXPECT_EQ(loaded.GetValue(1, 2), 200.0);
    ASSERT_TRUE(loaded.Load(path("16.png").c_str(), 1.0, 0.0));
    EXPECT_EQ(test::shape(loaded), (std::vector{3, 2, 2}));
    EXPECT_EQ(loaded.GetValue(1, 2), 60000.0);
    ASSERT_TRUE(loaded.Load(path("float.tif").c_str(), 1.0, 0.0));
    EXPECT_EQ(test::shape(loaded), (std::vector{3, 2, 5}));
    EXPECT_EQ(loaded.GetValue(1, 2), 0.25);
}

TEST_F(ImageFile, LoadTurnsColorsToOneChannel) {
    cv::imwrite(path("color.png"), cv::Mat(1, 1, CV_8UC3, cv::Scalar(200, 100, 10)));
    ZyrRangeImage loaded;
    ASSERT_TRUE(loaded.Load(path("color.png").c_str(), 1.0, 0.0));
    EXPECT_EQ(test::shape(loaded), (std::vector{1, 1, 0}));
    EXPECT_NEAR(loaded.GetValue(0, 0), 0.299 * 10 + 0.587 * 100 + 0.114 * 200, 1.0);
}

TEST_F(ImageFile, SaveKeepsUnsignedIntegersInPngAndTiff) {
    ZyrRangeImage bytes = row<std::uint8_t>({0, 1, 200, 255}, 0, 0.01, 100);
    EXPECT_EQ(test::bytesOf(written(bytes, "a.png")), (Bytes{0, 1, 200, 255}));
    EXPECT_EQ(test::bytesOf(written(bytes, "a.tif")), (Bytes{0, 1, 200, 255}));
    ZyrRangeImage words = row<std::uint16_t>({0, 1, 256, 65535}, 2, 0.01, 100);
    EXPECT_EQ(test::bytesOf(written(words, "a.png")), shorts({0, 1, 256, 65535}));
    EXPECT_EQ(test::bytesOf(written(words, "a.tif")), shorts({0, 1, 256, 65535}));
}

TEST_F(ImageFile, SaveLeavesSignedIntegersUnchangedInTheImage) {
    ZyrRangeImage words = row<std::int16_t>({-32768, -1, 32767}, 3, 0.01, 100);
    const Bytes before = test::valueBytes(words);
    EXPECT_NO_THROW(words.Save(path("a.tif").c_str()));
    EXPECT_EQ(test::valueBytes(words), before);
    EXPECT_EQ(words.DataType(), 3);
}

TEST_F(ImageFile, SaveClipsWhatACodecCannotKeep) {
    ZyrRangeImage words = row<std::uint16_t>({7, 300, 65535}, 2, 1, 0);
    EXPECT_EQ(test::bytesOf(written(words, "a.bmp")), (Bytes{7, 255, 255}));
    ZyrRangeImage bytes = row<std::int8_t>({-128, -1, 127}, 1, 1, 0);
    EXPECT_EQ(test::bytesOf(written(bytes, "a.png")), (Bytes{0, 0, 127}));
    ZyrRangeImage shorts = row<std::int16_t>({-5, 7, 300}, 3, 1, 0);
    EXPECT_EQ(test::bytesOf(written(shorts, "a.png")), (Bytes{0, 7, 255}));
    ZyrRangeImage longs = row<std::int32_t>({-1, 7, 70000}, 4, 1, 0);
    EXPECT_EQ(test::bytesOf(written(longs, "a.png")), (Bytes{0, 7, 255}));
}

TEST_F(ImageFile, SaveDividesFloatsByTheZResolutionRoundsAndClips) {
    ZyrRangeImage image = row<float>({0.0F, 1.23F, 2.006F, 655.35F, 700.0F, -1.0F}, 5, 0.01, 0);
    EXPECT_EQ(test::bytesOf(written(image, "a.png")), shorts({0, 123, 201, 65535, 65535, 0}));
}

TEST_F(ImageFile, SaveDividesDoublesByTheZResolutionRoundsAndClips) {
    ZyrRangeImage image = row<double>({0.0, 3.0, 2.9, 40000.0, -7.0}, 6, 2.0, 0);
    EXPECT_EQ(test::bytesOf(written(image, "a.tif")), shorts({0, 2, 1, 20000, 0}));
    EXPECT_EQ(written(image, "b.tif").type(), CV_16U);
}

TEST_F(ImageFile, SaveDoesNotApplyTheZOffset) {
    ZyrRangeImage image = row<float>({1.0F, 2.0F}, 5, 0.01, 50.0);
    EXPECT_EQ(test::bytesOf(written(image, "a.png")), shorts({100, 200}));
}

TEST_F(ImageFile, SaveDoesNotApplyTheZResolutionToIntegers) {
    ZyrRangeImage image = row<std::uint16_t>({1, 2}, 2, 0.01, 50.0);
    EXPECT_EQ(test::bytesOf(written(image, "a.png")), shorts({1, 2}));
}

TEST_F(ImageFile, SaveOfFloatsLeavesTheImageAsItWas) {
    ZyrRangeImage image = row<float>({1.25F, -2.0F}, 5, 0.01, 0);
    written(image, "a.png");
    EXPECT_EQ(image.DataType(), 5);
    EXPECT_EQ(image.GetValue(0, 0), 1.25);
}

TEST_F(ImageFile, SaveTakesAViewWithARowStep) {
    Bytes buffer = {1, 2, 90, 3, 4, 91};
    image_->CreateRangeImage(buffer.data(), 2, 2, 3, 0, 0, 0, 1, 0, 1, 0, 1, 0);
    EXPECT_EQ(test::bytesOf(written(*image_, "a.png")), (Bytes{1, 2, 3, 4}));
}

TEST_F(ImageFile, SaveRefusesAnEmptyImage) {
    EXPECT_FALSE(ZyrRangeImage().Save(path("a.png").c_str()));
    ZyrRangeImage image;
    image.SetSize(0, 5, 0);
    EXPECT_FALSE(image.Save(path("a.png").c_str()));
    EXPECT_FALSE(test::fileExists(path("a.png")));
}

TEST_F(ImageFile, SaveThrowsNothingWhateverOpenCVDoes) {
    for (const char* suffix : kSuffixes) {
        const std::string file = path(std::string("missing/a.") + suffix);
        EXPECT_NO_THROW(EXPECT_FALSE(image_->Save(file.c_str()))) << suffix;
    }
    ZyrRangeImage rowless;
    rowless.SetSize(5, 0, 0);
    EXPECT_NO_THROW(EXPECT_FALSE(rowless.Save(path("a.png").c_str())));
    ZyrRangeImage image = row<float>({1.0F, 2.0F}, 5, 1, 0);
    const test::MatrixLimit limit(3);
    EXPECT_NO_THROW(EXPECT_FALSE(image.Save(path("a.png").c_str())));
}

TEST_F(ImageFile, LoadThrowsNothingWhateverTheFileHolds) {
    ASSERT_TRUE(image_->Save(path("a.bmp").c_str()));
    Bytes bytes = test::readFile(path("a.bmp"));
    bytes[21] = 0x7F;  // a width beyond what OpenCV takes
    test::writeFile(path("huge.bmp"), bytes);
    EXPECT_THROW(cv::imread(path("huge.bmp"), 2), cv::Exception);
    EXPECT_NO_THROW(EXPECT_FALSE(image_->Load(path("huge.bmp").c_str(), 1.0, 0.0)));
    EXPECT_EQ(image_->GetValue(1, 2), 6.0);
    EXPECT_NO_THROW(EXPECT_FALSE(image_->Load(path("").c_str(), 1.0, 0.0)));
}

TEST_F(ImageFile, WidePathsReachTheSameFile) {
    ASSERT_TRUE(image_->Save(widePath(L"a.png").c_str()));
    EXPECT_TRUE(test::fileExists(path("a.png")));
    ZyrRangeImage loaded;
    ASSERT_TRUE(loaded.Load(widePath(L"a.png").c_str(), 0.5, 10.0));
    EXPECT_EQ(test::valueBytes(loaded), test::valueBytes(*image_));
    EXPECT_EQ(calibration(loaded), (Numbers{1, 0, 1, 0, 0.5, 10}));
}

TEST_F(ImageFile, PathsOutsideAsciiAreUtf8UnderAUtf8Environment) {
    const test::ScopedVariable locale("LC_ALL", "C.UTF-8");
    const std::string narrow = path("h\xC3\xB6he\xE2\x82\xAC.png");
    ASSERT_TRUE(image_->Save(widePath(L"h\u00F6he\u20AC.png").c_str()));
    EXPECT_TRUE(test::fileExists(narrow));
    EXPECT_TRUE(ZyrRangeImage().Load(widePath(L"h\u00F6he\u20AC.png").c_str(), 1.0, 0.0));
    EXPECT_TRUE(ZyrRangeImage().Load(narrow.c_str(), 1.0, 0.0));
    EXPECT_TRUE(image_->Save(narrow.c_str()));
}

TEST_F(ImageFile, PathThatCannotBeConvertedIsRefused) {
    const test::ScopedVariable locale("LC_ALL", "C");
    EXPECT_FALSE(image_->Save(widePath(L"h\u00F6he.png").c_str()));
    EXPECT_FALSE(image_->Load(widePath(L"h\u00F6he.png").c_str(), 1.0, 0.0));
    EXPECT_FALSE(image_->Save(path("h\xC3\xB6he.png").c_str()));
}
