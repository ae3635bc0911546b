#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "support/CloudFile.h"
#include "support/DoubleBits.h"
#include "support/GenClouds.h"
#include "support/Lzf.h"
#include "support/LzfData.h"

using test::Bytes;

namespace {

struct AnyColumns {
    std::string sizes, counts;
    int stride = 0;  ///< bytes of a point
};

rc::Gen<int> mostly(rc::Gen<int> usual) {
    return rc::gen::weightedOneOf<int>({{30, std::move(usual)}, {1, rc::gen::inRange(0, 10)}});
}

/// Sizes and counts of x y z rgb nx ny nz, nearly all of them such as the reader takes.
AnyColumns anyColumns() {
    AnyColumns columns;
    for (int i = 0; i < 7; ++i) {
        const bool isColor = i == 3;
        const int size = *mostly(isColor ? rc::gen::just(4) : rc::gen::element(4, 8));
        const int count = *mostly(rc::gen::just(1));
        columns.sizes += (i > 0 ? " " : "") + std::to_string(size);
        columns.counts += (i > 0 ? " " : "") + std::to_string(count);
        columns.stride += size * count;
    }
    return columns;
}

/// A compressed body of the values, of which one byte may have been changed.
Bytes anyCompressed(const Bytes& values) {
    const auto channels =
        *rc::gen::weightedElement<std::uint32_t>({{3, 1}, {3, 3}, {3, 4}, {1, 7}});
    Bytes body = test::compressed(channels, test::lzfCompressed(values),
                                  static_cast<std::uint32_t>(values.size()));
    if (*rc::gen::inRange(0, 3) == 0)
        body[*rc::gen::inRange<std::size_t>(0, body.size())] = *rc::gen::arbitrary<unsigned char>();
    return body;
}

}  // namespace

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

RC_GTEST_PROP(PointCloudProperty, AnyBodyIsReadWithoutHarm, (Bytes pattern)) {
    const int points = *rc::gen::inRange(0, 30);
    const AnyColumns columns = anyColumns();
    const auto header = test::CloudHeader(points)
                            .columns("x y z rgb nx ny nz", columns.sizes, "F", columns.counts)
                            .kind(*rc::gen::element<std::string>(
                                "ascii", "binary", "binary_compressed", "binary_compressed"));
    pattern.push_back(*rc::gen::arbitrary<unsigned char>());
    const Bytes values = test::repeated(pattern, static_cast<std::size_t>(points * columns.stride));
    const bool isCompressed = header.data == "DATA binary_compressed";
    const Bytes body = isCompressed ? anyCompressed(values) : values;
    const auto size = *rc::gen::weightedOneOf<std::size_t>(
        {{2, rc::gen::just(body.size())}, {1, rc::gen::inRange<std::size_t>(0, body.size() + 1)}});
    const bool withColors = *rc::gen::arbitrary<bool>();
    const auto cloud =
        test::loadBytes(test::joined(header.bytes(), test::prefix(body, size)), true, withColors);
    if (!cloud.isLoaded) return;
    RC_ASSERT(cloud.points.Length() == points);
    RC_ASSERT(cloud.normals.Length() == points);
    RC_ASSERT(cloud.colors.empty() || cloud.colors.total() == static_cast<std::size_t>(points));
}

RC_GTEST_PROP(PointCloudProperty, AnyChangedByteIsReadWithoutHarm, (unsigned char value)) {
    Bytes file = test::readFile(ZYR_GOLDEN_DIR "/pointcloud/points_normals_bgra.zpt");
    // Not the header: some of its changes stop the process.
    const std::size_t start = test::CloudParts(file).header.size();
    file[*rc::gen::inRange(start, file.size())] = value;
    const auto cloud = test::loadBytes(file);
    RC_ASSERT(!cloud.isLoaded || cloud.points.Length() == 5);
}
