#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "Zyr3DROI.h"
#include "ZyrPointCloud.h"
#include "ZyrRangeImage.h"
#include "ZyrTriangleMesh.h"
#include "support/Colors.h"
#include "support/TempFolder.h"

// What callers may do from many threads: work on objects of their own, and read what they share.
// Run under the thread sanitizer by scripts/soak.

namespace {

constexpr int kThreads = 8;
constexpr int kPoints = 20000;

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

ZyrPointCloud cloudOf(int seed) {
    std::vector<double> doubles(3 * kPoints);
    for (std::size_t i = 0; i < doubles.size(); ++i)
        doubles[i] = 0.25 * static_cast<double>((i * 7919 + static_cast<std::size_t>(seed)) % 5003);
    ZyrPointCloud cloud(doubles.data(), static_cast<int>(doubles.size()), CV_64F, -1.0);
    cloud.SetNormals(cloud.DeepCopyPoints());
    std::vector<unsigned char> colors;
    for (int i = 0; i < 3 * kPoints; ++i) colors.push_back(static_cast<unsigned char>(i + seed));
    cloud.SetColors(test::colorsOf(3, colors));
    return cloud;
}

double sumOf(const ZyrPointCloud& cloud) {
    double sum = 0;
    for (int i = 0; i < cloud.Length(); ++i)
        sum += cloud.Point(i).x + cloud.Normal(i).z + cloud.Color(i).r;
    return sum;
}

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

TEST(Threads, ShareStoresThatTheyRead) {
    const ZyrPointCloud cloud = cloudOf(5);
    const double sum = sumOf(cloud);
    const int good = succeeding([&](int) {
        bool isGood = true;
        for (int turn = 0; turn < 20; ++turn) {
            const ZyrPointCloud shared(cloud);
            ZyrPointCloud assigned;
            assigned = shared;
            isGood = isGood && assigned.Length() == kPoints;
        }
        ZyrPointCloud deep = ZyrPointCloud(cloud).DeepCopy();
        deep.InvalidatePoint(0);
        return isGood && sumOf(cloud) == sum;
    });
    EXPECT_EQ(good, kThreads);
    EXPECT_EQ(cloud.NumValidPoints(), kPoints);
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
        ZyrPointCloud cloud = cloudOf(i);
        std::vector<int> corners(3 * 5000);
        for (std::size_t k = 0; k < corners.size(); ++k) corners[k] = static_cast<int>(k % kPoints);
        const Zyr3DIntArray triangles(corners.data(), static_cast<int>(corners.size()));
        ZyrTriangleMesh mesh(cloud.PointData(), triangles), again;
        const std::string path = folder.path(std::to_string(i) + ".ztmt");
        return mesh.Save(path.c_str(), true, true) && again.Load(path.c_str(), true, true) &&
               again.VertexData()[3 * kPoints - 1] == cloud.PointData().Data()[3 * kPoints - 1];
    });
    EXPECT_EQ(good, kThreads);
}

TEST(Threads, WorkOnRangeImagesOfTheirOwn) {
    const test::TempFolder folder;
    const int good = succeeding([&](int i) {
        std::vector<unsigned short> values(200 * 100);
        for (std::size_t k = 0; k < values.size(); ++k)
            values[k] = static_cast<unsigned short>(k * 13 + static_cast<std::size_t>(i));
        ZyrRangeImage image(values.data(), 200, 100, 0, CV_16U, 0, 65535, 0.1, 0, 1, 0, 1, 0);
        const std::string path = folder.path(std::to_string(i) + ".zrt");
        const std::string png = folder.path(std::to_string(i) + ".png");
        ZyrRangeImage again, picture;
        return image.Save(path.c_str(), true) && again.Load(path.c_str(), true) &&
               image.Save(png.c_str()) && picture.Load(png.c_str(), 0.1, 0.0) &&
               again.Width() == 200 && picture.Height() == 100;
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
