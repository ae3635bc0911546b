#include "fileIO/PcdHeader.h"

#include <gtest/gtest.h>

#include "support/PcdText.h"

using test::readHeader;
using test::readLines;

TEST(PcdHeader, StartsWithZerosAndUnknownIndices) {
    const zyr::PcdHeader h = readLines("").header;
    EXPECT_FALSE(h.hasFields || h.hasSize || h.hasType || h.hasCount || h.hasWidth);
    EXPECT_FALSE(h.hasHeight || h.hasViewpoint || h.hasPoints || h.hasFaces);
    EXPECT_EQ(h.numFields + h.width + h.height + h.points + h.faces, 0);
    for (int index : {h.x, h.nx, h.rgb, h.fa, h.fnx, h.frgb}) EXPECT_EQ(index, -1);
}

TEST(PcdHeader, ReadingForgetsWhatTheHeaderHeld) {
    test::TextFile file("DATA ascii\n");
    zyr::PcdHeader header{};
    header.hasFields = header.hasBadNumber = header.compressed = true;
    header.x = 7;
    header.numFields = 99;
    EXPECT_TRUE(zyr::pcdReadHeader(file.get(), header));
    EXPECT_FALSE(header.hasFields || header.compressed);
    EXPECT_EQ(header.x, -1);
}

TEST(PcdHeader, WholeHeaderOfACloud) {
    const auto [isRead, h] = readHeader(
        "# comment\nVERSION 0.1\nFIELDS x y z rgb\nSIZE 8 8 8 4\nTYPE F F F U\nCOUNT 1 1 1 1\n"
        "WIDTH 20\nHEIGHT 3\nVIEWPOINT 0 0 0 1 0 0 0\nPOINTS 60\nDATA binary_compressed\n");
    EXPECT_TRUE(isRead);
    EXPECT_TRUE(h.hasFields && h.hasSize && h.hasType && h.hasCount && h.hasWidth && h.hasHeight);
    EXPECT_TRUE(h.hasViewpoint && h.hasPoints && !h.hasFaces && h.hasData);
    EXPECT_EQ(std::vector<int>({h.numFields, h.x, h.rgb, h.width, h.height, h.points}),
              std::vector<int>({4, 0, 3, 20, 3, 60}));
    EXPECT_TRUE(h.binary && h.compressed);
}

TEST(PcdHeader, NumbersOfTheFile) {
    const zyr::PcdHeader h = readLines("WIDTH 11\nHEIGHT 12\nPOINTS 13\nFACES 14\n").header;
    EXPECT_EQ(std::vector<int>({h.width, h.height, h.points, h.faces}),
              std::vector<int>({11, 12, 13, 14}));
    EXPECT_TRUE(h.hasWidth && h.hasHeight && h.hasPoints && h.hasFaces);
}

TEST(PcdHeader, LaterNumberReplacesTheEarlier) {
    EXPECT_EQ(readLines("POINTS 13\nPOINTS 5\n").header.points, 5);
}

TEST(PcdHeader, NumbersAreReadAsStrtolDoes) {
    const std::pair<const char*, int> numbers[] = {
        {"007", 7}, {"+5", 5},  {"12abc", 12}, {"0x10", 0}, {"3.9", 3}, {"\t8", 8},
        {"", 0},    {"abc", 0}, {"-0", 0},     {"1e3", 1},  {"--1", 0}, {"2147483647", 2147483647}};
    for (const auto& [word, value] : numbers) {
        const auto [isRead, h] = readLines(std::string("POINTS ") + word + "\n");
        EXPECT_TRUE(isRead && h.hasPoints) << word;
        EXPECT_EQ(h.points, value) << word;
    }
}

TEST(PcdHeader, MissingNumberIsZero) {
    const auto [isRead, h] = readLines("WIDTH\nHEIGHT\nPOINTS\n");
    EXPECT_TRUE(isRead && h.hasWidth && h.hasHeight && h.hasPoints);
    EXPECT_EQ(h.width + h.height + h.points, 0);
}

TEST(PcdHeader, NegativeNumberIsRefused) {
    for (const char* line :
         {"WIDTH -1", "HEIGHT -1", "POINTS -1", "FACES -1", "POINTS -99999999999999999999",
          "FIELDS x y z\nSIZE 8 -8 8", "FIELDS x y z\nCOUNT 1 1 -1"})
        EXPECT_FALSE(readLines(std::string(line) + "\n").isRead) << line;
}

