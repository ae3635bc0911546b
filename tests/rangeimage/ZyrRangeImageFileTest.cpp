#include <gtest/gtest.h>

#include <memory>

#include "ZyrRangeImage.h"
#include "support/RangeFile.h"
#include "support/RangeImages.h"
#include "support/ScopedVariable.h"
#include "support/TempFolder.h"
#include "support/ZyrValues.h"

// The route to the library's own file, which is chosen by a bool.

namespace {

using Numbers = std::vector<double>;

class ZyrRangeImageFile : public testing::Test {
protected:
    ZyrRangeImageFile() { test::setColors(*image_, 2, 3, 3); }

    std::string path(const char* name) const { return folder_.path(name); }
    bool save(const char* name) { return image_->Save(path(name).c_str(), true); }

    test::TempFolder folder_;
    std::unique_ptr<ZyrRangeImage> image_{test::newSample()};
};

}  // namespace

TEST_F(ZyrRangeImageFile, ComesBackWithValuesColorsAndCalibration) {
    ASSERT_TRUE(save("a.zrt"));
    ZyrRangeImage loaded;
    ASSERT_TRUE(loaded.Load(path("a.zrt").c_str(), true));
    EXPECT_EQ(test::shape(loaded), (std::vector{3, 2, 2}));
    EXPECT_EQ(test::valueBytes(loaded), test::valueBytes(*image_));
    EXPECT_TRUE(loaded.IsValidColor());
    EXPECT_EQ(test::values(loaded.GetColor(1, 0)), (std::vector{12, 11, 10, 255}));
    EXPECT_EQ(test::calibration(loaded), test::sampleCalibration());
}

TEST_F(ZyrRangeImageFile, LeavesTheValueRange) {
    ASSERT_TRUE(save("a.zrt"));
    ZyrRangeImage loaded;
    ASSERT_TRUE(loaded.Load(path("a.zrt").c_str(), true));
    EXPECT_EQ(test::valueRange(loaded), (Numbers{0, 0}));
    unsigned char pixel = 0;
    ZyrRangeImage other(&pixel, 1, 1, 0, 0, 10, 20, 1, 0, 1, 0, 1, 0);
    ASSERT_TRUE(other.Load(path("a.zrt").c_str(), true));
    EXPECT_EQ(test::valueRange(other), (Numbers{10, 20}));
}

TEST_F(ZyrRangeImageFile, ColorsAreSavedAndLoadedOnlyWhenWanted) {
    ASSERT_TRUE(image_->Save(path("without.zrt").c_str(), false));
    ASSERT_TRUE(save("with.zrt"));
    ZyrRangeImage loaded;
    ASSERT_TRUE(loaded.Load(path("without.zrt").c_str(), true));
    EXPECT_FALSE(loaded.IsValidColor());
    ASSERT_TRUE(loaded.Load(path("with.zrt").c_str(), false));
    EXPECT_FALSE(loaded.IsValidColor());
}

TEST_F(ZyrRangeImageFile, TakesItsSuffixInAnyLetterCase) {
    for (const char* name : {"a.zrt", "a.ZRT", "a.Zrt", "a.zRT", "a.zpt.zrt"}) {
        EXPECT_TRUE(save(name)) << name;
        EXPECT_TRUE(image_->Load(path(name).c_str(), true)) << name;
    }
}

TEST_F(ZyrRangeImageFile, RefusesOtherSuffixesWithoutCreatingAFile) {
    for (const char* name : {"a.png", "a.gif", "a.zpt", "a.zr", "a.zrtt", "a", "a."}) {
        EXPECT_FALSE(save(name)) << name;
        EXPECT_FALSE(test::fileExists(path(name))) << name;
    }
}

TEST_F(ZyrRangeImageFile, RefusesToLoadAnotherSuffixAndChangesNothing) {
    ASSERT_TRUE(save("a.zrt"));
    std::filesystem::rename(path("a.zrt"), path("a.gif"));
    EXPECT_FALSE(image_->Load(path("a.gif").c_str(), true));
    EXPECT_EQ(test::calibration(*image_), test::sampleCalibration());
    EXPECT_EQ(image_->GetValue(1, 2), 6.0);
}

TEST_F(ZyrRangeImageFile, RefusesNullPaths) {
    EXPECT_FALSE(image_->Save(static_cast<const char*>(nullptr), true));
    EXPECT_FALSE(image_->Save(static_cast<const wchar_t*>(nullptr), true));
    EXPECT_FALSE(image_->Load(static_cast<const char*>(nullptr), true));
    EXPECT_FALSE(image_->Load(static_cast<const wchar_t*>(nullptr), true));
    EXPECT_EQ(test::calibration(*image_), test::sampleCalibration());
}

