#include <gtest/gtest.h>

#include "support/CloudFile.h"
#include "support/DoubleBits.h"
#include "support/GoldenCloud.h"

/// Zyr3DFileIO::SavePointCloud.

using test::Bytes;
using test::CloudParts;

namespace {

struct Saved {
    bool isSaved;
    bool isCreated;
    Bytes file;

    CloudParts parts() const { return CloudParts(file); }
};

Saved save(ZyrVector3dArray points, ZyrVector3dArray normals, cv::Mat colors,
           bool withNormals = true, bool withColors = true) {
    const test::TempFolder folder;
    const std::string path = folder.path("cloud.zpt");
    Saved saved{};
    saved.isSaved =
        Zyr3DFileIO::SavePointCloud(points, normals, colors, path.c_str(), withNormals, withColors);
    saved.isCreated = test::fileExists(path);
    saved.file = test::readFile(path);
    return saved;
}

Saved saveColors(ZyrVector3dArray points, const cv::Mat& colors) {
    return save(points, ZyrVector3dArray(), colors);
}

/// The header line of that keyword.
std::string line(const Saved& saved, const std::string& keyword) {
    const std::string text = saved.parts().header;
    const std::size_t start = text.find("\n" + keyword + " ");
    if (start == text.npos) return "";
    return text.substr(start + 1, text.find('\n', start + 1) - start - 1);
}

std::vector<std::uint32_t> lastWords(const Saved& saved, std::size_t count) {
    const Bytes body = saved.parts().body();
    std::vector<std::uint32_t> words;
    for (std::size_t i = 0; i < count; ++i)
        words.push_back(test::valueAt<std::uint32_t>(body, body.size() - 4 * (count - i)));
    return words;
}

const ZyrVector3dArray kTwoPoints = test::vectors({1, 2, 3, 4, 5, 6});

class GoldenCloudWriting : public testing::TestWithParam<test::GoldenVariant> {};

}  // namespace

INSTANTIATE_TEST_SUITE_P(All, GoldenCloudWriting, testing::ValuesIn(test::goldenVariants()),
                         [](const auto& variant) { return variant.param.name; });

TEST_P(GoldenCloudWriting, HeaderIsTheGoldenOne) {
    const CloudParts golden(test::readFile(GetParam().path()));
    const auto saved = save(test::goldenPoints(), test::goldenNormals(),
                            test::goldenColors(GetParam().channels), GetParam().hasNormals);
    ASSERT_TRUE(saved.isSaved);
    EXPECT_EQ(saved.parts().header, golden.header);
}

TEST_P(GoldenCloudWriting, SizeWordsAreTheGoldenOnes) {
    const CloudParts golden(test::readFile(GetParam().path()));
    const CloudParts parts = save(test::goldenPoints(), test::goldenNormals(),
                                  test::goldenColors(GetParam().channels), GetParam().hasNormals)
                                 .parts();
    EXPECT_EQ(parts.channels, golden.channels);
    EXPECT_EQ(parts.bodySize, golden.bodySize);
    EXPECT_EQ(parts.streamSize, parts.stream.size());
}

TEST_P(GoldenCloudWriting, BodyDecodesToTheGoldenOne) {
    const CloudParts golden(test::readFile(GetParam().path()));
    const auto saved = save(test::goldenPoints(), test::goldenNormals(),
                            test::goldenColors(GetParam().channels), GetParam().hasNormals);
    ASSERT_EQ(golden.body().size(), golden.bodySize);
    EXPECT_EQ(saved.parts().body(), golden.body());
}

TEST(PointCloudWriting, EmptyCloudIsRefusedAndCreatesNoFile) {
    const Saved saved = save(ZyrVector3dArray(), kTwoPoints, test::goldenColors(3));
    EXPECT_FALSE(saved.isSaved);
    EXPECT_FALSE(saved.isCreated);
}

TEST(PointCloudWriting, EmptyCloudLeavesAnExistingFileAlone) {
    const test::TempFolder folder;
    const std::string path = folder.path("cloud.zpt");
    test::writeFile(path, {1, 2, 3});
    ZyrVector3dArray none;
    cv::Mat colors;
    EXPECT_FALSE(Zyr3DFileIO::SavePointCloud(none, none, colors, path.c_str(), true, true));
    EXPECT_EQ(test::readFile(path), (Bytes{1, 2, 3}));
}

TEST(PointCloudWriting, NullPathIsRefused) {
    ZyrVector3dArray points = kTwoPoints, normals;
    cv::Mat colors;
    EXPECT_FALSE(Zyr3DFileIO::SavePointCloud(points, normals, colors, nullptr, true, true));
}

TEST(PointCloudWriting, PathThatCannotBeOpenedIsRefused) {
    const test::TempFolder folder;
    ZyrVector3dArray points = kTwoPoints, normals;
    cv::Mat colors;
    for (const std::string& path : {folder.path("none/cloud.zpt"), folder.path(""), std::string()})
        EXPECT_FALSE(Zyr3DFileIO::SavePointCloud(points, normals, colors, path.c_str(), true, true))
            << path;
}

