#include "ZyrColor.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cstddef>
#include <type_traits>

#include "support/ZyrValues.h"

using test::values;
using Values = std::vector<int>;

namespace {

unsigned int packed(int r, int g, int b, int a) {
    unsigned int word = 0x12345678;
    RGBA2argb(r, g, b, a, &word);
    return word;
}

Values unpacked(unsigned int word) {
    int r = -1, g = -1, b = -1, a = -1;
    argb2RGBA(word, &r, &g, &b, &a);
    return {r, g, b, a};
}

}  // namespace

static_assert(std::is_trivially_copyable_v<ZyrColor>);
static_assert(sizeof(ZyrColor) == 16);
static_assert(offsetof(ZyrColor, r) == 0);
static_assert(offsetof(ZyrColor, g) == 4);
static_assert(offsetof(ZyrColor, b) == 8);
static_assert(offsetof(ZyrColor, a) == 12);

TEST(ZyrColor, DefaultIsOpaqueBlack) {
    EXPECT_EQ(values(ZyrColor()), (Values{0, 0, 0, 255}));
}

TEST(ZyrColor, KeepsTheGivenChannelsUnclamped) {
    EXPECT_EQ(values(ZyrColor(1, 2, 3, 4)), (Values{1, 2, 3, 4}));
    EXPECT_EQ(values(ZyrColor(-1, 256, 100000, -300)), (Values{-1, 256, 100000, -300}));
}

TEST(ZyrColor, CopiesAllFourChannels) {
    ZyrColor color(1, 2, 3, 4);
    const ZyrColor copy(color);
    ZyrColor assigned;
    assigned = color;
    color.a = 9;
    EXPECT_EQ(values(copy), (Values{1, 2, 3, 4}));
    EXPECT_EQ(values(assigned), (Values{1, 2, 3, 4}));
}

TEST(RGBA2argb, PutsAlphaFirstAndBlueLast) {
    EXPECT_EQ(packed(255, 128, 1, 255), 0xFFFF8001u);
    EXPECT_EQ(packed(0x11, 0x22, 0x33, 0x44), 0x44112233u);
    EXPECT_EQ(packed(0, 0, 0, 0), 0u);
}

TEST(RGBA2argb, KeepsTheLow8BitsOfEachChannel) {
    EXPECT_EQ(packed(300, 0, 0, 0), 0x002C0000u);
    EXPECT_EQ(packed(0, 256 + 7, 0, 0), 0x00000700u);
    EXPECT_EQ(packed(0, 0, -1, 0), 0x000000FFu);
    EXPECT_EQ(packed(0, 0, 0, 256 + 128), 0x80000000u);
    EXPECT_EQ(packed(0, 0, 0, -1), 0xFF000000u);
}

TEST(argb2RGBA, GivesChannelsOfZeroTo255) {
    EXPECT_EQ(unpacked(0x80FF0001), (Values{255, 0, 1, 128}));
    EXPECT_EQ(unpacked(0xFFFFFFFF), (Values{255, 255, 255, 255}));
    EXPECT_EQ(unpacked(0), (Values{0, 0, 0, 0}));
}

RC_GTEST_PROP(argb2RGBA, UndoesRGBA2argb, (unsigned int word)) {
    const Values channels = unpacked(word);
    RC_ASSERT(packed(channels[0], channels[1], channels[2], channels[3]) == word);
}