TEST_F(ZyrRangeImageFile, RefusesAnEmptyImage) {
    EXPECT_FALSE(ZyrRangeImage().Save(path("a.zrt").c_str(), true));
    EXPECT_FALSE(test::fileExists(path("a.zrt")));
}

TEST_F(ZyrRangeImageFile, RefusedLoadKeepsAllButTheThreeNumbersThatAreReset) {
    EXPECT_FALSE(image_->Load(path("missing.zrt").c_str(), true));
    EXPECT_EQ(test::calibration(*image_), (Numbers{1, 5, 1, 7, 2, 0}));
    EXPECT_EQ(test::valueRange(*image_), (Numbers{1, 6}));
    EXPECT_EQ(image_->GetValue(1, 2), 6.0);
    EXPECT_TRUE(image_->IsValidColor());
}

TEST_F(ZyrRangeImageFile, LoadLeavesThePixelsToThoseWhoShareThem) {
    ASSERT_TRUE(save("a.zrt"));
    const ZyrRangeImage copy(*image_);
    ASSERT_TRUE(image_->Load(path("a.zrt").c_str(), true));
    EXPECT_NE(image_->Data(), copy.Data());
    EXPECT_NE(image_->ColorData(), copy.ColorData());
}

TEST_F(ZyrRangeImageFile, LoadEndsAView) {
    ASSERT_TRUE(save("a.zrt"));
    std::array<unsigned short, 6> buffer{};
    image_->CreateRangeImage(buffer.data(), 3, 2, 0, 2, 0, 0, 1, 0, 1, 0, 1, 0);
    ASSERT_TRUE(image_->Load(path("a.zrt").c_str(), true));
    EXPECT_NE(image_->Data(), buffer.data());
    EXPECT_EQ(buffer[0], 0);
}

TEST_F(ZyrRangeImageFile, SavesAViewWithARowStepPacked) {
    test::Bytes buffer = {1, 2, 90, 3, 4, 91};
    image_->CreateRangeImage(buffer.data(), 2, 2, 3, 0, 0, 0, 1, 0, 1, 0, 1, 0);
    ASSERT_TRUE(save("a.zrt"));
    ZyrRangeImage loaded;
    ASSERT_TRUE(loaded.Load(path("a.zrt").c_str(), true));
    EXPECT_EQ(test::valueBytes(loaded), (test::Bytes{1, 2, 3, 4}));
}

TEST_F(ZyrRangeImageFile, SuccessfulLoadLeavesItsFileOpen) {
    ASSERT_TRUE(save("a.zrt"));
    EXPECT_EQ(test::openDescriptors(path("a.zrt")), 0);
    ASSERT_TRUE(image_->Load(path("a.zrt").c_str(), true));
    EXPECT_EQ(test::openDescriptors(path("a.zrt")), 1);
}

TEST_F(ZyrRangeImageFile, WidePathsReachTheSameFile) {
    const std::string narrow = path("a.zrt");
    const std::wstring wide(narrow.begin(), narrow.end());
    ASSERT_TRUE(image_->Save(wide.c_str(), true));
    EXPECT_TRUE(test::fileExists(narrow));
    EXPECT_TRUE(ZyrRangeImage().Load(wide.c_str(), true));
}

TEST_F(ZyrRangeImageFile, WidePathsOutsideAsciiAreUtf8UnderAUtf8Environment) {
    const test::ScopedVariable locale("LC_ALL", "C.UTF-8");
    const std::string narrow = path("h\xC3\xB6he\xE2\x82\xAC.zrt");
    const std::string ascii = path("");
    const std::wstring wide = std::wstring(ascii.begin(), ascii.end()) + L"h\u00F6he\u20AC.zrt";
    ASSERT_TRUE(image_->Save(wide.c_str(), true));
    EXPECT_TRUE(test::fileExists(narrow));
    EXPECT_TRUE(ZyrRangeImage().Load(wide.c_str(), true));
    EXPECT_TRUE(ZyrRangeImage().Load(narrow.c_str(), true));
}

TEST_F(ZyrRangeImageFile, WidePathThatCannotBeConvertedIsRefused) {
    const test::ScopedVariable locale("LC_ALL", "C");
    const std::string ascii = path("");
    const std::wstring wide = std::wstring(ascii.begin(), ascii.end()) + L"h\u00F6he.zrt";
    EXPECT_FALSE(image_->Save(wide.c_str(), true));
    EXPECT_TRUE(std::filesystem::is_empty(ascii));
    EXPECT_FALSE(image_->Load(wide.c_str(), true));
    EXPECT_EQ(test::calibration(*image_), test::sampleCalibration());
}
