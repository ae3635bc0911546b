#include "fileIO/WrittenColumns.h"

#include <gtest/gtest.h>

#include "support/CloudFile.h"

using zyr::WrittenColumns;

namespace {

/// A column of so many values that nobody reads.
zyr::WrittenColumn column(std::size_t width, std::size_t elements) {
    return {"c", 'F', width, nullptr, width, elements};
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

TEST(WrittenColumns, WordsBecomeOneUnsignedColumn) {
    const std::vector<std::uint32_t> words = {1, 2, 3};
    WrittenColumns columns;
    zyr::addWords(columns, "w", words);
    EXPECT_EQ(zyr::fieldLines(columns), "FIELDS w\nSIZE 4\nTYPE U\nCOUNT 1\n");
    EXPECT_EQ(zyr::bodySize(columns), 12U);
}

TEST(WrittenColumns, BodyHoldsTheColumnsInTheirOrder) {
    const ZyrVector3dArray vectors = test::vectors({1, 2, 3, 4, 5, 6});
    const std::vector<std::uint32_t> words = {7, 8};
    WrittenColumns columns;
    zyr::addWords(columns, "w", words);
    zyr::addVectors(columns, "x", "y", "z", vectors);
    const zyr::Buffer stream = zyr::compressBody(columns);
    EXPECT_EQ(test::plainDecode(test::Bytes(stream.data(), stream.data() + stream.size()), 56),
              test::joined(test::bytesOf<std::uint32_t>({7, 8}),
                           test::bytesOf<double>({1, 4, 2, 5, 3, 6})));
}
