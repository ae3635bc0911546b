#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>

#include "Formats.h"
#include "ZyrPointCloud.h"
#include "ZyrRangeImage.h"
#include "ZyrTriangleMesh.h"
#include "support/Locales.h"
#include "support/Sanitizer.h"
#include "support/ScopedVariable.h"

// Decimal commas, thousands' dots and the Turkish i change no byte of a file and no result.

using test::Bytes;

namespace {

/// Compiles the locale into a folder of the test's own and puts the process under it.
class Locales : public testing::TestWithParam<test::LocaleName> {
protected:
    void SetUp() override {
        if (test::hasSanitizer())
            GTEST_SKIP() << "the C library never frees what LOCPATH makes it take";
        const std::string name = GetParam().name();
        if (!test::makeLocale(folder_.path(""), GetParam()) ||
            setlocale(LC_ALL, name.c_str()) == nullptr)
            GTEST_SKIP() << "no " << name << "; Debian's package locales has it";
        EXPECT_STREQ(localeconv()->decimal_point, ",");
        setlocale(LC_ALL, "C");
    }
    void TearDown() override { setlocale(LC_ALL, "C"); }

    void enter() const { ASSERT_NE(setlocale(LC_ALL, GetParam().name().c_str()), nullptr); }

    void expectSameBytesAndValues() const {
        for (const test::Format& format : test::formats()) {
            test::Content content = test::sampleOf(format);
            const Bytes values = test::bytesOf(content);
            ASSERT_TRUE(format.save(content, folder_.path("C").c_str()));
            enter();
            EXPECT_TRUE(format.save(content, folder_.path("other").c_str()));
            EXPECT_EQ(test::bytesOf(test::sampleOf(format)), values) << format.name;
            setlocale(LC_ALL, "C");
            EXPECT_EQ(test::readFile(folder_.path("other")), test::readFile(folder_.path("C")));
        }
    }

    void expectPlainThousands() const {
        constexpr int kPoints = 12345;
        ZyrVector3dArray points;
        points.SetSize(kPoints);
        cv::Mat colors;
        ZyrVector3dArray normals;
        enter();
        const std::string path = folder_.path("many.zpt");
        EXPECT_TRUE(
            Zyr3DFileIO::SavePointCloud(points, normals, colors, path.c_str(), false, false));
        const Bytes file = test::readFile(path);
        EXPECT_NE(std::string(file.begin(), file.end()).find("POINTS 12345\n"), std::string::npos);
        EXPECT_EQ(test::loadFile(path, false, false).points.Length(), kPoints);
    }

    /// Image files have the bytes that they have under "C", and load.
    void expectSameImages() const {
        ZyrRangeImage image;
        ASSERT_TRUE(image.Load(test::formats()[2].samplePath().c_str(), false));
        for (const std::string suffix : {"png", "jpg", "jpeg", "bmp", "tif", "tiff", "TIFF"}) {
            const std::string plain = folder_.path("C." + suffix);
            const std::string other = folder_.path("other." + suffix);
            EXPECT_TRUE(image.Save(plain.c_str())) << suffix;
            ZyrRangeImage whole, loaded;
            EXPECT_TRUE(whole.Load(plain.c_str(), 1.0, 0.0)) << suffix;
            enter();
            EXPECT_TRUE(image.Save(other.c_str())) << suffix;
            EXPECT_TRUE(loaded.Load(plain.c_str(), 1.0, 0.0)) << suffix;
            setlocale(LC_ALL, "C");
            EXPECT_EQ(test::readFile(other), test::readFile(plain)) << suffix;
            EXPECT_EQ(test::valueBytes(loaded), test::valueBytes(whole)) << suffix;
        }
    }

