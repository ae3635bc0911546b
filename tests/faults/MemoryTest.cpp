#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "Allocations.h"
#include "FaultyFile.h"
#include "Formats.h"
#include "Matrices.h"
#include "NoMemory.h"
#include "ZyrPointCloud.h"
#include "ZyrRangeImage.h"
#include "ZyrTriangleMesh.h"
#include "support/Sanitizer.h"

// Memory that runs out at each allocation in turn: false, nothing lost, and objects that go on
// working.

using test::Bytes;
using test::Content;
using test::SteadyMatrices;

namespace {

/// Calls use with one allocation after the other failing, until none is reached: it succeeds only
/// then. Gives how many there are.
template <class Use>
long forEachAllocation(Use use) {
    const SteadyMatrices steady;
    long n = 0;
    for (bool hasFailed = true; hasFailed; ++n) {
        Content fresh;
        test::failAllocation(n);
        const bool isGood = use(fresh);
        hasFailed = test::endFailing();
        EXPECT_EQ(isGood, !hasFailed) << n;
    }
    return n - 1;
}

class MemoryFaults : public test::EachFormat {
protected:
    bool load(Content& content) const { return EachFormat::load(content, sample_); }
    bool save(Content& content) const { return EachFormat::save(content, file_); }

    /// Loads the file, and saves what it holds, while the address space is used up, with a little
    /// more memory each time. True where that gives false and then all of the file.
    bool loadsUnderLimits(const std::string& path) const;
    bool savesUnderLimits(const std::string& path) const;

    /// Whether a process of its own finds this of each golden file.
    template <class Holds>
    void expectOfEachGolden(Holds holds) const;

    std::string file_ = file();
    std::string sample_ = GetParam().samplePath();
};

/// Whether the use gives false when all memory is taken, and true once some is back.
template <class Use>
bool needsMemory(Use use) {
    int refused = 0;
    test::NoMemory memory;
    bool isGood = use();
    for (; !isGood && memory.giveBack(); isGood = use()) ++refused;
    return isGood && refused > 0;
}

bool MemoryFaults::loadsUnderLimits(const std::string& path) const {
    Content content, whole;
    return EachFormat::load(whole, path) &&
           needsMemory([&] { return EachFormat::load(content, path); }) &&
           test::bytesOf(content) == test::bytesOf(whole);
}

bool MemoryFaults::savesUnderLimits(const std::string& path) const {
    Content content, again;
    return EachFormat::load(content, path) && needsMemory([&] { return save(content); }) &&
           EachFormat::load(again, file_) && test::bytesOf(again) == test::bytesOf(content);
}

template <class Holds>
void MemoryFaults::expectOfEachGolden(Holds holds) const {
    if (test::hasSanitizer()) GTEST_SKIP() << "the sanitizers need the addresses";
    const std::string folder = std::string(ZYR_GOLDEN_DIR "/") + GetParam().folder;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".py") continue;
        const pid_t child = fork();
        if (child == 0) std::_Exit(holds(entry.path()) ? 0 : 1);
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0) << entry.path();
    }
}

/// One or two elements in each list and store.
Content fewOfEach() {
    Content c;
    for (ZyrVector3dArray* list : {&c.cloud.points, &c.cloud.normals, &c.mesh.vertices,
                                   &c.mesh.vertexNormals, &c.mesh.triangleNormals})
        *list = test::vectors({1, 2, 3});
    c.mesh.triangles = test::indices({4, 5, 6});
    for (cv::Mat* mat : {&c.cloud.colors, &c.mesh.vertexColors, &c.mesh.triangleColors,
                         &c.range.values, &c.range.colors})
        *mat = cv::Mat::ones(1, 2, CV_8UC1);
    return c;
}

/// Loads a file and saves it again by paths of both kinds: true unless an allocation fails.
template <class Object, class Load, class Save>
void expectTrueOrFalse(const std::string& file, const std::string& name, Load load, Save save) {
    const test::TempFolder folder;
    const std::string target = folder.path(name);
    const std::wstring wideFile(file.begin(), file.end());
    const std::wstring wideTarget(target.begin(), target.end());
    Object loaded, saved;
    ASSERT_TRUE(load(saved, file.c_str()));
    const auto reaches = [](auto use) {
        return forEachAllocation([&](Content&) { return use(); }) > 0;
    };
    EXPECT_TRUE(reaches([&] { return load(loaded, file.c_str()); })) << name;
    EXPECT_TRUE(reaches([&] { return load(loaded, wideFile.c_str()); })) << name;
    EXPECT_TRUE(reaches([&] { return save(saved, target.c_str()); })) << name;
    EXPECT_TRUE(reaches([&] { return save(saved, wideTarget.c_str()); })) << name;
    EXPECT_TRUE(load(loaded, target.c_str())) << name;
}

