#include <gtest/gtest.h>
#include <random>

#include "FaultyFile.h"
#include "Formats.h"
#include "Killed.h"

// Faults in files whose body takes several of all buffers on its way: what happens in the middle
// is noticed there, not when the last bytes get through.

using test::Bytes;
using test::Content;
using test::FaultyFiles;

namespace {

/// Values that do not compress.
class Noise {
public:
    ZyrVector3dArray vectors(int count) {
        std::vector<double> doubles(3 * static_cast<std::size_t>(count));
        for (double& value : doubles) value = static_cast<double>(next_()) / 3.0;
        return ZyrVector3dArray(doubles.data(), 3 * count, -1.0);
    }
    Zyr3DIntArray triangles(int count) {
        std::vector<int> corners(3 * static_cast<std::size_t>(count));
        for (int& corner : corners) corner = static_cast<int>(next_() >> 40);
        return Zyr3DIntArray(corners.data(), 3 * count);
    }
    cv::Mat matrix(int rows, int columns, int type) {
        cv::Mat mat(rows, columns, type);
        for (std::size_t i = 0; i < mat.total() * mat.elemSize(); ++i)
            mat.data[i] = static_cast<unsigned char>(next_());
        return mat;
    }

private:
    std::mt19937_64 next_;
};

void fill(test::LoadedCloud& cloud) {
    Noise noise;
    cloud.points = noise.vectors(5000);
    cloud.normals = noise.vectors(5000);
    cloud.colors = noise.matrix(1, 5000, CV_8UC4);
}

void fill(test::MeshLists& mesh) {
    Noise noise;
    mesh.vertices = noise.vectors(3000);
    mesh.vertexNormals = noise.vectors(3000);
    mesh.vertexColors = noise.matrix(1, 3000, CV_8UC4);
    mesh.triangles = noise.triangles(2000);
    mesh.triangleNormals = noise.vectors(2000);
    mesh.triangleColors = noise.matrix(1, 2000, CV_8UC3);
}

void fill(test::Stores& range) {
    Noise noise;
    range.values = noise.matrix(200, 220, CV_16U);
    range.colors = noise.matrix(200, 220, CV_8UC4);
}

/// Some 260 KB in a file of the format.
Content largeContent(const std::string& format) {
    Content content;
    if (format == "cloud") fill(content.cloud);
    if (format == "mesh") fill(content.mesh);
    if (format == "range") fill(content.range);
    return content;
}

class LargeFileFaults : public test::EachFormat {
protected:
    static void SetUpTestSuite() { test::catchStops(); }

    void SetUp() override {
        ASSERT_TRUE(save(content_, file("whole")));
        whole_ = test::readFile(file("whole"));
        EXPECT_GT(whole_.size(), 192U << 10);
    }

    /// Saves with one fault after the other, until none is reached: it must be noticed where that
    /// is stated. Gives how many there are.
    std::size_t saveWithEach(test::Faults (*fault)(std::size_t n)) {
        std::size_t n = 0;
        for (bool isReached = true; isReached; ++n) {
            const FaultyFiles faulty(fault(n));
            const bool isSaved = save(content_, file());
            isReached = FaultyFiles::calls() > n;
            EXPECT_EQ(isSaved, !isReached || !GetParam().noticesWriteFaults) << n;
            EXPECT_EQ(FaultyFiles::open(), 0) << n;
        }
        EXPECT_TRUE(test::readFile(file()) == whole_);
        return n - 1;
    }

    Content content_ = largeContent(GetParam().name);
    Bytes whole_;  ///< of a file
    Bytes values_ = test::joined(Bytes(1, 1), test::bytesOf(content_));
};

constexpr std::size_t kStep = 20000;

test::Faults onlyFailure(std::size_t n) {
    test::Faults faults;
    faults.step = kStep;
    faults.failOnly = n;
    return faults;
}

}  // namespace

TEST_P(LargeFileFaults, WritesThatFailFromOneOnAreNoticedWhereStated) {
    EXPECT_GT(saveWithEach([](std::size_t n) { return test::Faults{kStep, n}; }), 10U);
}

TEST_P(LargeFileFaults, OneWriteThatFailsIsNoticedWhereStatedThoughLaterOnesSucceed) {
    EXPECT_GT(saveWithEach(onlyFailure), 10U);
}

TEST_P(LargeFileFaults, ReadsThatFailFromOneOnAreTheEndOfTheFile) {
    std::size_t n = 0;
    for (bool isReached = true; isReached; ++n) {
        Bytes cut;
        {
            const FaultyFiles faulty({kStep, n});
            cut = loaded(file("whole"));
            isReached = FaultyFiles::calls() > n;
            test::writeFile(file(), test::prefix(whole_, FaultyFiles::bytesRead()));
        }
        EXPECT_TRUE(cut == loaded(file())) << n;
        // One that fails alone ends the file too, unless it is read again.
        const FaultyFiles faulty(onlyFailure(n));
        const Bytes values = loaded(file("whole"));
        EXPECT_TRUE(values == cut || values == values_) << n;
    }
    EXPECT_GT(n, 10U);
    EXPECT_EQ(FaultyFiles::open(), 0);
}

TEST_P(LargeFileFaults, ReadsThatAreShortChangeNothing) {
    for (const std::size_t step : {61U, 4097U, 65537U}) {
        const FaultyFiles faulty({step});
        EXPECT_TRUE(loaded(file("whole")) == values_) << step;
        EXPECT_GT(FaultyFiles::calls(), 1U);
    }
}

TEST_P(LargeFileFaults, WhatAKilledProcessLeavesIsReadLikeAnyOtherFile) {
    std::size_t kills = 0;
    int numRead = 0;
    for (; test::isKilledAt(kills, kStep, GetParam(), content_, file()); ++kills) {
        SCOPED_TRACE(kills);
        numRead += test::checkLeft(GetParam(), test::readFile(file()), whole_);
    }
    if (GetParam().name == std::string("range")) {
        EXPECT_GT(numRead, 0);
    }
    EXPECT_GT(kills, 10U);
    EXPECT_TRUE(test::readFile(file()) == whole_);
}

INSTANTIATE_TEST_SUITE_P(Formats, LargeFileFaults, testing::ValuesIn(test::formats()),
                         test::formatName);
