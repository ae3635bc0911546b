#include "Zyr3DInner.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

const char* const kNoPath = nullptr;
const wchar_t* const kNoWidePath = nullptr;

template <class Char>
std::string nullPathError(const Char* path) {
    try {
        Zyr3DInner::getSuffix(path);
    } catch (const std::logic_error& error) {
        return error.what();
    }
    return "no error";
}

}  // namespace

TEST(Zyr3DInnerSuffix, IsWhatFollowsTheLastDot) {
    EXPECT_EQ(Zyr3DInner::getSuffix("cloud.zpt"), "zpt");
    EXPECT_EQ(Zyr3DInner::getSuffix("cloud.tar.zpt"), "zpt");
    EXPECT_EQ(Zyr3DInner::getSuffix("/a/b.c/cloud.ztmt"), "ztmt");
    EXPECT_EQ(Zyr3DInner::getSuffix(L"cloud.tar.zpt"), L"zpt");
}

TEST(Zyr3DInnerSuffix, IsEmptyWithoutADot) {
    EXPECT_EQ(Zyr3DInner::getSuffix("cloud"), "");
    EXPECT_EQ(Zyr3DInner::getSuffix(""), "");
    EXPECT_EQ(Zyr3DInner::getSuffix(L"cloud"), L"");
    EXPECT_EQ(Zyr3DInner::getSuffix(L""), L"");
}

TEST(Zyr3DInnerSuffix, IsEmptyBehindADotAtTheEnd) {
    EXPECT_EQ(Zyr3DInner::getSuffix("cloud."), "");
    EXPECT_EQ(Zyr3DInner::getSuffix("cloud.zpt."), "");
    EXPECT_EQ(Zyr3DInner::getSuffix("."), "");
    EXPECT_EQ(Zyr3DInner::getSuffix(L"cloud."), L"");
}

TEST(Zyr3DInnerSuffix, KeepsTheCase) {
    EXPECT_EQ(Zyr3DInner::getSuffix("a.ZPT"), "ZPT");
    EXPECT_EQ(Zyr3DInner::getSuffix("a.ZpT"), "ZpT");
    EXPECT_EQ(Zyr3DInner::getSuffix(L"a.ZpT"), L"ZpT");
}

TEST(Zyr3DInnerSuffix, CountsTheDotOfAFolderWhenNoneFollows) {
    EXPECT_EQ(Zyr3DInner::getSuffix("dir.v2/file"), "v2/file");
    EXPECT_EQ(Zyr3DInner::getSuffix("../cloud"), "/cloud");
    EXPECT_EQ(Zyr3DInner::getSuffix(L"dir.v2/file"), L"v2/file");
}

TEST(Zyr3DInnerSuffix, OfAHiddenFileIsItsName) {
    EXPECT_EQ(Zyr3DInner::getSuffix(".zpt"), "zpt");
}

TEST(Zyr3DInnerSuffix, KeepsCharactersBeyondAscii) {
    EXPECT_EQ(Zyr3DInner::getSuffix("w\xc3\xbcrfel.\xff\xc3\xa4"), "\xff\xc3\xa4");
    EXPECT_EQ(Zyr3DInner::getSuffix(L"w\u00fcrfel.\u20ac"), L"\u20ac");
}

TEST(Zyr3DInnerSuffix, OfANullPathIsALogicErrorWithTheTextThatCallersKnow) {
    EXPECT_EQ(nullPathError(kNoPath), "basic_string::_M_construct null not valid");
    EXPECT_EQ(nullPathError(kNoWidePath), "basic_string::_M_construct null not valid");
}

TEST(Zyr3DInner, CanBeMadeAndCalledAsAnObject) {
    Zyr3DInner inner;
    EXPECT_EQ(inner.getSuffix("a.zpt"), "zpt");
    EXPECT_EQ(inner.getSuffix(L"a.zpt"), L"zpt");
}
