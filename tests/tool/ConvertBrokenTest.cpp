#include <malloc.h>

#include <filesystem>
#include <opencv2/imgcodecs.hpp>
#include <random>

#include "Outcome.h"
#include "Scenes.h"
#include "formats/Format.h"
#include "support/Sanitizer.h"
#include "support/SweepStride.h"
#include "support/TempFolder.h"

// Foreign files come from strangers: whatever their bytes are, a reader gives a scene or says what
// is wrong. The sanitizers watch.

namespace {

using Read = zyr::Scene (*)(std::string_view);

struct Sample {
    std::string suffix;
    zyr::WriteOptions options;
};

void PrintTo(const Sample& sample, std::ostream* out) {
    *out << sample.suffix << " " << static_cast<int>(sample.options.body);
}

/// A small mesh with all that a mesh can have.
zyr::Scene meshScene() {
    zyr::Scene scene;
    scene.kind = zyr::Scene::Mesh;
    double points[] = {0, 0, 0, 1, 0, 0.1, 0, 1, -2.5, 1, 1, 3e10};
    int triangles[] = {0, 1, 2, 2, 1, 3};
    const ZyrVector3dArray vertices(points, 12, test::kInvalid);
    ZyrColorArray colors, triangleColors;
    colors.Create(4, 3);
    colors.SetColor(200);
    triangleColors.Create(2, 3);
    triangleColors.SetColor(7);
    scene.cloud = ZyrPointCloud(vertices, colors, vertices);
    scene.triangles = Zyr3DIntArray(triangles, 6);
    scene.triangleNormals = ZyrVector3dArray(points, 6, test::kInvalid);
    scene.triangleColors = triangleColors;
    return scene;
}

/// Two rows of three depths.
zyr::Scene depthScene() {
    zyr::Scene scene;
    std::uint16_t values[] = {0, 1, 255, 256, 40000, 65535};
    scene.kind = zyr::Scene::Range;
    scene.range = ZyrRangeImage(values, 3, 2, 0, CV_16U, 0, 0, 0.5, 0, 1, 0, 1, 0);
    return scene;
}

zyr::Scene sceneFor(const Sample& sample) {
    return sample.suffix == "png" || sample.suffix == "tif" ? depthScene() : meshScene();
}

class BrokenFile : public testing::TestWithParam<Sample> {
protected:
    void SetUp() override {
        const test::TempFolder folder;
        const std::string path = folder.path("good." + GetParam().suffix);
        read_ = zyr::formatOf(path)->fromBytes;
        zyr::writeScene(meshScene(), path, GetParam().options);
        const test::Bytes bytes = test::readFile(path);
        good_.assign(bytes.begin(), bytes.end());
        ASSERT_NO_THROW(read_(good_));
    }

    /// The bytes lie in storage of just their size, so that a step beyond is seen. A scene that is
    /// given is whole: its triangles can be used.
    bool isRead(const std::string& bytes) const {
        const std::vector<char> exact(bytes.begin(), bytes.end());
        try {
            const zyr::Scene scene = read_({exact.data(), exact.size()});
            for (const int corner : test::trianglesOf(scene))
                EXPECT_TRUE(corner >= 0 && corner < scene.cloud.Length());
            return true;
        } catch (const zyr::FormatFault& fault) {
            EXPECT_STRNE(fault.what(), "");
            return false;
        }
    }