// Of clouds and meshes.
constexpr auto loadAll = [](auto& object, auto* path) { return object.Load(path, true, true); };
constexpr auto saveAll = [](auto& object, auto* path) { return object.Save(path, true, true); };

class MemoryFaultsOfImages : public testing::Test {
protected:
    static constexpr auto load = [](ZyrRangeImage& image, auto* path) {
        return image.Load(path, 0.5, 10.0);
    };
    static constexpr auto save = [](ZyrRangeImage& image, auto* path) { return image.Save(path); };

    std::vector<unsigned char> values_ = std::vector<unsigned char>(6 * 4, 100);
    ZyrRangeImage image_{values_.data(), 6, 4, 0, CV_8U, 0, 255, 0.5, 10, 1, 0, 1, 0};
    test::TempFolder folder_;
    long numFailures_ = 0;
};

}  // namespace

TEST_P(MemoryFaults, UnderALimitOfTheAddressSpaceLoadingGivesFalseUntilThereIsEnough) {
    expectOfEachGolden([&](const std::string& path) { return loadsUnderLimits(path); });
}

TEST_P(MemoryFaults, UnderALimitOfTheAddressSpaceSavingGivesFalseUntilThereIsEnough) {
    expectOfEachGolden([&](const std::string& path) { return savesUnderLimits(path); });
}

TEST_P(MemoryFaults, LoadingGivesFalseAtEachAllocation) {
    EXPECT_GT(forEachAllocation([&](Content& fresh) { return load(fresh); }), 0);
}

TEST_P(MemoryFaults, LoadingSucceedsAfterwards) {
    const Bytes whole = test::bytesOf(test::sampleOf(GetParam()));
    const SteadyMatrices steady;
    Content content;
    for (long n = 0; n < 40; ++n) {
        test::failAllocation(n);
        load(content);
        test::endFailing();
        EXPECT_TRUE(load(content));
        EXPECT_EQ(test::bytesOf(content), whole) << n;
    }
}

TEST_P(MemoryFaults, SavingGivesFalseAtEachAllocationAndLeavesTheObjects) {
    Content content = test::sampleOf(GetParam());
    const Bytes before = test::bytesOf(content);
    EXPECT_GT(forEachAllocation([&](Content&) { return save(content); }), 0);
    EXPECT_EQ(test::bytesOf(content), before);
    Content again;
    EXPECT_TRUE(EachFormat::load(again, file_));
    EXPECT_EQ(test::bytesOf(again), before);
}

TEST_P(MemoryFaults, NothingIsLostAndNoFileIsLeftOpen) {
    Content content = test::sampleOf(GetParam());
    const SteadyMatrices steady;
    const test::FaultyFiles counted({});
    for (long n = 0; n < 40; ++n) {
        const std::size_t before = test::heldBytes();
        {
            Content fresh;
            test::failAllocation(n);
            load(fresh);
            save(content);
            test::endFailing();
        }
        EXPECT_EQ(test::heldBytes(), before) << n;
        EXPECT_EQ(test::FaultyFiles::open(), 0) << n;
    }
}

TEST_P(MemoryFaults, WithoutMemoryForMatricesLoadingGivesFalse) {
    Content content;
    {
        const test::MatrixLimit limit(0);
        EXPECT_FALSE(load(content));
    }
    EXPECT_TRUE(load(content));
}

TEST_P(MemoryFaults, LoadingGivesFalseAtEachMatrixAndLeavesTheListsAndStores) {
    int n = 0;
    for (bool hasFailed = true; hasFailed; ++n) {
        Content content = fewOfEach();
        // Sets the three numbers that any load does.
        EXPECT_FALSE(EachFormat::load(content, ""));
        const Bytes before = test::bytesOf(content);
        const test::FailingMatrix failing(n);
        const bool isLoaded = load(content);
        hasFailed = failing.hasFailed();
        EXPECT_EQ(isLoaded, !hasFailed) << n;
        EXPECT_EQ(hasFailed, test::bytesOf(content) == before) << n;
    }
    EXPECT_EQ(n - 1, GetParam().name == std::string("cloud") ? 1 : 2);
}