TEST(PointCloudWriting, WriteErrorsGoUnnoticed) {
    if (!test::fileExists("/dev/full")) GTEST_SKIP() << "no /dev/full";
    ZyrVector3dArray points = kTwoPoints, normals;
    cv::Mat colors;
    EXPECT_TRUE(Zyr3DFileIO::SavePointCloud(points, normals, colors, "/dev/full", true, true));
}

TEST(PointCloudWriting, LongerFileIsReplacedWhole) {
    const test::TempFolder folder;
    const std::string path = folder.path("cloud.zpt");
    test::writeFile(path, Bytes(5000, 'x'));
    ZyrVector3dArray points = kTwoPoints, normals;
    cv::Mat colors;
    EXPECT_TRUE(Zyr3DFileIO::SavePointCloud(points, normals, colors, path.c_str(), true, true));
    const CloudParts parts(test::readFile(path));
    EXPECT_EQ(parts.stream.size(), parts.streamSize);
}

TEST(PointCloudWriting, SuffixDoesNotMatter) {
    const test::TempFolder folder;
    ZyrVector3dArray points = kTwoPoints, normals;
    cv::Mat colors;
    EXPECT_TRUE(Zyr3DFileIO::SavePointCloud(points, normals, colors, folder.path("cloud").c_str(),
                                            true, true));
}

TEST(PointCloudWriting, TwoPointsWithColours) {
    const Saved saved = saveColors(kTwoPoints, test::colorRow({30, 20, 10, 3, 2, 1}, 3));
    EXPECT_EQ(line(saved, "FIELDS"), "FIELDS x y z rgb");
    EXPECT_EQ(line(saved, "SIZE"), "SIZE 8 8 8 4");
    EXPECT_EQ(line(saved, "TYPE"), "TYPE F F F U");
    EXPECT_EQ(line(saved, "COUNT"), "COUNT 1 1 1 1");
    EXPECT_EQ(line(saved, "WIDTH"), "WIDTH 2");
    EXPECT_EQ(line(saved, "HEIGHT"), "HEIGHT 1");
    EXPECT_EQ(line(saved, "POINTS"), "POINTS 2");
    EXPECT_EQ(saved.parts().channels, 3U);
    EXPECT_EQ(saved.parts().bodySize, 56U);
}

TEST(PointCloudWriting, BodyIsFieldMajor) {
    EXPECT_EQ(save(kTwoPoints, ZyrVector3dArray(), cv::Mat()).parts().body(),
              test::bytesOf<double>({1, 4, 2, 5, 3, 6}));
}

TEST(PointCloudWriting, ThreeChannelsPackWithFullAlpha) {
    const Saved saved = saveColors(kTwoPoints, test::colorRow({30, 20, 10, 3, 2, 1}, 3));
    EXPECT_EQ(lastWords(saved, 2), (std::vector<std::uint32_t>{0xFF0A141E, 0xFF010203}));
}

TEST(PointCloudWriting, FourChannelsPackTheirAlpha) {
    const Saved saved = saveColors(kTwoPoints, test::colorRow({30, 20, 10, 0, 3, 2, 1, 128}, 4));
    EXPECT_EQ(lastWords(saved, 2), (std::vector<std::uint32_t>{0x000A141E, 0x80010203}));
}

TEST(PointCloudWriting, GreyIsStoredBare) {
    const Saved saved = saveColors(kTwoPoints, test::colorRow({200, 255}, 1));
    EXPECT_EQ(lastWords(saved, 2), (std::vector<std::uint32_t>{200, 255}));
    EXPECT_EQ(saved.parts().channels, 1U);
}

TEST(PointCloudWriting, NothingExtraIsWrittenUnlessWanted) {
    const Saved saved = save(kTwoPoints, kTwoPoints, test::colorRow({1, 2}, 1), false, false);
    EXPECT_EQ(line(saved, "FIELDS"), "FIELDS x y z");
    EXPECT_EQ(saved.parts().channels, 1U);
}

TEST(PointCloudWriting, NormalsOfAnotherLengthAreLeftOut) {
    for (int length : {0, 1, 3}) {
        ZyrVector3dArray normals;
        normals.SetSize(length);
        const Saved saved = save(kTwoPoints, normals, cv::Mat());
        EXPECT_TRUE(saved.isSaved);
        EXPECT_EQ(line(saved, "FIELDS"), "FIELDS x y z") << length;
        EXPECT_EQ(saved.parts().bodySize, 48U);
    }
}

