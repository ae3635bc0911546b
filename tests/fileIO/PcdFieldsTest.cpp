#include "fileIO/PcdHeader.h"

#include <gtest/gtest.h>

#include "support/PcdText.h"
#include "support/StopText.h"

using test::readHeader;
using test::readLines;

namespace {

const std::string kSizeStop =
    test::stopText("fileIO.cpp", 219, "void pcdReadSize(PcdLine&, PcdHeader&)",
                   "line.numWords == header.numFields + 1");

/// A header's text with so many fields, x first.
std::string manyFields(int count) {
    std::string line = "FIELDS x y z";
    for (int i = 3; i < count; ++i) line += " f" + std::to_string(i);
    return line + "\n";
}

}  // namespace

TEST(PcdFields, FieldsLineNamesTheEntries) {
    const zyr::PcdHeader h = readLines("FIELDS x y z intensi\n").header;
    EXPECT_EQ(h.numFields, 4);
    EXPECT_STREQ(h.fields[0].name, "x");
    EXPECT_STREQ(h.fields[3].name, "intensi");
}

TEST(PcdFields, LongNamesAreCutToSevenCharacters) {
    const auto [isRead, h] = readLines("FIELDS x y z intensity " + std::string(32, 'n') + "\n");
    EXPECT_TRUE(isRead);
    EXPECT_STREQ(h.fields[3].name, "intensi");
    EXPECT_STREQ(h.fields[4].name, "nnnnnnn");
}

TEST(PcdFields, KnownNamesGiveTheirIndex) {
    const zyr::PcdHeader h =
        readLines("FIELDS nx ny nz x y z rgb fa fb fc fnx fny fnz frgb\n").header;
    EXPECT_EQ(std::vector<int>({h.x, h.nx, h.rgb, h.fa, h.fnx, h.frgb}),
              std::vector<int>({3, 0, 6, 7, 10, 13}));
    EXPECT_TRUE(h.hasFields);
}

TEST(PcdFields, NamesAreComparedExactly) {
    const zyr::PcdHeader h = readLines("FIELDS X xx x1 NX rgba RGB fax frgbfrgb\n").header;
    for (int index : {h.x, h.nx, h.rgb, h.fa, h.fnx, h.frgb}) EXPECT_EQ(index, -1);
    EXPECT_FALSE(h.hasFields);
}

TEST(PcdFields, LaterEqualNameOverwritesTheIndex) {
    const zyr::PcdHeader h = readLines("FIELDS x nx rgb fa fnx frgb x nx rgb fa fnx frgb\n").header;
    EXPECT_EQ(std::vector<int>({h.x, h.nx, h.rgb, h.fa, h.fnx, h.frgb}),
              std::vector<int>({6, 7, 8, 9, 10, 11}));
}

TEST(PcdFields, EmptyWordsCountAsFields) {
    const zyr::PcdHeader h = readLines("FIELDS  x y z\n").header;
    EXPECT_EQ(h.numFields, 4);
    EXPECT_EQ(h.x, 1);
}

TEST(PcdFields, KeywordMustBeTheWholeFirstWord) {
    for (const char* lines : {"fields x y z\n", "FIELDS: x y z\n", " FIELDS x y z\n", "FIELD x\n"})
        EXPECT_EQ(readLines(lines).header.numFields, 0) << lines;
}

TEST(PcdFields, UnknownKeywordsAreIgnored) {
    EXPECT_TRUE(readLines("VERSION -1\nwhatever 1 2 3\n\n   \nUNITS mm\n").isRead);
}

TEST(PcdFields, LaterFieldsLineReplacesNamesAndNumberAndKeepsIndices) {
    const auto [isRead, h] = readLines("FIELDS x y z rgb\nFIELDS a b c nx ny nz\n");
    EXPECT_TRUE(isRead);
    EXPECT_EQ(std::vector<int>({h.numFields, h.x, h.rgb, h.nx}), std::vector<int>({6, 0, 3, 3}));
    EXPECT_STREQ(h.fields[0].name, "a");
    EXPECT_TRUE(h.hasFields);
}

TEST(PcdFields, LaterFieldsLineTooShortForTheIndicesIsRefused) {
    EXPECT_FALSE(readLines("FIELDS a b x y z\nFIELDS a b c\n").isRead);
    EXPECT_FALSE(readLines("FIELDS x y z\nFIELDS\n").isRead);
    EXPECT_FALSE(readLines("FIELDS x y z rgb\nFIELDS x y z\n").isRead);
    EXPECT_FALSE(readLines("FIELDS x y z frgb\nFIELDS x y z\n").isRead);
}

TEST(PcdFields, FourteenFieldsAreRead) {
    const auto [isRead, h] = readLines(manyFields(14));
    EXPECT_TRUE(isRead);
    EXPECT_EQ(h.numFields, 14);
    EXPECT_STREQ(h.fields[13].name, "f13");
}

