#include <gtest/gtest.h>
#include <liblzf/lzf.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>
#include <random>
#include <thread>

#include "fileIO/LzfEncoder.h"
#include "support/CloudFile.h"
#include "support/DoubleBits.h"
#include "support/MeshFile.h"
#include "support/RangeFile.h"
#include "support/Sanitizer.h"
#include "support/ZyrValues.h"

/// Files larger than the pieces in which they are written and read.

using test::Bytes;

namespace {

/// Float-born coordinates, every fifth missing.
ZyrVector3dArray surface(int points, unsigned seed) {
    std::mt19937 random(seed);
    ZyrVector3dArray vectors;
    vectors.SetSize(points);
    for (int i = 0; i < points; ++i)
        if (i % 5 != 0)
            vectors[i] = ZyrVector3d(static_cast<float>(random()) * 1e-9F,
                                     static_cast<float>(random()) * 1e-9F, 1.0F);
    return vectors;
}

cv::Mat colorRow(int n, int channels) {
    cv::Mat colors(1, n, CV_8UC(channels));
    cv::randu(colors, 0, 256);
    return colors;
}

bool save(ZyrVector3dArray points, ZyrVector3dArray normals, cv::Mat colors,
          const std::string& path) {
    return Zyr3DFileIO::SavePointCloud(points, normals, colors, path.c_str(), true, true);
}

/// What a file of points, the same as normals, and three-channel colours holds, column by column.
Bytes body(const ZyrVector3dArray& points, const cv::Mat& colors) {
    Bytes bytes;
    for (int column = 0; column < 6; ++column)
        for (int i = 0; i < points.Length(); ++i)
            test::put(bytes, points.Data()[3 * i + column % 3]);
    for (int i = 0; i < points.Length(); ++i) {
        const auto& bgr = colors.at<cv::Vec3b>(0, i);
        test::put(bytes,
                  0xFF000000U | std::uint32_t(bgr[2]) << 16 | std::uint32_t(bgr[1]) << 8 | bgr[0]);
    }
    return bytes;
}

/// Kilobytes behind a name in the process's status.
long status(const std::string& name) {
    std::ifstream file("/proc/self/status");
    for (std::string word; file >> word;)
        if (word == name + ":") {
            long kilobytes = 0;
            file >> kilobytes;
            return kilobytes;
        }
    return 0;
}

bool forgetPeak() {
    std::ofstream file("/proc/self/clear_refs");
    return static_cast<bool>(file << 5 << std::flush);
}

constexpr long kMostExtra = 1024;  // kilobytes

/// Exits with 0 when the work took less than a megabyte more than the process holds before or
/// after it, whichever is more.
template <class Work>
[[noreturn]] void exitByPeak(Work work) {
    const bool isMeasured = forgetPeak();
    const long before = status("VmRSS");
    const bool isDone = work();
    const long held = std::max(before, status("VmRSS"));
    const long extra = status("VmHWM") - held;
    if (extra >= kMostExtra) std::fprintf(stderr, "%ld kB\n", extra);
    _exit(!isDone || (isMeasured && extra >= kMostExtra) ? 1 : 0);
}

}  // namespace

TEST(StreamedFiles, CloudsOfAnyLengthComeBackBitForBit) {
    const test::TempFolder folder;
    const std::string path = folder.path("a.zpt");
    for (const int n : {1, 2, 1023, 1024, 1025, 2730, 2731, 8191, 8192, 8193, 70000}) {
        const ZyrVector3dArray points = surface(n, 1), normals = surface(n, 2);
        const cv::Mat colors = colorRow(n, 4);
        ASSERT_TRUE(save(points, normals, colors, path));
        const test::LoadedCloud loaded = test::loadFile(path, true, true);
        EXPECT_TRUE(loaded.isLoaded) << n;
        EXPECT_TRUE(test::bits(loaded.points) == test::bits(points)) << n;
        EXPECT_TRUE(test::bits(loaded.normals) == test::bits(normals)) << n;
        EXPECT_EQ(cv::norm(loaded.colors, colors, cv::NORM_INF), 0) << n;
    }
}

TEST(StreamedFiles, ColoursBehindFullBlocksComeBack) {
    // 16384 points fill three blocks, so that the colours, which are narrower, start the fourth.
    static_assert(16384 * 24 == 3 * zyr::kLzfBlock, "the points must fill blocks");
    const test::TempFolder folder;
    const std::string path = folder.path("a.zpt");
    for (const int n : {5461, 5462, 16383, 16384, 16385}) {
        const ZyrVector3dArray points = surface(n, 1);
        const cv::Mat colors = colorRow(n, 3);
        ASSERT_TRUE(save(points, ZyrVector3dArray(), colors, path));
        const test::LoadedCloud loaded = test::loadFile(path, true, true);
        EXPECT_TRUE(loaded.isLoaded) << n;
        EXPECT_TRUE(test::bits(loaded.points) == test::bits(points)) << n;
        EXPECT_EQ(cv::norm(loaded.colors, colors, cv::NORM_INF), 0) << n;
    }
}

