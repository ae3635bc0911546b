#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "support/CloudFile.h"
#include "support/DoubleBits.h"
#include "support/GenClouds.h"

using test::Bytes;

RC_GTEST_PROP(PointCloudProperty, AnyCloudComesBackFromItsFile, ()) {
    const auto length = *rc::gen::inRange<std::size_t>(1, 60);
    const bool hasNormals = *rc::gen::arbitrary<bool>();
    const int channels = *rc::gen::element(0, 1, 3, 4);
    ZyrVector3dArray points = test::anyVectors(length);
    ZyrVector3dArray normals = test::anyVectors(hasNormals ? length : 0);
    cv::Mat colors = channels == 0 ? cv::Mat() : test::anyColors(length, channels);

    const test::MemoryFile file({});
    RC_ASSERT(
        Zyr3DFileIO::SavePointCloud(points, normals, colors, file.path().c_str(), true, true));
    const test::LoadedCloud back = test::loadFile(file.path(), true, true);
    RC_ASSERT(back.isLoaded);
    RC_ASSERT(test::bits(back.points) == test::bits(test::withoutNaN(points)));
    RC_ASSERT(test::bits(back.normals) == test::bits(test::withoutNaN(normals)));
    RC_ASSERT(back.colors.empty() == colors.empty());
    RC_ASSERT(back.colorBytes() ==
              Bytes(colors.data, colors.data + length * static_cast<std::size_t>(channels)));
}

RC_GTEST_PROP(PointCloudProperty, AnyBodyIsReadWithoutHarm, (const Bytes& body)) {
    const auto size = [] { return std::to_string(*rc::gen::inRange(0, 10)) + " "; };
    const auto header =
        test::CloudHeader(*rc::gen::inRange(0, 30))
            .columns("x y z rgb nx ny nz", size() + size() + size() + size() + "8 8 8", "F",
                     size() + size() + size() + size() + "1 1 1")
            .kind(*rc::gen::element<std::string>("ascii", "binary", "binary_compressed"));
    const auto cloud = test::loadBytes(test::joined(header.bytes(), body));
    RC_ASSERT(!cloud.isLoaded || cloud.normals.Length() == cloud.points.Length());
}

RC_GTEST_PROP(PointCloudProperty, AnyChangedByteIsReadWithoutHarm, (unsigned char value)) {
    Bytes file = test::readFile(ZYR_GOLDEN_DIR "/pointcloud/points_normals_bgra.zpt");
    // Not the header: some of its changes stop the process.
    const std::size_t start = test::CloudParts(file).header.size();
    file[*rc::gen::inRange(start, file.size())] = value;
    const auto cloud = test::loadBytes(file);
    RC_ASSERT(!cloud.isLoaded || cloud.points.Length() == 5);
}
