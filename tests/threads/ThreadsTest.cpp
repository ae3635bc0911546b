#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "Samples.h"
#include "Zyr3DROI.h"
#include "support/ScopedVariable.h"
#include "support/TempFolder.h"

// What callers may do from many threads: work on objects of their own, and read what they share.
// Run under the thread sanitizer by scripts/soak.

namespace {

using test::cloudOf;
using test::imageOf;
using test::kPoints;
using test::meshOf;
using test::sumOf;

constexpr int kThreads = 8;

/// Runs the work in all threads at once; the number of those that it succeeded in.
int succeeding(const std::function<bool(int)>& work) {
    std::atomic<int> ready{0};
    std::atomic<int> good{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back([&, i] {
            ++ready;
            while (ready < kThreads) std::this_thread::yield();
            if (work(i)) ++good;
        });
    for (std::thread& thread : threads) thread.join();
    return good;
}

/// In each thread, copies of one object that are read, assigned and copied deeply. The use takes a
/// copy that shares the object's stores, and one that shares none, which it may change.
template <class Object>
void expectShared(const Object& object,
                  const std::function<bool(Object& shared, Object& own)>& use) {
    const double sum = sumOf(object);
    const int good = succeeding([&](int) {
        bool isGood = true;
        for (int turn = 0; turn < 20; ++turn) {
            Object shared(object), assigned;
            assigned = shared;
            Object own = assigned.DeepCopy();
            isGood = isGood && use(assigned, own);
        }
        return isGood && sumOf(object) == sum;
    });
    EXPECT_EQ(good, kThreads);
    EXPECT_EQ(sumOf(object), sum);
}

/// In each thread, one file loaded and another saved and loaded, by wide paths that are not ASCII.
template <class Object, class Load, class Save>
void expectWidePaths(Object sample, const std::wstring& suffix, Load load, Save save) {
    const test::TempFolder folder;
    const test::ScopedVariable locale("LC_ALL", "C.UTF-8");
    const std::string name = folder.path("");
    const std::wstring here = std::wstring(name.begin(), name.end()) + L"h\u00f6he\u4e09";
    const double sum = sumOf(sample);
    ASSERT_TRUE(save(sample, (here + suffix).c_str()));
    const int good = succeeding([&](int i) {
        const std::wstring own = here + std::to_wstring(i) + suffix;
        Object loaded, again;
        return load(loaded, (here + suffix).c_str()) && sumOf(loaded) == sum &&
               save(loaded, own.c_str()) && load(again, own.c_str()) && sumOf(again) == sum;
    });
    EXPECT_EQ(good, kThreads);
    const std::string last = folder.path("h\xC3\xB6he\xE4\xB8\x89" + std::to_string(kThreads - 1));
    EXPECT_TRUE(test::fileExists(last + std::string(suffix.begin(), suffix.end())));
}

// Of clouds and meshes.
constexpr auto loadAll = [](auto& object, const wchar_t* path) {
    return object.Load(path, true, true);
};
constexpr auto saveAll = [](auto& object, const wchar_t* path) {
    return object.Save(path, true, true);
};

}  // namespace

TEST(Threads, WorkOnCloudsOfTheirOwn) {
    const test::TempFolder folder;
    const int good = succeeding([&](int i) {
        ZyrPointCloud cloud = cloudOf(i);
        const std::string path = folder.path(std::to_string(i) + ".zpt");
        ZyrPointCloud again;
        return cloud.Save(path.c_str(), true, true) && again.Load(path.c_str(), true, true) &&
               sumOf(again) == sumOf(cloud) && again.IsValidColor() && again.IsValidNormal();
    });
    EXPECT_EQ(good, kThreads);
}

TEST(Threads, LoadOneFile) {
    const test::TempFolder folder;
    const std::string path = folder.path("a.zpt");
    ZyrPointCloud cloud = cloudOf(3);
    ASSERT_TRUE(cloud.Save(path.c_str(), true, true));
    const double sum = sumOf(cloud);
    const int good = succeeding([&](int i) {
        ZyrPointCloud again;
        const bool isLoaded = again.Load(path.c_str(), true, true);
        // Also without what half of the threads leave out.
        ZyrPointCloud bare;
        return isLoaded && bare.Load(path.c_str(), i % 2 == 0, i % 4 < 2) && sumOf(again) == sum;
    });
    EXPECT_EQ(good, kThreads);
}

TEST(Threads, ShareCloudsThatTheyRead) {
    const ZyrPointCloud cloud = cloudOf(5);
    expectShared<ZyrPointCloud>(cloud, [](ZyrPointCloud& shared, ZyrPointCloud& own) {
        own.InvalidatePoint(0);
        return shared.Length() == kPoints && shared.IsValidColor() && shared.IsValidNormal();
    });
    EXPECT_EQ(cloud.NumValidPoints(), kPoints);
}

TEST(Threads, ShareMeshesThatTheyRead) {
    const ZyrTriangleMesh mesh = meshOf(5);
    expectShared<ZyrTriangleMesh>(mesh, [](ZyrTriangleMesh& shared, ZyrTriangleMesh& own) {
        own.ReplaceTriangle(0, 7, 8, 9);
        own.ReplaceVertex(0, ZyrVector3d(-7, -8, -9));
        return shared.NumVertices() == kPoints && shared.IsValidTriangle(0) &&
               shared.IsValidTriangleColor() && shared.IsValidTriangleNormal();
    });
}

TEST(Threads, ShareColorsThatTheyRead) {
    const ZyrColorArray colors = test::colorsOf(4, test::Bytes(4 * kPoints, 9));
    expectShared<ZyrColorArray>(colors, [](ZyrColorArray& shared, ZyrColorArray& own) {
        own.SetColor(200);
        return shared.Channel() == 4 && shared[kPoints - 1].r == 9 && own[0].r == 200;
    });
}

TEST(Threads, ShareRangeImagesThatTheyRead) {
    ZyrRangeImage image = imageOf(5);
    test::setColors(image, 100, 200, 3);
    expectShared<ZyrRangeImage>(image, [](ZyrRangeImage& shared, ZyrRangeImage& own) {
        static_cast<unsigned short*>(own.Data())[0] = 999;
        own.ColorData()[2] = 99;
        return shared.IsValidColor() && shared.GetValue(0, 0) == 5 && shared.GetColor(0, 0).r == 3;
    });
}

TEST(Threads, SaveWhatTheyShare) {
    const test::TempFolder folder;
    const ZyrPointCloud cloud = cloudOf(6);
    const ZyrTriangleMesh mesh = meshOf(6);
    const ZyrRangeImage image = imageOf(6);
    const int good = succeeding([&](int i) {
        const std::string path = folder.path(std::to_string(i));
        ZyrPointCloud sharedCloud(cloud);
        ZyrRangeImage sharedImage(image);
        return sharedCloud.Save((path + ".zpt").c_str(), true, true) &&
               mesh.Save((path + ".ztmt").c_str(), true, true) &&
               sharedImage.Save((path + ".zrt").c_str(), true);
    });
    EXPECT_EQ(good, kThreads);
    for (const char* suffix : {".zpt", ".ztmt", ".zrt"})
        EXPECT_EQ(test::readFile(folder.path("7") + suffix),
                  test::readFile(folder.path("0") + suffix));
}

TEST(Threads, LoadAndSaveCloudsByWidePaths) {
    expectWidePaths(cloudOf(4), L".zpt", loadAll, saveAll);
}

TEST(Threads, LoadAndSaveMeshesByWidePaths) {
    expectWidePaths(meshOf(4), L".ztmt", loadAll, saveAll);
}

TEST(Threads, LoadAndSaveRangeImagesByWidePaths) {
    ZyrRangeImage image = imageOf(4);
    test::setColors(image, 100, 200, 4);
    expectWidePaths(
        image, L".zrt", [](ZyrRangeImage& i, const wchar_t* path) { return i.Load(path, true); },
        [](ZyrRangeImage& i, const wchar_t* path) { return i.Save(path, true); });
}

TEST(Threads, LoadAndSaveImageFilesByWidePaths) {
    expectWidePaths(
        imageOf(4), L".png",
        [](ZyrRangeImage& i, const wchar_t* path) { return i.Load(path, 0.1, 0.0); },
        [](ZyrRangeImage& i, const wchar_t* path) { return i.Save(path); });
}

TEST(Threads, HaveScratchElementsOfTheirOwn) {
    const int good = succeeding([&](int i) {
        ZyrVector3dArray list;
        for (int turn = 0; turn < 1000; ++turn) {
            ZyrVector3d& outside = list[turn];
            outside = ZyrVector3d(i, i, i);
            if (outside.x != i) return false;
        }
        return true;
    });
    EXPECT_EQ(good, kThreads);
}

TEST(Threads, WorkOnMeshesOfTheirOwn) {
    const test::TempFolder folder;
    const int good = succeeding([&](int i) {
        const ZyrTriangleMesh mesh = meshOf(i);
        ZyrTriangleMesh again;
        const std::string path = folder.path(std::to_string(i) + ".ztmt");
        return mesh.Save(path.c_str(), true, true) && again.Load(path.c_str(), true, true) &&
               sumOf(again) == sumOf(mesh);
    });
    EXPECT_EQ(good, kThreads);
}

TEST(Threads, WorkOnRangeImagesOfTheirOwn) {
    const test::TempFolder folder;
    const int good = succeeding([&](int i) {
        ZyrRangeImage image = imageOf(i);
        const std::string path = folder.path(std::to_string(i) + ".zrt");
        const std::string png = folder.path(std::to_string(i) + ".png");
        ZyrRangeImage again, picture;
        return image.Save(path.c_str(), true) && again.Load(path.c_str(), true) &&
               image.Save(png.c_str()) && picture.Load(png.c_str(), 0.1, 0.0) &&
               sumOf(again) == sumOf(image) && sumOf(picture) == sumOf(image);
    });
    EXPECT_EQ(good, kThreads);
}

TEST(Threads, CopyOneRegion) {
    Zyr3DROI roi;
    ZyrVector3d center(1, 2, 3);
    roi.Gen3DSphere(center, 4);
    const int good = succeeding([&](int) {
        Zyr3DROI copy(roi);
        ZyrVector3d c;
        double radius = 0;
        return copy.Get3DSphere(&c, &radius) && radius == 4;
    });
    EXPECT_EQ(good, kThreads);
}