    Read read_ = nullptr;
    std::string good_;
};

TEST_P(BrokenFile, EveryPrefixIsReadOrRefused) {
    int read = 0;
    for (std::size_t size = 0; size < good_.size(); ++size)
        read += isRead(good_.substr(0, size)) ? 1 : 0;
    const bool isLineByLine =
        GetParam().suffix == "xyz" || GetParam().suffix == "obj" || GetParam().suffix == "csv";
    // Else what is cut is at most the blank at the end, or digits of the last number.
    EXPECT_LT(read, isLineByLine ? static_cast<int>(good_.size()) : 20);
}

TEST_P(BrokenFile, MutationsAreReadOrRefused) {
    const std::string spice("\n\r #\0 x9-F/.,\xff\x7f", 16);
    std::mt19937 random(11);
    int refused = 0;
    for (int i = 0; i < 3000; ++i) {
        std::string bytes = good_;
        for (int change = 0; change < 1 + i % 4; ++change) {
            const std::size_t at = random() % bytes.size();
            if (random() % 4 == 0) bytes.erase(at, random() % 20);
            if (random() % 4 == 0) bytes.insert(at, random() % 30, spice[random() % 16]);
            if (at < bytes.size()) bytes[at] = spice[random() % 16];
            if (bytes.empty()) bytes = "x";
        }
        refused += isRead(bytes) ? 0 : 1;
    }
    EXPECT_GT(refused, 100);
}

TEST_P(BrokenFile, EveryNumberOfTheFirstLinesMayLie) {
    for (const std::string number : {"-1", "4294967295", "2147483648", "18446744073709551616"})
        for (std::size_t at = 0; at < std::min<std::size_t>(good_.size(), 400); ++at) {
            if (good_[at] < '0' || good_[at] > '9') continue;
            std::string bytes = good_;
            isRead(bytes.replace(at, 1, number));
        }
}

TEST_P(BrokenFile, EveryWordOfBytesMayLie) {
    for (std::size_t at = 0; at + 4 <= std::min<std::size_t>(good_.size(), 700); ++at)
        for (const char* word : {"\xff\xff\xff\xff", "\xff\xff\xff\x7f", "\x00\x00\x00\x80"}) {
            std::string bytes = good_;
            isRead(bytes.replace(at, 4, std::string(word, 4)));
        }
}

/// Files as the disk has them, spoiled in every way that is listed here. Every file is one case;
/// all of them run when ZYR_SWEEP_STRIDE is 1.
class SpoiledFile : public testing::TestWithParam<Sample> {
protected:
    void SetUp() override {
        if (GetParam().suffix == "jpg")
            cv::imwrite(path_, cv::Mat(32, 1200, CV_8UC1, cv::Scalar(90)));
        else
            zyr::writeScene(sceneFor(GetParam()), path_, GetParam().options);
        good_ = test::readFile(path_);
        ASSERT_NO_THROW(zyr::readScene(path_));
    }

    void takeCase(const test::Bytes& bytes) {
        if (next_++ % test::sweepStride(test::hasSanitizer() ? 61 : 7) != 0) return;
        // What is cut short and filled anew, some file systems bring to the disk at once.
        std::filesystem::remove(path_);
        test::writeFile(path_, bytes);
        // Whatever memory held before.
        EXPECT_EQ(pixelsOver(0x55), pixelsOver(0xAA)) << "case " << next_ - 1;
    }

    /// Of a range image; nothing of others, nor of what is refused.
    test::Bytes pixelsOver(int filling) {
        mallopt(M_PERTURB, filling);
        test::Bytes pixels;
        try {
            const ZyrRangeImage image = zyr::readScene(path_).range;
            const auto* data = static_cast<const unsigned char*>(image.Data());
            const int bytes = image.Width() * image.Height() * CV_ELEM_SIZE1(image.DataType());
            pixels.assign(data, data + bytes);
        } catch (const zyr::FileTrouble& trouble) {
            EXPECT_EQ(std::string(trouble.what()).rfind(path_ + ": ", 0), 0u) << trouble.what();
        } catch (const std::exception& other) {
            ADD_FAILURE() << "case " << next_ - 1 << ": " << other.what();
        }
        mallopt(M_PERTURB, 0);
        return pixels;
    }

    test::Bytes good_;

private:
    const test::TempFolder folder_;
    const std::string path_ = folder_.path("file." + GetParam().suffix);
    std::size_t next_ = 0;
};

TEST_P(SpoiledFile, EveryPrefixIsReadOrFileTrouble) {
    for (std::size_t size = 0; size <= good_.size(); ++size) takeCase(test::prefix(good_, size));
}

TEST_P(SpoiledFile, EveryByteReplacedIsReadOrFileTrouble) {
    for (std::size_t i = 0; i < good_.size(); ++i)
        for (const int other : {0x00, 0x01, 0x7F, 0x80, 0xFF}) {
            test::Bytes bytes = good_;
            bytes[i] = static_cast<unsigned char>(other);
            takeCase(bytes);
        }
}

using Options = zyr::WriteOptions;

const auto kForeign = testing::Values(
    Sample{"ply", {Options::Ascii, false}}, Sample{"ply", {Options::Binary, false}},
    Sample{"ply", {Options::BigEndian, true}}, Sample{"stl", {Options::Ascii, true}},
    Sample{"stl", {Options::Binary, true}}, Sample{"obj", {Options::Ascii, false}},
    Sample{"pcd", {Options::Ascii, false}}, Sample{"pcd", {Options::Binary, true}},
    Sample{"pcd", {Options::Compressed, false}}, Sample{"xyz", {Options::Ascii, false}},
    Sample{"csv", {Options::Ascii, false}}, Sample{"npy", {Options::Binary, false}});
const auto kPictures = testing::Values(Sample{"png", {}}, Sample{"tif", {}}, Sample{"jpg", {}});

INSTANTIATE_TEST_SUITE_P(, BrokenFile, kForeign);
INSTANTIATE_TEST_SUITE_P(, SpoiledFile, kForeign);
INSTANTIATE_TEST_SUITE_P(Pictures, SpoiledFile, kPictures);

}  // namespace