TEST(StreamedFiles, BodiesOfManyBlocksAreOneStreamForAnyDecoder) {
    const test::TempFolder folder;
    const ZyrVector3dArray points = surface(20000, 10);
    const cv::Mat colors = colorRow(20000, 3);
    ASSERT_TRUE(save(points, points, colors, folder.path("a.zpt")));
    const test::CloudParts parts(test::readFile(folder.path("a.zpt")));
    const Bytes expected = body(points, colors);
    EXPECT_TRUE(parts.body() == expected);
    Bytes there(expected.size());
    EXPECT_EQ(lzf_decompress(parts.stream.data(), static_cast<unsigned>(parts.stream.size()),
                             there.data(), static_cast<unsigned>(there.size())),
              there.size());
    EXPECT_TRUE(there == expected);
}

TEST(StreamedFiles, SavingTwiceGivesTheSameFile) {
    const test::TempFolder folder;
    const ZyrVector3dArray points = surface(20000, 11);
    const cv::Mat colors = colorRow(20000, 4);
    ASSERT_TRUE(save(points, points, colors, folder.path("a.zpt")));
    ASSERT_TRUE(save(points, points, colors, folder.path("b.zpt")));
    EXPECT_TRUE(test::readFile(folder.path("a.zpt")) == test::readFile(folder.path("b.zpt")));
}

TEST(StreamedFiles, CutCloudHasTheValuesThatAreThere) {
    const test::TempFolder folder;
    constexpr int kPoints = 20000;
    const ZyrVector3dArray points = surface(kPoints, 3);
    ASSERT_TRUE(save(points, ZyrVector3dArray(), cv::Mat(), folder.path("a.zpt")));
    const Bytes file = test::readFile(folder.path("a.zpt"));
    for (const std::size_t size : {file.size() / 5, file.size() / 2, file.size() - 1}) {
        const test::LoadedCloud loaded = test::loadBytes(test::prefix(file, size));
        ASSERT_TRUE(loaded.isLoaded);
        ASSERT_EQ(loaded.points.Length(), kPoints);
        // In the file's order the values are there up to some one, and 0 behind it.
        bool isThere = true;
        for (std::size_t i = 0; i < 3 * kPoints; ++i) {
            const std::size_t at = i % kPoints * 3 + i / kPoints;
            isThere = isThere && loaded.points.Data()[at] == points.Data()[at];
            ASSERT_TRUE(isThere || loaded.points.Data()[at] == 0.0) << size << ", " << i;
        }
        EXPECT_FALSE(isThere);
    }
}

TEST(StreamedFiles, RefusedCloudLeavesTheOutputsAlone) {
    const test::TempFolder folder;
    ASSERT_TRUE(
        save(surface(20000, 4), surface(20000, 5), colorRow(20000, 3), folder.path("a.zpt")));
    Bytes file = test::readFile(folder.path("a.zpt"));
    // The size word leaves the last chunk's last byte out.
    const std::uint32_t size = test::CloudParts(file).streamSize - 1;
    std::memcpy(&file[test::CloudParts(file).header.size() + 4], &size, sizeof size);
    const test::MemoryFile memory(file);
    ZyrVector3dArray points = test::vectors({1, 2, 3}), normals = test::vectors({4, 5, 6});
    const ZyrVector3dArray sharer = points;
    cv::Mat colors(1, 20000, CV_8UC3, cv::Scalar(7, 7, 7));
    EXPECT_FALSE(
        Zyr3DFileIO::LoadPointCloud(points, normals, colors, memory.path().c_str(), true, true));
    EXPECT_EQ(test::values(points), (std::vector<double>{1, 2, 3}));
    EXPECT_EQ(test::values(normals), (std::vector<double>{4, 5, 6}));
    EXPECT_EQ(test::values(sharer), (std::vector<double>{1, 2, 3}));
    EXPECT_EQ(cv::norm(colors, cv::Mat(1, 20000, CV_8UC3, cv::Scalar(7, 7, 7))), 0);
}

TEST(StreamedFiles, ThoseWhoShareAStoreSeeTheCloud) {
    const test::TempFolder folder;
    const ZyrVector3dArray saved = surface(20000, 6);
    const cv::Mat savedColors = colorRow(20000, 3);
    ASSERT_TRUE(save(saved, ZyrVector3dArray(), savedColors, folder.path("a.zpt")));
    ZyrVector3dArray points = test::vectors({1, 2, 3}), normals;
    const ZyrVector3dArray sharer = points;
    cv::Mat colors(1, 20000, CV_8UC3);
    const cv::Mat colorSharer = colors;
    ASSERT_TRUE(Zyr3DFileIO::LoadPointCloud(points, normals, colors, folder.path("a.zpt").c_str(),
                                            false, true));
    EXPECT_TRUE(test::bits(sharer) == test::bits(saved));
    EXPECT_EQ(cv::norm(colorSharer, savedColors, cv::NORM_INF), 0);
}

