#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>

#include "Formats.h"
#include "ZyrPointCloud.h"
#include "ZyrRangeImage.h"
#include "ZyrTriangleMesh.h"
#include "support/Sanitizer.h"
#include "support/ScopedVariable.h"

// Decimal commas, thousands' dots and the Turkish i change no byte of a file and no result.

using test::Bytes;

namespace {

struct LocaleName {
    const char* language;
    const char* charset;

    std::string name() const { return std::string(language) + "." + charset; }
};

void PrintTo(const LocaleName& locale, std::ostream* out) {
    *out << locale.name();
}

/// Compiles the locale into a folder of the test's own and puts the process under it.
class Locales : public testing::TestWithParam<LocaleName> {
protected:
    void SetUp() override {
        if (test::hasSanitizer())
            GTEST_SKIP() << "the C library never frees what LOCPATH makes it take";
        const std::string name = GetParam().name();
        const std::string command = std::string("localedef -i ") + GetParam().language + " -f " +
                                    GetParam().charset + " '" + folder_.path(name) +
                                    "' >/dev/null 2>&1";
        if (std::system(command.c_str()) != 0 || setlocale(LC_ALL, name.c_str()) == nullptr)
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

TEST_P(Locales, ChangeNoByteOfAFileAndNoResult) {
    expectSameBytesAndValues();
    expectPlainThousands();
    expectAllSuffixes();
}

INSTANTIATE_TEST_SUITE_P(Names, Locales,
                         testing::Values(LocaleName{"de_DE", "UTF-8"},
                                         LocaleName{"de_DE", "ISO-8859-1"},
                                         LocaleName{"tr_TR", "UTF-8"},
                                         LocaleName{"tr_TR", "ISO-8859-9"}));
