#include "fileIO/WrittenColumns.h"

#include <gtest/gtest.h>

#include "Zyr3DIntArray.h"
#include "support/CloudFile.h"

using zyr::WrittenColumns;

namespace {

/// A column of so many values that nobody reads.
zyr::WrittenColumn column(std::size_t width, std::size_t elements) {
    return {"c", 'F', width, nullptr, width, elements};
}

/// What the blocks hold, one after the other.
test::Bytes allBlocks(const WrittenColumns& columns, std::size_t room) {
    zyr::BlockSource source = zyr::blocksOf(columns);
    test::Bytes all, block(room);
    for (zyr::BlockValues values = source(block.data(), room); values.size > 0;
         values = source(block.data(), room))
        all.insert(all.end(), block.begin(),
                   block.begin() + static_cast<std::ptrdiff_t>(values.size));
    return all;
}

}  // namespace

TEST(WrittenColumns, BodySizeIsTheSumOfTheColumns) {
    EXPECT_EQ(zyr::bodySize({}), 0U);
    EXPECT_EQ(zyr::bodySize({column(8, 10), column(8, 10), column(4, 3)}), 172U);
}

TEST(WrittenColumns, BodySizeGoesBeyond32Bits) {
    EXPECT_EQ(zyr::bodySize({column(8, 3000000000), column(8, 3000000000)}), 48000000000U);
}

TEST(WrittenColumns, SizeWordsStateUpToTheLastByteBelow4GiB) {
    EXPECT_TRUE(zyr::fitsSizeWords({column(8, 536870911), column(4, 1)}));
    EXPECT_FALSE(zyr::fitsSizeWords({column(8, 536870911), column(4, 2)}));
    EXPECT_FALSE(zyr::fitsSizeWords({column(8, 536870912)}));
}

TEST(WrittenColumns, SizeWordsDoNotStateWhatWrapsAround) {
    EXPECT_FALSE(zyr::fitsSizeWords({column(8, (std::size_t(1) << 29) + 1)}));
}

TEST(WrittenColumns, VectorsBecomeThreeColumns) {
    const ZyrVector3dArray vectors = test::vectors({1, 2, 3, 4, 5, 6});
    WrittenColumns columns;
    zyr::addVectors(columns, "a", "b", "c", vectors);
    ASSERT_EQ(columns.size(), 3U);
    EXPECT_EQ(zyr::fieldLines(columns), "FIELDS a b c\nSIZE 8 8 8\nTYPE F F F\nCOUNT 1 1 1\n");
    EXPECT_EQ(zyr::bodySize(columns), 48U);
}

TEST(WrittenColumns, ColoursBecomeOneUnsignedColumn) {
    WrittenColumns columns;
    zyr::addColors(columns, "w", cv::Mat(1, 3, CV_8UC3));
    EXPECT_EQ(zyr::fieldLines(columns), "FIELDS w\nSIZE 4\nTYPE U\nCOUNT 1\n");
    EXPECT_EQ(zyr::bodySize(columns), 12U);
}

TEST(WrittenColumns, BlocksHoldTheColumnsInTheirOrder) {
    const ZyrVector3dArray vectors = test::vectors({1, 2, 3, 4, 5, 6});
    const cv::Mat colors =
        (cv::Mat_<cv::Vec4b>(1, 2) << cv::Vec4b(1, 2, 3, 4), cv::Vec4b(5, 6, 7, 8));
    WrittenColumns columns;
    zyr::addColors(columns, "w", colors);
    zyr::addVectors(columns, "x", "y", "z", vectors);
    EXPECT_EQ(allBlocks(columns, 1000),
              test::joined(test::bytesOf<std::uint32_t>({0x04030201, 0x08070605}),
                           test::bytesOf<double>({1, 4, 2, 5, 3, 6})));
}

TEST(WrittenColumns, BlocksOfAnySizeHoldTheSameBytes) {
    std::vector<double> flat(3 * 1001);
    for (std::size_t i = 0; i < flat.size(); ++i) flat[i] = static_cast<double>(i);
    const ZyrVector3dArray vectors = test::vectors(flat);
    WrittenColumns columns;
    zyr::addVectors(columns, "x", "y", "z", vectors);
    test::Bytes expected;
    for (std::size_t k = 0; k < 3; ++k)
        for (std::size_t i = 0; i < 1001; ++i)
            expected = test::joined(std::move(expected), test::bytesOf<double>({flat[3 * i + k]}));
    for (const std::size_t room : {8U, 24U, 64U, 1000U, 8008U, 8016U, 100000U})
        EXPECT_EQ(allBlocks(columns, room), expected) << room;
}

TEST(WrittenColumns, ABlockHasValuesOfOneWidth) {
    const ZyrVector3dArray vectors = test::vectors({1, 2, 3});
    int indices[] = {1, 2, 3};
    const Zyr3DIntArray triangles(indices, 3);
    WrittenColumns columns;
    zyr::addVectors(columns, "x", "y", "z", vectors);
    zyr::addTriangles(columns, triangles);
    zyr::BlockSource source = zyr::blocksOf(columns);
    unsigned char bytes[1000];
    const zyr::BlockValues doubles = source(bytes, sizeof bytes);
    EXPECT_EQ(doubles.width, 8U);
    EXPECT_EQ(doubles.size, 24U);
    const zyr::BlockValues corners = source(bytes, sizeof bytes);
    EXPECT_EQ(corners.width, 4U);
    EXPECT_EQ(corners.size, 12U);
    EXPECT_EQ(source(bytes, sizeof bytes).size, 0U);
}
