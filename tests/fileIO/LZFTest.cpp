#include "LZF.h"

#include <gtest/gtest.h>

#include <vector>

TEST(LZF, ThousandZerosComeBack) {
    std::vector<unsigned char> zeros(1000), packed(1000), back(1000, 1);
    const int size = LZF::compress(zeros.data(), 1000, packed.data(), 1000);
    EXPECT_GT(size, 0);
    EXPECT_EQ(LZF::decompress(packed.data(), size, back.data(), 1000), 1000);
    EXPECT_EQ(back, zeros);
}