    /// Wide paths lead where the environment's encoding has them: here to a folder named by these
    /// bytes.
    void expectFilesByWidePaths() const {
        const test::ScopedVariable environment("LC_ALL", GetParam().name().c_str());
        const bool isUtf8 = GetParam().charset == std::string("UTF-8");
        const std::string folder = folder_.path(isUtf8 ? "h\xC3\xB6he" : "h\xF6he");
        std::filesystem::create_directory(folder);
        const std::string plain = folder_.path("h");
        const std::wstring wide = std::wstring(plain.begin(), plain.end()) + L"\u00F6he/";
        ZyrPointCloud cloud;
        ZyrTriangleMesh mesh;
        ZyrRangeImage image;
        ASSERT_TRUE(cloud.Load(test::formats()[0].samplePath().c_str(), true, true));
        ASSERT_TRUE(mesh.Load(test::formats()[1].samplePath().c_str(), true, true));
        ASSERT_TRUE(image.Load(test::formats()[2].samplePath().c_str(), true));
        EXPECT_TRUE(cloud.Save((wide + L"a.zpt").c_str(), true, true));
        EXPECT_TRUE(mesh.Save((wide + L"a.ztmt").c_str(), true, true));
        EXPECT_TRUE(image.Save((wide + L"a.zrt").c_str(), true));
        EXPECT_TRUE(image.Save((wide + L"a.tif").c_str()));
        for (const char* name : {"a.zpt", "a.ztmt", "a.zrt", "a.tif"})
            EXPECT_TRUE(test::fileExists(folder + "/" + name)) << name;
        EXPECT_TRUE(cloud.Load((wide + L"a.zpt").c_str(), true, true));
        EXPECT_TRUE(mesh.Load((wide + L"a.ztmt").c_str(), true, true));
        EXPECT_TRUE(image.Load((wide + L"a.zrt").c_str(), true));
        EXPECT_TRUE(image.Load((wide + L"a.tif").c_str(), 1.0, 0.0));
        // Letters that the encoding lacks lead nowhere.
        EXPECT_EQ(cloud.Save((wide + L"\u4E09.zpt").c_str(), true, true), isUtf8);
        EXPECT_EQ(mesh.Save((wide + L"\u4E09.ztmt").c_str(), true, true), isUtf8);
        EXPECT_EQ(image.Save((wide + L"\u4E09.zrt").c_str(), true), isUtf8);
    }

    void expectAllSuffixes() const {
        // In Turkish the capital of i is another letter; the suffixes of images are put into
        // capitals.
        enter();
        ZyrRangeImage image;
        EXPECT_TRUE(image.Load(test::formats()[2].samplePath().c_str(), false));
        for (const char* suffix : {"zrt", "ZRT", "Zrt"})
            EXPECT_TRUE(image.Save(folder_.path(std::string("a.") + suffix).c_str(), false))
                << suffix;
        for (const char* suffix : {"tif", "tiff", "TIFF", "png"})
            EXPECT_TRUE(image.Save(folder_.path(std::string("a.") + suffix).c_str())) << suffix;
        ZyrPointCloud cloud;
        EXPECT_TRUE(cloud.Load(test::formats()[0].samplePath().c_str(), true, true));
        EXPECT_TRUE(cloud.Save(folder_.path("a.ZPT").c_str(), true, true));
        ZyrTriangleMesh mesh;
        EXPECT_TRUE(mesh.Load(test::formats()[1].samplePath().c_str(), true, true));
        EXPECT_TRUE(mesh.Save(folder_.path("a.ZTMT").c_str(), true, true));
    }

    test::TempFolder folder_;
    test::ScopedVariable path_{"LOCPATH", folder_.path("").c_str()};
};

}  // namespace

TEST_P(Locales, ChangeNoByteOfAFileAndNoResultAndLeadWidePathsByTheirEncoding) {
    expectSameBytesAndValues();
    expectPlainThousands();
    expectAllSuffixes();
    expectSameImages();
    expectFilesByWidePaths();
}

INSTANTIATE_TEST_SUITE_P(Names, Locales, testing::ValuesIn(test::localeNames()));