TEST(MemoryOfLists, IsThatOfTheirElements) {
    constexpr int kVertices = 30000, kFaces = 50000;
    const test::TempFolder folder;
    const std::string path = folder.path("large.ztmt");
    std::vector<int> corners(3 * kFaces, 7);
    test::MeshLists mesh;
    mesh.vertices = test::vectors(std::vector<double>(3 * kVertices, 1.5));
    mesh.vertexNormals = mesh.vertices;
    mesh.triangles = Zyr3DIntArray(corners.data(), 3 * kFaces);
    mesh.triangleNormals = test::vectors(std::vector<double>(3 * kFaces, 0.5));
    ASSERT_TRUE(mesh.save(path, true, false));
    const std::size_t before = test::heldBytes();
    test::MeshLists loaded;
    ASSERT_TRUE(loaded.load(path, true, false));
    const std::size_t elements = 2 * 24 * kVertices + (12 + 24) * kFaces;
    EXPECT_LE(test::heldBytes() - before, elements + (std::size_t(64) << 10));
}

TEST(MemoryOfLists, IsThatOfTheIndicesWhereTheFileHasNone) {
    const auto header = test::MeshHeader(2, 50000).columns("x y z", "8 8 8");
    const test::MemoryFile file(test::meshFile(header, Bytes(48)));
    const std::size_t before = test::heldBytes();
    test::MeshLists loaded;
    ASSERT_TRUE(loaded.load(file.path(), true, false));
    EXPECT_LE(test::heldBytes() - before, std::size_t(12 * 50000) + (std::size_t(64) << 10));
}

TEST(MemoryFaultsOfObjects, ACloudLoadsAndSavesUnderEitherPathOrGivesFalse) {
    expectTrueOrFalse<ZyrPointCloud>(test::formats()[0].samplePath(), "a.zpt", loadAll, saveAll);
}

TEST(MemoryFaultsOfObjects, AMeshLoadsAndSavesUnderEitherPathOrGivesFalse) {
    expectTrueOrFalse<ZyrTriangleMesh>(test::formats()[1].samplePath(), "a.ztmt", loadAll, saveAll);
}

TEST(MemoryFaultsOfObjects, ARangeImageLoadsAndSavesUnderEitherPathOrGivesFalse) {
    const auto load = [](ZyrRangeImage& image, auto* path) {
        const bool isLoaded = image.Load(path, true);
        test::closeLeftOpen();
        return isLoaded;
    };
    const auto save = [](ZyrRangeImage& image, auto* path) { return image.Save(path, true); };
    expectTrueOrFalse<ZyrRangeImage>(test::formats()[2].samplePath(), "a.zrt", load, save);
}

TEST_F(MemoryFaultsOfImages, LoadAndSaveUnderEitherPathOrGiveFalse) {
    for (const char* suffix : {"png", "jpg", "jpeg", "bmp", "tif", "tiff"}) {
        const std::string name = std::string("an-image.") + suffix;
        const std::string file = folder_.path(name);
        ASSERT_TRUE(image_.Save(file.c_str())) << suffix;
        expectTrueOrFalse<ZyrRangeImage>(file, name, load, save);
    }
}

TEST_F(MemoryFaultsOfImages, ALoadThatFailsSetsTheCalibrationAllTheSame) {
    const std::string file = folder_.path("an-image.png");
    ASSERT_TRUE(image_.Save(file.c_str()));
    const SteadyMatrices steady;
    for (bool hasFailed = true; hasFailed;) {
        ZyrRangeImage image;
        image.SetInfo(2, 3, 4, 5, 6, 7);
        test::failAllocation(numFailures_++);
        load(image, file.c_str());
        hasFailed = test::endFailing();
        EXPECT_EQ(test::calibration(image), (std::vector<double>{1, 0, 1, 0, 0.5, 10}));
    }
    EXPECT_GT(numFailures_, 1);
}

INSTANTIATE_TEST_SUITE_P(Formats, MemoryFaults, testing::ValuesIn(test::formats()),
                         test::formatName);