TEST(PcdFields, MoreFieldsAreRefused) {
    EXPECT_FALSE(readLines(manyFields(15)).isRead);
    EXPECT_FALSE(readLines(manyFields(60)).isRead);
}

TEST(PcdFields, MoreFieldsAreRefusedWithTheirSizesTypesAndCounts) {
    std::string sizes = "SIZE", types = "TYPE", counts = "COUNT";
    for (int i = 0; i < 60; ++i) {
        sizes += " 8";
        types += " F";
        counts += " 1";
    }
    EXPECT_FALSE(readLines(manyFields(60) + sizes + "\n" + types + "\n" + counts + "\n").isRead);
}

TEST(PcdFields, GroupThatLacksColumnsIsRefused) {
    for (const char* fields : {"x", "x y", "y z x", "x y z nx", "x y z nx ny", "x y z fa fb",
                               "x y z fa", "x y z fnx fny"})
        EXPECT_FALSE(readLines(std::string("FIELDS ") + fields + "\n").isRead) << fields;
}

TEST(PcdFields, GroupsThatEndTheLineAreRead) {
    for (const char* fields : {"x y z", "x y z rgb", "x y z nx ny nz", "x y z fa fb fc",
                               "x y z fnx fny fnz", "x y z frgb", "a x b c"})
        EXPECT_TRUE(readLines(std::string("FIELDS ") + fields + "\n").isRead) << fields;
}

TEST(PcdFields, SizesAreTaken) {
    const zyr::PcdHeader h = readLines("FIELDS x y z\nSIZE 8 4 16\n").header;
    EXPECT_TRUE(h.hasSize);
    EXPECT_EQ(std::vector<int>({h.fields[0].size, h.fields[1].size, h.fields[2].size}),
              std::vector<int>({8, 4, 16}));
}

TEST(PcdFields, SizeLineOfAnotherNumberOfWordsStops) {
    EXPECT_DEATH(readLines("FIELDS x y z\nSIZE 8 8\n"), kSizeStop);
    EXPECT_DEATH(readLines("FIELDS x y z\nSIZE 8 8 8 8\n"), kSizeStop);
    EXPECT_DEATH(readLines("FIELDS x y z\nSIZE 8 8 8 \n"), kSizeStop);
}

TEST(PcdFields, SizeLineBeforeTheFieldsStops) {
    EXPECT_DEATH(readLines("SIZE 8 8 8\nFIELDS x y z\n"), kSizeStop);
}

TEST(PcdFields, SizeLineWithoutValuesIsTakenBeforeTheFields) {
    EXPECT_TRUE(readLines("SIZE\nFIELDS x y z\n").header.hasSize);
}

TEST(PcdFields, SizeLineMustFitMoreFieldsThanAreRead) {
    EXPECT_DEATH(readLines(manyFields(20) + "SIZE 8\n"), kSizeStop);
}

TEST(PcdFields, SizeLineThatTheFileEndsInDoesNotStop) {
    EXPECT_FALSE(readHeader("FIELDS x y z\nSIZE 8 8").isRead);
}

TEST(PcdFields, TypesAreTheFirstLetters) {
    const zyr::PcdHeader h = readLines("FIELDS x y z\nTYPE Float U I\n").header;
    EXPECT_TRUE(h.hasType);
    EXPECT_EQ(std::string({h.fields[0].type, h.fields[1].type, h.fields[2].type}), "FUI");
}

TEST(PcdFields, TypeAndCountLinesMayHaveAnyNumberOfWords) {
    const auto [isRead, h] =
        readLines("FIELDS x y z\nTYPE F F\nCOUNT 1 2\nTYPE F F F F\nCOUNT 3\n");
    EXPECT_TRUE(isRead);
    EXPECT_TRUE(h.hasType && h.hasCount);
    EXPECT_EQ(std::vector<int>({h.fields[0].count, h.fields[1].count, h.fields[2].count}),
              std::vector<int>({3, 0, 0}));
    EXPECT_EQ(h.fields[2].type, 'F');
}

TEST(PcdFields, MissingTypeWordIsNoLetter) {
    EXPECT_EQ(readLines("FIELDS x y z\nTYPE F F\n").header.fields[2].type, '\0');
}

TEST(PcdFields, FieldsLineAloneFillsOnlyTheNames) {
    test::TextFile file("SIZE 1 2 3\n");
    zyr::PcdLine line;
    zyr::PcdHeader header{};
    zyr::pcdReadLine(file.get(), line);
    zyr::pcdReadFields(line, header);
    EXPECT_EQ(header.numFields, 0);
    EXPECT_FALSE(header.hasFields);
}

TEST(PcdFields, TypeAndCountLinesBeforeTheFieldsAreMarkedAndFillNothing) {
    const auto [isRead, h] = readLines("TYPE F F F\nCOUNT 1 1 1\nFIELDS x y z\n");
    EXPECT_TRUE(isRead && h.hasType && h.hasCount);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(h.fields[i].type, '\0');
        EXPECT_EQ(h.fields[i].count, 0);
    }
}
