#include <gtest/gtest.h>

#include "support/DoubleBits.h"
#include "support/GoldenMesh.h"

/// The golden mesh files, whole and cut at every byte, through Zyr3DFileIO::LoadTriangleMesh.

using test::Bytes;
using test::LoadedMesh;
using test::MeshLists;
using test::MeshParts;

namespace {

class GoldenMesh : public testing::TestWithParam<test::GoldenMeshVariant> {
protected:
    const Bytes file_ = test::readFile(GetParam().path());
    const MeshLists golden_ = test::goldenMesh(GetParam());
};

/// The components, of a column after the other, that a body still holds from its byte at on.
ZyrVector3dArray cutVectors(ZyrVector3dArray whole, const Bytes& body, std::size_t& at) {
    const auto count = static_cast<std::size_t>(whole.Length());
    ZyrVector3dArray cut = whole.DeepCopy();
    for (std::size_t i = 0; i < 3 * count; ++i, at += 8)
        if (at + 8 > body.size()) cut.Data()[i % count * 3 + i / count] = 0.0;
    return cut;
}

Zyr3DIntArray cutIndices(Zyr3DIntArray whole, const Bytes& body, std::size_t& at) {
    Zyr3DIntArray cut = whole.DeepCopy();
    for (int i = 0; i < 9; ++i, at += 4)
        if (at + 4 > body.size()) cut[i % 3 * 3 + i / 3] = 0;
    return cut;
}

cv::Mat cutColors(const cv::Mat& whole, const Bytes& body, std::size_t& at) {
    cv::Mat cut = whole.clone();
    for (int i = 0; i < whole.cols; ++i, at += 4)
        if (at + 4 > body.size()) cut.col(i).setTo(0);
    return cut;
}

/// What is left of the lists when only the first bytes of the body are there.
MeshLists cutTo(const MeshLists& whole, const Bytes& body) {
    MeshLists cut;
    std::size_t at = 0;
    cut.vertices = cutVectors(whole.vertices, body, at);
    cut.vertexNormals = cutVectors(whole.vertexNormals, body, at);
    cut.vertexColors = cutColors(whole.vertexColors, body, at);
    cut.triangles = cutIndices(whole.triangles, body, at);
    cut.triangleNormals = cutVectors(whole.triangleNormals, body, at);
    cut.triangleColors = cutColors(whole.triangleColors, body, at);
    return cut;
}

void expectSameColors(const cv::Mat& a, const cv::Mat& b) {
    EXPECT_EQ(a.size(), b.size());
    EXPECT_EQ(a.type(), b.type());
    EXPECT_EQ(test::bytesOf(a), test::bytesOf(b));
}

void expectSame(const MeshLists& a, const MeshLists& b) {
    EXPECT_EQ(test::bits(a.vertices), test::bits(b.vertices));
    EXPECT_EQ(test::bits(a.vertexNormals), test::bits(b.vertexNormals));
    EXPECT_EQ(test::values(a.triangles), test::values(b.triangles));
    EXPECT_EQ(test::bits(a.triangleNormals), test::bits(b.triangleNormals));
    expectSameColors(a.vertexColors, b.vertexColors);
    expectSameColors(a.triangleColors, b.triangleColors);
}

cv::Mat black(const cv::Mat& colors) {
    return cv::Mat::zeros(colors.size(), colors.type());
}

/// The variant's lists that a reader gives who wants these.
MeshLists wanted(test::GoldenMeshVariant variant, bool withNormals, bool withColors) {
    if (!withNormals) variant.hasVertexNormals = variant.hasTriangleNormals = false;
    if (!withColors) variant.vertexChannels = variant.triangleChannels = 0;
    return test::goldenMesh(variant);
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(All, GoldenMesh, testing::ValuesIn(test::goldenMeshVariants()),
                         [](const auto& variant) { return variant.param.name(); });

TEST_P(GoldenMesh, GivesTheListsThatItHasAndThatAreWanted) {
    for (const bool withNormals : {false, true})
        for (const bool withColors : {false, true}) {
            const LoadedMesh mesh = test::loadMesh(file_, withNormals, withColors);
            EXPECT_TRUE(mesh.isLoaded);
            expectSame(mesh, wanted(GetParam(), withNormals, withColors));
        }
}

TEST_P(GoldenMesh, DeclaredBinaryLoadsTheSame) {
    const MeshParts parts(file_);
    const std::string compressed = "_compressed\n";
    const std::size_t header = parts.header.size() - compressed.size();
    const Bytes start = test::joined(test::prefix(file_, header), {'\n'});
    const Bytes file = test::joined(
        start,
        Bytes(file_.end() - static_cast<std::ptrdiff_t>(parts.stream.size() + 16), file_.end()));
    const LoadedMesh mesh = test::loadMesh(file);
    EXPECT_TRUE(mesh.isLoaded);
    expectSame(mesh, golden_);
}

TEST_P(GoldenMesh, CutInsideItsHeaderIsRefused) {
    const std::size_t headerSize = MeshParts(file_).header.size();
    ASSERT_GT(headerSize, 0U);
    for (std::size_t size = 0; size < headerSize; ++size)
        EXPECT_FALSE(test::loadMesh(test::prefix(file_, size)).isLoaded) << size;
}

TEST_P(GoldenMesh, CutBehindItsChannelCountsGivesWhatIsThereAndZeros) {
    const MeshParts parts(file_);
    const std::size_t streamStart = parts.header.size() + 16;
    for (std::size_t size = parts.header.size() + 8; size <= file_.size(); ++size) {
        const std::size_t present = size < streamStart ? 0 : size - streamStart;
        const Bytes body = test::plainDecode(test::prefix(parts.stream, present), parts.bodySize);
        const LoadedMesh mesh = test::loadMesh(test::prefix(file_, size));
        ASSERT_TRUE(mesh.isLoaded) << size;
        expectSame(mesh, cutTo(golden_, body));
    }
}

TEST_P(GoldenMesh, CutBeforeItsFirstChannelCountHasNoColours) {
    const std::size_t headerSize = MeshParts(file_).header.size();
    for (std::size_t size = headerSize; size < headerSize + 4; ++size) {
        const LoadedMesh mesh = test::loadMesh(test::prefix(file_, size));
        EXPECT_TRUE(mesh.isLoaded) << size;
        EXPECT_EQ(test::values(mesh.vertices), std::vector<double>(12, 0.0));
        EXPECT_EQ(test::values(mesh.triangles), std::vector<int>(9, 0));
        EXPECT_TRUE(mesh.vertexColors.empty() && mesh.triangleColors.empty());
    }
}

TEST_P(GoldenMesh, CutBeforeItsSecondChannelCountHasBlackVerticesAndNoTriangleColours) {
    const std::size_t headerSize = MeshParts(file_).header.size();
    for (std::size_t size = headerSize + 4; size < headerSize + 8; ++size) {
        const LoadedMesh mesh = test::loadMesh(test::prefix(file_, size));
        EXPECT_TRUE(mesh.isLoaded) << size;
        expectSameColors(mesh.vertexColors, black(golden_.vertexColors));
        EXPECT_TRUE(mesh.triangleColors.empty());
    }
}

TEST_P(GoldenMesh, BytesBehindItsBodyAreIgnored) {
    const LoadedMesh mesh = test::loadMesh(test::joined(file_, {1, 2, 3}));
    EXPECT_TRUE(mesh.isLoaded);
    expectSame(mesh, golden_);
}

TEST_P(GoldenMesh, WrongByteInItsBodyIsRefusedOrGivesListsOfTheSameLengths) {
    int loads = 0;
    for (std::size_t i = MeshParts(file_).header.size(); i < file_.size(); ++i)
        for (const unsigned char flipped : Bytes{0x01, 0x20, 0x80, 0xFF}) {
            Bytes file = file_;
            file[i] ^= flipped;
            const LoadedMesh mesh = test::loadMesh(file);
            if (!mesh.isLoaded) continue;
            ++loads;
            EXPECT_EQ(mesh.vertices.Length(), 4);
            EXPECT_EQ(mesh.triangles.Length(), 9);
            EXPECT_EQ(mesh.vertexNormals.Length(), golden_.vertexNormals.Length());
            EXPECT_EQ(mesh.triangleNormals.Length(), golden_.triangleNormals.Length());
            EXPECT_EQ(mesh.vertexColors.cols, golden_.vertexColors.cols);
            EXPECT_EQ(mesh.triangleColors.cols, golden_.triangleColors.cols);
        }
    EXPECT_GT(loads, 0);
}