TEST(StreamedFiles, PipesTakeAndGiveWhatFilesDo) {
    const test::TempFolder folder;
    const ZyrVector3dArray points = surface(30000, 7);
    ASSERT_TRUE(save(points, points, cv::Mat(), folder.path("a.zpt")));
    const std::string fifo = folder.path("fifo.zpt");
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    std::thread writer([&] { EXPECT_TRUE(save(points, points, cv::Mat(), fifo)); });
    const Bytes piped = test::readFile(fifo);
    writer.join();
    EXPECT_TRUE(piped == test::readFile(folder.path("a.zpt")));
    std::thread again([&] { EXPECT_TRUE(save(points, points, cv::Mat(), fifo)); });
    const test::LoadedCloud loaded = test::loadFile(fifo, true, true);
    again.join();
    EXPECT_TRUE(loaded.isLoaded);
    EXPECT_TRUE(test::bits(loaded.points) == test::bits(points));
}

TEST(StreamedFiles, RangeImagesOfAnyWidthComeBack) {
    const test::TempFolder folder;
    const std::string path = folder.path("a.zrt");
    for (const int type : {CV_8U, CV_16U, CV_32S, CV_64F})
        for (const int channels : {1, 3, 4}) {
            test::Stores stores;
            stores.values = cv::Mat(211, 333, type);
            cv::randu(stores.values, 0, 200);
            stores.colors = cv::Mat(211, 333, CV_8UC(channels));
            cv::randu(stores.colors, 0, 256);
            ASSERT_TRUE(stores.save(path.c_str(), true));
            test::Stores loaded;
            ASSERT_TRUE(loaded.load(path.c_str(), true));
            EXPECT_TRUE(test::bytesOf(loaded.values) == test::bytesOf(stores.values)) << type;
            EXPECT_TRUE(test::bytesOf(loaded.colors) == test::bytesOf(stores.colors)) << channels;
        }
}

TEST(StreamedFiles, RangeImageIntoAPipeIsThatOfTheFile) {
    const test::TempFolder folder;
    test::Stores stores;
    stores.values = cv::Mat(300, 400, CV_16U);
    cv::randu(stores.values, 0, 60000);
    ASSERT_TRUE(stores.save(folder.path("a.zrt").c_str(), false));
    const std::string fifo = folder.path("fifo.zrt");
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    std::thread writer([&] { EXPECT_TRUE(stores.save(fifo.c_str(), false)); });
    const Bytes piped = test::readFile(fifo);
    writer.join();
    EXPECT_TRUE(piped == test::readFile(folder.path("a.zrt")));
}

TEST(StreamedFiles, SavingTakesLessThanAMegabyte) {
    if (test::hasSanitizer()) GTEST_SKIP() << "the sanitizer keeps memory of its own";
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const test::TempFolder folder;
    const auto run = [&] {
        const ZyrVector3dArray points = surface(1000000, 8);
        const cv::Mat colors = colorRow(1000000, 3);
        exitByPeak([&] { return save(points, points, colors, folder.path("a.zpt")); });
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(0), "");
}

TEST(StreamedFiles, LoadingTakesLessThanAMegabyteAboveTheCloud) {
    if (test::hasSanitizer()) GTEST_SKIP() << "the sanitizer keeps memory of its own";
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const test::TempFolder folder;
    const std::string path = folder.path("a.zpt");
    const ZyrVector3dArray saved = surface(1000000, 9);
    ASSERT_TRUE(save(saved, saved, colorRow(1000000, 3), path));
    const auto run = [&] {
        test::LoadedCloud loaded;
        exitByPeak([&] {
            loaded = test::loadFile(path, true, true);
            return loaded.isLoaded;
        });
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(0), "");
}

TEST(StreamedFiles, RangeImagesTakeLessThanAMegabyteAboveTheImage) {
    if (test::hasSanitizer()) GTEST_SKIP() << "the sanitizer keeps memory of its own";
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const test::TempFolder folder;
    const auto run = [&] {
        test::Stores stores, loaded;
        stores.values = cv::Mat(2000, 3000, CV_16U);
        cv::randu(stores.values, 0, 60000);
        exitByPeak([&] {
            return stores.save(folder.path("a.zrt").c_str(), false) &&
                   loaded.load(folder.path("a.zrt").c_str(), false);
        });
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(0), "");
}
