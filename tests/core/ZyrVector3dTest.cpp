#include "ZyrVector3d.h"

#include <gtest/gtest.h>

#include "support/ZyrValues.h"

TEST(ZyrVector3d, DefaultIsInvalid) {
    ZyrVector3d v;
    EXPECT_FALSE(v.IsValid());
    EXPECT_EQ(v.Norm(), test::kInvalid);
}
