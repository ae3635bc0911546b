#include <gtest/gtest.h>

#include "fileIO/PcdHeader.h"
#include "support/PcdText.h"
#include "support/StopText.h"

using test::words;
using Words = std::vector<std::string>;

namespace {

const std::string kWordStop = test::stopText("fileIO.cpp", 181, "void pcdReadLine(FILE*, PcdLine&)",
                                             "wordLength <= line.maxWordSize");
const std::string kLineStop = test::stopText("fileIO.cpp", 182, "void pcdReadLine(FILE*, PcdLine&)",
                                             "line.numWords <= line.maxNumWords");

/// So many one-letter words with single spaces between them.
std::string wordLine(int count) {
    std::string line = "w";
    for (int i = 1; i < count; ++i) line += " w";
    return line;
}

}  // namespace

TEST(PcdLine, LimitsAreThoseOfTheStops) {
    EXPECT_EQ(int{zyr::PcdLine::maxWordSize}, 32);
    EXPECT_EQ(int{zyr::PcdLine::maxNumWords}, 60);
}

TEST(PcdLine, SplitsAtSpaces) {
    EXPECT_EQ(words("FIELDS x y z\n"), (Words{"FIELDS", "x", "y", "z"}));
}

TEST(PcdLine, NextLineStartsAfresh) {
    test::TextFile file("SIZE 8 8\nDATA\n");
    EXPECT_EQ(words(file), (Words{"SIZE", "8", "8"}));
    EXPECT_EQ(words(file), (Words{"DATA"}));
}

TEST(PcdLine, EmptyLineIsOneEmptyWord) {
    EXPECT_EQ(words("\n"), (Words{""}));
}

TEST(PcdLine, ConsecutiveSpacesMakeEmptyWords) {
    EXPECT_EQ(words("a  b   c\n"), (Words{"a", "", "b", "", "", "c"}));
}

TEST(PcdLine, LeadingAndTrailingSpacesMakeEmptyWords) {
    EXPECT_EQ(words(" a \n"), (Words{"", "a", ""}));
    EXPECT_EQ(words(" \n"), (Words{"", ""}));
}

TEST(PcdLine, TabsAreCharactersOfWords) {
    EXPECT_EQ(words("a\tb c\n"), (Words{"a\tb", "c"}));
}

TEST(PcdLine, EveryOtherByteIsACharacterOfAWord) {
    EXPECT_EQ(words("\x01\x7f\xff\x80 \v\f\n"), (Words{"\x01\x7f\xff\x80", "\v\f"}));
}

TEST(PcdLine, ZeroByteEndsALine) {
    test::TextFile file(std::string("a b\0c\n", 6));
    EXPECT_EQ(words(file), (Words{"a", "b"}));
    EXPECT_EQ(words(file), (Words{"c"}));
}

TEST(PcdLine, CarriageReturnsAreIgnoredAnywhere) {
    EXPECT_EQ(words("\rDA\rTA ascii\r\r\n"), (Words{"DATA", "ascii"}));
    EXPECT_EQ(words("a \r b\n"), (Words{"a", "", "b"}));
}

TEST(PcdLine, CarriageReturnDoesNotEndALine) {
    EXPECT_EQ(words("a\rb\n"), (Words{"ab"}));
}

TEST(PcdLine, CommentIsAnEmptyLine) {
    EXPECT_EQ(words("# a b c\n"), (Words{""}));
    EXPECT_EQ(words("#FIELDS x y z\n"), (Words{""}));
}

TEST(PcdLine, CommentEndsAtALineFeedOrAZeroByte) {
    test::TextFile file(std::string("#a\0b\n#c\nd\n", 10));
    EXPECT_EQ(words(file), (Words{""}));
    EXPECT_EQ(words(file), (Words{"b"}));
    EXPECT_EQ(words(file), (Words{""}));
    EXPECT_EQ(words(file), (Words{"d"}));
}

