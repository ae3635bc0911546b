#include "ZyrPointCloud.h"

#include <gtest/gtest.h>

TEST(ZyrPointCloud, SevenFloatsMakeTwoPoints) {
    float data[] = {1, 2, 3, 0, 0, 0, 7};
    ZyrPointCloud cloud(data, 7, 5, 0.0);
    EXPECT_EQ(cloud.Length(), 2);
    EXPECT_EQ(cloud.NumValidPoints(), 1);
    EXPECT_TRUE(cloud.Save("/tmp/a.zpt", true, true));
    ZyrPointCloud other;
    EXPECT_TRUE(other.Load("/tmp/a.zpt", true, true));
    EXPECT_EQ(other.Length(), 2);
    EXPECT_EQ(other.Point(0).y, 2);
}
