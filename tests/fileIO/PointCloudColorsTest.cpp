#include <gtest/gtest.h>

#include "support/CloudFile.h"
#include "support/ZyrValues.h"

/// The colours of "binary_compressed" bodies.

using test::Bytes;
using test::CloudHeader;

namespace {

/// Two points; colours (b, g, r, a) 30 20 10 128 and 3 2 1 255.
Bytes file(std::uint32_t channels) {
    const CloudHeader header = CloudHeader(2).columns("x y z rgb", "8 8 8 4", "F F F U", "1 1 1 1");
    const Bytes words = test::bytesOf<std::uint32_t>({0x800A141E, 0xFF010203});
    return test::joined(header.bytes(), test::compressed(channels, test::joined(Bytes(48), words)));
}

bool loadInto(cv::Mat& colors, const Bytes& bytes, bool withColors = true) {
    const test::MemoryFile file(bytes);
    ZyrVector3dArray points, normals;
    return Zyr3DFileIO::LoadPointCloud(points, normals, colors, file.path().c_str(), true,
                                       withColors);
}

}  // namespace

TEST(CloudColors, TakeTheChannelsOfTheFile) {
    EXPECT_EQ(test::loadBytes(file(1)).colorBytes(), (Bytes{30, 3}));
    EXPECT_EQ(test::loadBytes(file(3)).colorBytes(), (Bytes{30, 20, 10, 3, 2, 1}));
    EXPECT_EQ(test::loadBytes(file(4)).colorBytes(), (Bytes{30, 20, 10, 128, 3, 2, 1, 255}));
}

TEST(CloudColors, AreOneRowOf8BitChannels) {
    for (int channels : {1, 3, 4}) {
        const cv::Mat colors = test::loadBytes(file(static_cast<std::uint32_t>(channels))).colors;
        EXPECT_EQ(colors.rows, 1);
        EXPECT_EQ(colors.cols, 2);
        EXPECT_EQ(colors.type(), CV_8UC(channels));
    }
}

TEST(CloudColors, OtherChannelCountsAreRefused) {
    for (std::uint32_t channels : {0U, 2U, 5U, 255U, 0x80000001U, 0xFFFFFFFFU})
        EXPECT_FALSE(test::loadBytes(file(channels)).isLoaded) << channels;
}

TEST(CloudColors, ChannelCountDoesNotMatterWhereColoursAreNotWanted) {
    for (std::uint32_t channels : {0U, 2U, 5U, 0xFFFFFFFFU})
        EXPECT_TRUE(test::loadBytes(file(channels), true, false).isLoaded) << channels;
}

TEST(CloudColors, ChannelCountDoesNotMatterWhereTheFileHasNoColours) {
    const Bytes bytes = test::joined(CloudHeader(2).bytes(), test::compressed(7, Bytes(48)));
    EXPECT_TRUE(test::loadBytes(bytes).isLoaded);
}

TEST(CloudColors, WordsOfAnotherSizeAreRefusedWhereTheyAreWanted) {
    const CloudHeader header = CloudHeader(2).columns("x y z rgb", "8 8 8 2", "F F F U", "1 1 1 1");
    const Bytes bytes = test::joined(header.bytes(), test::compressed(3, Bytes(52)));
    EXPECT_FALSE(test::loadBytes(bytes, true, true).isLoaded);
    EXPECT_TRUE(test::loadBytes(bytes, true, false).isLoaded);
}

TEST(CloudColors, MatrixOfThatShapeIsFilledInPlace) {
    cv::Mat colors = test::colorRow(Bytes(6, 99), 3);
    const cv::Mat sharer = colors;
    const unsigned char* pixels = colors.data;
    EXPECT_TRUE(loadInto(colors, file(3)));
    EXPECT_EQ(colors.data, pixels);
    EXPECT_EQ(test::bytesOf(sharer), (Bytes{30, 20, 10, 3, 2, 1}));
}

TEST(CloudColors, MatrixOfAnotherShapeIsMadeAnew) {
    for (cv::Mat other : {cv::Mat(1, 3, CV_8UC3), cv::Mat(1, 2, CV_8UC4), cv::Mat(2, 2, CV_8UC3),
                          cv::Mat(1, 2, CV_8SC3)}) {
        other.setTo(99);
        cv::Mat colors = other;
        EXPECT_TRUE(loadInto(colors, file(3)));
        EXPECT_EQ(colors.size(), cv::Size(2, 1));
        EXPECT_EQ(test::bytesOf(colors), (Bytes{30, 20, 10, 3, 2, 1}));
        EXPECT_EQ(test::bytesOf(other), Bytes(other.total() * other.elemSize(), 99));
    }
}

TEST(CloudColors, MatrixStaysWhereColoursAreNotWanted) {
    cv::Mat colors = test::colorRow({9, 9}, 1);
    EXPECT_TRUE(loadInto(colors, file(3), false));
    EXPECT_EQ(test::bytesOf(colors), (Bytes{9, 9}));
}

TEST(CloudColors, MatrixStaysWhereTheFileHasNone) {
    cv::Mat colors = test::colorRow({9, 9}, 1);
    const Bytes bytes = test::joined(CloudHeader(2).bytes(), test::compressed(3, Bytes(48)));
    EXPECT_TRUE(loadInto(colors, bytes));
    EXPECT_EQ(test::bytesOf(colors), (Bytes{9, 9}));
}

TEST(CloudColors, MatrixStaysWhereTheFileIsRefused) {
    cv::Mat colors = test::colorRow({9, 9}, 1);
    EXPECT_FALSE(loadInto(colors, file(2)));
    EXPECT_EQ(test::bytesOf(colors), (Bytes{9, 9}));
}

TEST(CloudColors, ColoursBehindTheCutAreZero) {
    cv::Mat colors = test::colorRow(Bytes(6, 99), 3);
    const Bytes whole = file(3);
    EXPECT_TRUE(loadInto(colors, test::prefix(whole, whole.size() - 1)));
    EXPECT_EQ(test::bytesOf(colors), (Bytes{30, 20, 10, 0, 0, 0}));
}

TEST(CloudColors, MatrixStaysWhereTheBodyEndsBeforeItsChannelCountDoes) {
    const Bytes whole = file(3);
    const std::size_t body = whole.size() - test::compressed(3, Bytes(56)).size();
    for (std::size_t size = body; size < body + 4; ++size) {
        cv::Mat colors = test::colorRow({9, 9}, 1);
        EXPECT_TRUE(loadInto(colors, test::prefix(whole, size)));
        EXPECT_EQ(colors.size(), cv::Size(2, 1)) << size;
        EXPECT_EQ(test::bytesOf(colors), (Bytes{9, 9})) << size;
    }
}

TEST(CloudColors, MatrixIsBlackWhereTheBodyEndsBehindItsChannelCount) {
    const Bytes whole = file(3);
    const std::size_t body = whole.size() - test::compressed(3, Bytes(56)).size();
    cv::Mat colors = test::colorRow({9, 9}, 1);
    EXPECT_TRUE(loadInto(colors, test::prefix(whole, body + 4)));
    EXPECT_EQ(test::bytesOf(colors), Bytes(6, 0));
}
