#include <gtest/gtest.h>

#include "ZyrPointCloud.h"
#include "support/Clouds.h"
#include "support/DoubleBits.h"
#include "support/Npy.h"
#include "support/TempFolder.h"

/// Measured clouds, built from their buffers, through a file and back.

namespace {

class MeasuredCloud : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        const std::string folder = std::string(ZYR_DATA_DIR "/") + GetParam();
        xyz_ = test::readNpy<double>(folder + "/xyz.npy", "<f8");
        bgr_ = test::readNpy<unsigned char>(folder + "/bgr.npy", "|u1");
        if (xyz_.empty()) GTEST_SKIP() << "no " << folder;
    }

    ZyrPointCloud cloud() {
        ZyrPointCloud cloud(xyz_.data(), static_cast<int>(xyz_.size()), 6, test::kInvalid);
        if (bgr_.empty()) return cloud;
        ZyrColorArray colors;
        colors.Create(cloud.Length(), 3);
        std::copy(bgr_.begin(), bgr_.end(), colors.Data());
        cloud.SetColors(colors);
        return cloud;
    }

    ZyrPointCloud roundTrip(ZyrPointCloud cloud) {
        const test::TempFolder folder;
        ZyrPointCloud back;
        EXPECT_TRUE(cloud.Save(folder.path("a.zpt").c_str(), true, true));
        EXPECT_TRUE(back.Load(folder.path("a.zpt").c_str(), true, true));
        return back;
    }

    std::vector<double> xyz_;
    std::vector<unsigned char> bgr_;
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(All, MeasuredCloud,
                         testing::Values("cloud_milk", "cloud_rs1", "cloud_autzen"),
                         [](const auto& cloud) { return std::string(cloud.param); });

TEST_P(MeasuredCloud, PointsComeBackBitForBit) {
    ZyrPointCloud back = roundTrip(cloud());
    EXPECT_TRUE(test::values(back.PointData()) == xyz_);
    EXPECT_TRUE(test::bits(back.PointData()) == test::bits(cloud().PointData()));
}

TEST_P(MeasuredCloud, ColoursComeBack) {
    ZyrPointCloud back = roundTrip(cloud());
    EXPECT_EQ(back.IsValidColor(), !bgr_.empty());
    const unsigned char* data = back.ColorData().Data();
    EXPECT_TRUE(test::Bytes(data, data + bgr_.size()) == bgr_);
}

TEST_P(MeasuredCloud, NormalsComeBackBitForBit) {
    ZyrPointCloud withNormals = cloud();
    withNormals.SetNormals(withNormals.DeepCopyPoints());
    ZyrPointCloud back = roundTrip(withNormals);
    EXPECT_TRUE(test::bits(back.NormalData()) == test::bits(withNormals.NormalData()));
}

TEST_P(MeasuredCloud, HolesAreHolesInTheFileToo) {
    std::size_t holes = 0;
    for (std::size_t i = 0; i < xyz_.size(); i += 3) holes += xyz_[i] == test::kInvalid ? 1 : 0;
    const ZyrPointCloud back = roundTrip(cloud());
    EXPECT_EQ(back.NumValidPoints(), static_cast<int>(xyz_.size() / 3 - holes));
}
