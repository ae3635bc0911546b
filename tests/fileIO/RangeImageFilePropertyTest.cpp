#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <unistd.h>

#include <array>

#include "fileIO/File.h"
#include "fileIO/RangeImageFile.h"
#include "support/RangeFile.h"
#include "support/TempFolder.h"

// Loads go through the internal reader, on streams that are closed again.

using test::Bytes;
using test::RangeFile;
using test::Stores;

namespace {

bool read(std::FILE* file, Stores& s, bool withColors) {
    return zyr::readRangeImage(file,
                               {s.values, s.colors, s.resolutionX, s.resolutionY, s.resolutionZ,
                                s.offsetX, s.offsetY, s.offsetZ},
                               withColors);
}

bool readBack(Stores& stores, const std::string& path, bool withColors) {
    const zyr::File file = zyr::openFile(path.c_str(), "rb");
    return file != nullptr && read(file.get(), stores, withColors);
}

/// An image of any type and of bytes that repeat or not, with the bits of NaN and all else.
cv::Mat anyGrid(int rows, int columns, int type) {
    cv::Mat grid(rows, columns, type);
    const unsigned most = *rc::gen::element(0U, 1U, 255U);
    for (std::size_t i = 0; i < grid.total() * grid.elemSize(); ++i)
        grid.data[i] = static_cast<unsigned char>(*rc::gen::inRange(0U, most + 1));
    return grid;
}

bool isSame(const cv::Mat& a, const cv::Mat& b) {
    return a.type() == b.type() && a.size() == b.size() && test::bytesOf(a) == test::bytesOf(b);
}

}  // namespace

RC_GTEST_PROP(RangeImageFile, GivesBackEveryImageBitForBit, ()) {
    static const test::TempFolder folder;
    const std::string path = folder.path("image.zrt");
    const int rows = *rc::gen::inRange(1, 20);
    const int columns = *rc::gen::inRange(1, 20);
    Stores saved;
    saved.values = anyGrid(rows, columns, *rc::gen::inRange(0, 7));
    saved.colors = anyGrid(rows, columns, CV_8UC(*rc::gen::element(1, 3, 4)));
    saved.offsetX = *rc::gen::arbitrary<double>();
    RC_ASSERT(saved.save(path.c_str(), true));
    Stores loaded;
    RC_ASSERT(readBack(loaded, path, true));
    RC_ASSERT(isSame(loaded.values, saved.values));
    RC_ASSERT(isSame(loaded.colors, saved.colors));
    RC_ASSERT(loaded.calibration() == saved.calibration());
}

RC_GTEST_PROP(RangeImageFile, SpoiltBytesAreReadWhollyOrNotAtAll, (std::uint32_t seed)) {
    RangeFile file;
    file.type = *rc::gen::inRange(0, 7);
    file.width = 3;
    file.height = 2;
    file.channels = 3;
    file.valueStream = test::literalStream(test::goldenRangeValues(file.type));
    file.colorStream = test::literalStream(test::goldenRangeColors(3));
    Bytes bytes = file.bytes();
    const int spoilt = *rc::gen::inRange(1, 4);
    for (int i = 0; i < spoilt; ++i, seed = seed * 1664525 + 1013904223)
        bytes[(seed >> 8) % bytes.size()] = *rc::gen::arbitrary<unsigned char>();
    bytes = test::prefix(bytes, *rc::gen::inRange<std::size_t>(1, bytes.size() + 1));
    const zyr::File stream(fmemopen(bytes.data(), bytes.size(), "rb"));
    Stores loaded;
    if (read(stream.get(), loaded, true)) {
        const RangeFile left = test::parts(bytes);
        const Bytes values = test::bytesOf(loaded.values), colors = test::bytesOf(loaded.colors);
        RC_ASSERT(values.empty() || test::plainDecode(left.valueStream, values.size()) == values);
        RC_ASSERT(colors.empty() || test::plainDecode(left.colorStream, colors.size()) == colors);
        return;
    }
    RC_ASSERT(loaded.values.empty());
    RC_ASSERT(loaded.colors.empty());
    RC_ASSERT(loaded.calibration() == Stores().calibration());
}

TEST(RangeImageFile, TiniestImagesOfEachTypeComeBack) {
    const test::TempFolder folder;
    const std::string path = folder.path("image.zrt");
    for (int type = 0; type <= 6; ++type)
        for (int columns = 1; columns <= 6; ++columns) {
            Stores saved;
            saved.values = cv::Mat(1, columns, type);
            cv::randu(saved.values, 0, 100);
            saved.colors = cv::Mat(1, columns, CV_8U, cv::Scalar(columns));
            ASSERT_TRUE(saved.save(path.c_str(), true));
            Stores loaded;
            ASSERT_TRUE(readBack(loaded, path, true)) << type << ", " << columns;
            EXPECT_TRUE(isSame(loaded.values, saved.values)) << type << ", " << columns;
            EXPECT_TRUE(isSame(loaded.colors, saved.colors)) << type << ", " << columns;
        }
}

TEST(RangeImageFile, IncompressibleImageComesBack) {
    const test::TempFolder folder;
    const std::string path = folder.path("image.zrt");
    Stores saved;
    saved.values = cv::Mat(300, 1000, CV_32S);
    cv::RNG(1).fill(saved.values, cv::RNG::UNIFORM, -2147483647.0, 2147483647.0);
    ASSERT_TRUE(saved.save(path.c_str(), false));
    Stores loaded;
    ASSERT_TRUE(readBack(loaded, path, false));
    EXPECT_TRUE(isSame(loaded.values, saved.values));
}

TEST(RangeImageFile, IsReadFromAPipeToo) {
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    RangeFile file;
    file.width = 3;
    file.height = 2;
    file.valueStream = test::literalStream(test::goldenRangeValues(0));
    const Bytes bytes = file.bytes();
    ASSERT_EQ(write(ends[1], bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    close(ends[1]);
    const zyr::File stream(fdopen(ends[0], "rb"));
    Stores loaded;
    ASSERT_TRUE(read(stream.get(), loaded, true));
    EXPECT_EQ(test::bytesOf(loaded.values), test::goldenRangeValues(0));
}
