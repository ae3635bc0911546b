#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "ZyrPointCloud.h"
#include "support/Clouds.h"

RC_GTEST_PROP(ZyrPointCloudProperty, AnyBufferGivesItsPointsOrHoles, (std::vector<double> data)) {
    const double mark =
        data.empty() || *rc::gen::arbitrary<bool>() ? 0.0 : *rc::gen::elementOf(data);
    const ZyrPointCloud cloud(data.data(), static_cast<int>(data.size()), 6, mark);
    RC_ASSERT(cloud.Length() == static_cast<int>(data.size() / 3));
    for (int i = 0; i < cloud.Length(); ++i) {
        const double* p = data.data() + 3 * i;
        const bool isHole = p[0] == mark || p[1] == mark || p[2] == mark;
        const std::vector<double> expected =
            isHole ? test::kInvalidVector : std::vector<double>(p, p + 3);
        RC_ASSERT(test::values(cloud.Point(i)) == expected);
    }
}
