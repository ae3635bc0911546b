#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "ZyrPointCloud.h"
#include "support/Clouds.h"
#include "support/DoubleBits.h"
#include "support/GenClouds.h"
#include "support/TempFolder.h"

namespace {

ZyrColorArray colors(const test::Bytes& bytes, int channels) {
    ZyrColorArray array;
    array.Create(static_cast<int>(bytes.size()) / channels, channels);
    std::copy(bytes.begin(), bytes.end(), array.Data());
    return array;
}

}  // namespace

RC_GTEST_PROP(ZyrPointCloudProperty, AnyCloudComesBackFromItsFile, ()) {
    const auto length = *rc::gen::inRange<std::size_t>(1, 60);
    const int channels = *rc::gen::element(1, 3, 4);
    const auto bytes = *rc::gen::container<test::Bytes>(length * static_cast<std::size_t>(channels),
                                                        rc::gen::arbitrary<unsigned char>());
    ZyrPointCloud cloud(test::anyVectors(length), colors(bytes, channels),
                        test::anyVectors(length));
    const test::TempFolder folder;
    ZyrPointCloud back;
    RC_ASSERT(cloud.Save(folder.path("a.zpt").c_str(), true, true));
    RC_ASSERT(back.Load(folder.path("a.zpt").c_str(), true, true));
    RC_ASSERT(test::bits(back.PointData()) == test::bits(test::withoutNaN(cloud.PointData())));
    RC_ASSERT(test::bits(back.NormalData()) == test::bits(test::withoutNaN(cloud.NormalData())));
    RC_ASSERT(back.ColorData().Channel() == channels);
    RC_ASSERT(std::equal(bytes.begin(), bytes.end(), back.ColorData().Data()));
}

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