TEST(PcdHeader, NegativeNumberIsNotMadeGoodByALaterLine) {
    EXPECT_FALSE(readLines("POINTS -1\nPOINTS 2\n").isRead);
}

TEST(PcdHeader, NumberBeyond32BitsIsRefused) {
    for (const char* line : {"WIDTH 2147483648", "HEIGHT 4294967297", "POINTS 2147483648",
                             "FACES 9999999999999999999999", "FIELDS x y z\nSIZE 8 8 4294967304",
                             "FIELDS x y z\nCOUNT 2147483648 1 1"})
        EXPECT_FALSE(readLines(std::string(line) + "\n").isRead) << line;
}

TEST(PcdHeader, ViewpointIsOnlyMarked) {
    EXPECT_TRUE(readLines("VIEWPOINT\n").header.hasViewpoint);
    EXPECT_TRUE(readLines("VIEWPOINT -1 x y\n").isRead);
}

TEST(PcdHeader, DataLineTellsTheKindOfBody) {
    const auto kind = [](const char* word) {
        const auto [isRead, h] = readHeader(std::string("DATA ") + word + "\n");
        return std::vector<bool>{isRead, h.binary, h.compressed};
    };
    EXPECT_EQ(kind("ascii"), (std::vector<bool>{true, false, false}));
    EXPECT_EQ(kind("binary"), (std::vector<bool>{true, true, false}));
    EXPECT_EQ(kind("binary_compressed"), (std::vector<bool>{true, true, true}));
}

TEST(PcdHeader, DataLineOfAnotherKindIsPassed) {
    const auto [isRead, h] =
        readHeader("DATA zip\nDATA\nDATA ASCII\nDATA  ascii\nPOINTS 3\nDATA binary\n");
    EXPECT_TRUE(isRead && h.binary);
    EXPECT_EQ(h.points, 3);
}

TEST(PcdHeader, FurtherWordsOfTheDataLineAreIgnored) {
    EXPECT_TRUE(readHeader("DATA binary whatever\n").header.binary);
}

TEST(PcdHeader, BodyStartsRightBehindTheDataLine) {
    test::TextFile file("POINTS 1\nDATA binary\n\n\nbody");
    zyr::PcdHeader header;
    EXPECT_TRUE(zyr::pcdReadHeader(file.get(), header));
    EXPECT_EQ(file.rest(), "\n\nbody");
}

TEST(PcdHeader, ZeroByteMayEndTheDataLine) {
    test::TextFile file(std::string("DATA binary\0body", 16));
    zyr::PcdHeader header;
    EXPECT_TRUE(zyr::pcdReadHeader(file.get(), header));
    EXPECT_EQ(file.rest(), "body");
}

TEST(PcdHeader, FileThatEndsBeforeItsDataLineIsRefused) {
    for (const char* text : {"", "\n", "FIELDS x y z\n", "FIELDS x y z\nDATA", "DATA zip\n"})
        EXPECT_FALSE(readHeader(text).isRead) << text;
}

TEST(PcdHeader, DataLineThatTheFileEndsInIsNotRun) {
    EXPECT_FALSE(readHeader("DATA ascii").isRead);
    EXPECT_FALSE(readHeader("DATA ascii ").isRead);
    EXPECT_FALSE(readHeader("DATA ascii and").isRead);
}

TEST(PcdHeader, MayTakeAMebibyte) {
    const std::string data = "\nDATA ascii\n";
    const std::string comment = "#" + std::string((1 << 20) - 1 - data.size(), 'c');
    EXPECT_TRUE(readHeader(comment + data).isRead);
    EXPECT_FALSE(readHeader(comment + "c" + data).isRead);
}

TEST(PcdHeader, OfADeviceThatNeverEndsIsRefused) {
    const zyr::File zeros = zyr::openFile("/dev/zero", "rb");
    if (zeros == nullptr) GTEST_SKIP() << "no /dev/zero";
    zyr::PcdHeader header;
    EXPECT_FALSE(zyr::pcdReadHeader(zeros.get(), header));
}

TEST(PcdHeader, EndlessLineIsRefused) {
    EXPECT_FALSE(readHeader("#" + std::string(3 << 20, 'c')).isRead);
    EXPECT_FALSE(readHeader(std::string(3 << 20, '\r')).isRead);
}