TEST(PointCloudWriting, ColoursOfAnotherLengthAreLeftOut) {
    for (int columns : {0, 1, 3}) {
        const Saved saved = saveColors(kTwoPoints, cv::Mat(1, columns, CV_8UC3, cv::Scalar(9)));
        EXPECT_TRUE(saved.isSaved);
        EXPECT_EQ(line(saved, "FIELDS"), "FIELDS x y z") << columns;
        EXPECT_EQ(saved.parts().channels, 1U);
    }
}

TEST(PointCloudWriting, MatricesThatAreNoColoursAreLeftOut) {
    for (int type : {CV_8UC2, CV_8UC(5), CV_8SC3, CV_16UC3, CV_32SC1, CV_32FC3, CV_64FC1}) {
        const Saved saved = saveColors(kTwoPoints, cv::Mat::zeros(1, 2, type));
        EXPECT_TRUE(saved.isSaved);
        EXPECT_EQ(line(saved, "FIELDS"), "FIELDS x y z") << type;
        EXPECT_EQ(saved.parts().channels, 1U);
    }
}

TEST(PointCloudWriting, MatrixOfThreeDimensionsIsLeftOut) {
    const int sizes[] = {2, 2, 2};
    const Saved saved = saveColors(kTwoPoints, cv::Mat(3, sizes, CV_8UC3, cv::Scalar(9)));
    EXPECT_TRUE(saved.isSaved);
    EXPECT_EQ(line(saved, "FIELDS"), "FIELDS x y z");
}

TEST(PointCloudWriting, FirstRowOfAGridIsWritten) {
    cv::Mat grid(2, 2, CV_8UC1);
    grid.at<unsigned char>(0, 0) = 10;
    grid.at<unsigned char>(0, 1) = 20;
    grid.row(1).setTo(99);
    EXPECT_EQ(lastWords(saveColors(kTwoPoints, grid), 2), (std::vector<std::uint32_t>{10, 20}));
}

TEST(PointCloudWriting, GridOfSoManyElementsButOtherColumnsIsLeftOut) {
    const Saved saved = saveColors(kTwoPoints, cv::Mat(2, 1, CV_8UC1, cv::Scalar(9)));
    EXPECT_EQ(line(saved, "FIELDS"), "FIELDS x y z");
}

TEST(PointCloudWriting, RowOfAWiderMatrixIsWrittenFromItsOwnStart) {
    cv::Mat wide(3, 5, CV_8UC1, cv::Scalar(99));
    wide.at<unsigned char>(1, 2) = 10;
    wide.at<unsigned char>(1, 3) = 20;
    const cv::Mat part = wide(cv::Rect(2, 1, 2, 2));
    EXPECT_EQ(lastWords(saveColors(kTwoPoints, part), 2), (std::vector<std::uint32_t>{10, 20}));
}

TEST(PointCloudWriting, NaNAndInfinitiesAreWrittenAsTheyStand) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    const Saved saved = save(test::vectors({nan, infinity, -infinity}), {}, cv::Mat());
    EXPECT_EQ(saved.parts().body(), test::bytesOf<double>({nan, infinity, -infinity}));
}

TEST(PointCloudWriting, InputsStayAsTheyAre) {
    ZyrVector3dArray points = test::goldenPoints(), normals = test::goldenNormals();
    cv::Mat colors = test::goldenColors(3);
    const unsigned char* pixels = colors.data;
    const test::TempFolder folder;
    Zyr3DFileIO::SavePointCloud(points, normals, colors, folder.path("a.zpt").c_str(), true, true);
    EXPECT_EQ(test::bits(points), test::bits(test::goldenPoints()));
    EXPECT_EQ(test::bits(normals), test::bits(test::goldenNormals()));
    EXPECT_EQ(colors.data, pixels);
    EXPECT_EQ(cv::norm(colors, test::goldenColors(3), cv::NORM_INF), 0);
}

/// The worked bytes of docs/formats/point-cloud.md.
TEST(PointCloudWriting, TwoColouredPointsAreTheBytesThatTheDocumentsShow) {
    const Saved saved = saveColors(kTwoPoints, test::colorRow({1, 128, 255, 255, 0, 0}, 3));
    const CloudParts parts = saved.parts();
    EXPECT_EQ(parts.header.size(), 226U);
    EXPECT_EQ(parts.channels, 3U);
    EXPECT_EQ(parts.streamSize, parts.stream.size());
    EXPECT_EQ(parts.bodySize, 56U);
    EXPECT_EQ(parts.body(),
              (Bytes{
                  0,    0,    0,    0,    0,    0, 0xF0, 0x3F, 0, 0, 0, 0, 0, 0, 0x10, 0x40,  // x
                  0,    0,    0,    0,    0,    0, 0x00, 0x40, 0, 0, 0, 0, 0, 0, 0x14, 0x40,  // y
                  0,    0,    0,    0,    0,    0, 0x08, 0x40, 0, 0, 0, 0, 0, 0, 0x18, 0x40,  // z
                  0x01, 0x80, 0xFF, 0xFF, 0xFF, 0, 0,    0xFF,                                // rgb
              }));
}