TEST(PcdLine, CommentMayHaveAnyLengthAndAnyNumberOfWords) {
    EXPECT_EQ(words("#" + std::string(5000, 'x') + "\n"), (Words{""}));
    EXPECT_EQ(words("#" + wordLine(500) + "\n"), (Words{""}));
}

TEST(PcdLine, HashBehindTheStartIsACharacter) {
    EXPECT_EQ(words("a# #b\n"), (Words{"a#", "#b"}));
}

TEST(PcdLine, HashBehindALeadingSpaceIsNoComment) {
    EXPECT_EQ(words(" # a\n"), (Words{"", "#", "a"}));
}

TEST(PcdLine, CarriageReturnBeforeAHashDoesNotCount) {
    EXPECT_EQ(words("\r# a\n"), (Words{""}));
}

TEST(PcdLine, EndOfFileLeavesTheWordUnderWayUncounted) {
    EXPECT_EQ(words("a b"), (Words{"a"}));
    EXPECT_EQ(words("a b "), (Words{"a", "b"}));
    EXPECT_EQ(words("abc"), Words{});
}

TEST(PcdLine, EndOfFileAtTheStartIsALineWithoutWords) {
    test::TextFile file("a\n");
    EXPECT_EQ(words(file), (Words{"a"}));
    EXPECT_EQ(words(file), Words{});
}

TEST(PcdLine, LineAtTheEndOfFileHasAnEmptyFirstWord) {
    test::TextFile file("DATA ascii\n");
    zyr::PcdLine line;
    zyr::pcdReadLine(file.get(), line);
    zyr::pcdReadLine(file.get(), line);
    EXPECT_EQ(line.numWords, 0);
    EXPECT_STREQ(line.words[0], "");
}

TEST(PcdLine, WordOutsideTheLineIsEmpty) {
    test::TextFile file("a b c\nd\n");
    zyr::PcdLine line;
    zyr::pcdReadLine(file.get(), line);
    zyr::pcdReadLine(file.get(), line);
    EXPECT_STREQ(line.word(0), "d");
    EXPECT_STREQ(line.word(1), "");
    EXPECT_STREQ(line.word(60), "");
}

TEST(PcdLine, WordOf32CharactersIsKept) {
    const std::string word(32, 'w');
    EXPECT_EQ(words(word + " " + word + "\n"), (Words{word, word}));
}

TEST(PcdLine, WordOf33CharactersStops) {
    EXPECT_DEATH(words(std::string(33, 'w') + "\n"), kWordStop);
    EXPECT_DEATH(words("a " + std::string(33, 'w') + " b\n"), kWordStop);
}

TEST(PcdLine, WordOf33CharactersStopsBeforeItsLineEnds) {
    EXPECT_DEATH(words(std::string(33, 'w')), kWordStop);
}

TEST(PcdLine, CarriageReturnsDoNotLengthenAWord) {
    const std::string word(16, 'w');
    EXPECT_EQ(words(word + "\r\r" + word + "\n"), (Words{word + word}));
}

TEST(PcdLine, SixtyOneWordsAreKept) {
    EXPECT_EQ(words(wordLine(60) + "\n"), Words(60, "w"));
    EXPECT_EQ(words(wordLine(61) + "\n"), Words(61, "w"));
}

TEST(PcdLine, SixtyOneWordsOf32CharactersAreKept) {
    std::string line = std::string(32, 'w');
    for (int i = 1; i < 61; ++i) line += " " + std::string(32, 'w');
    EXPECT_EQ(words(line + "\n"), Words(61, std::string(32, 'w')));
}

TEST(PcdLine, SixtyTwoWordsStop) {
    EXPECT_DEATH(words(wordLine(62) + "\n"), kLineStop);
    EXPECT_DEATH(words(wordLine(61) + " \n"), kLineStop);
}

TEST(PcdLine, EmptyWordsCountAgainstTheLimit) {
    EXPECT_EQ(words(std::string(60, ' ') + "\n"), Words(61, ""));
    EXPECT_DEATH(words(std::string(61, ' ') + "\n"), kLineStop);
}
