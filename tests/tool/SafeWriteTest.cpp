#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <opencv2/imgcodecs.hpp>

#include "Outcome.h"
#include "RenderData.h"
#include "Scenes.h"
#include "check/Check.h"
#include "demo/CloudFrame.h"
#include "demo/DepthImage.h"
#include "diff/Side.h"
#include "faults/FaultyFile.h"
#include "files/SafeFile.h"
#include "formats/Format.h"
#include "info/Description.h"
#include "support/TempFolder.h"

namespace {

int numSyncs = 0;

}  // namespace

extern "C" {

int __real_fsync(int file);

int __wrap_fsync(int file) {
    ++numSyncs;
    return __real_fsync(file);
}
}

namespace {

namespace fs = std::filesystem;
using zyr::Scene;

using Fault = test::Faults (*)(std::size_t n);

test::Faults lasting(std::size_t n) {
    return {100, n};
}

test::Faults passing(std::size_t n) {
    return {100, test::kNever, test::kNever, false, n};
}

/// What becomes of the files that are written, and of those that were there.
class SafeWrite : public testing::Test {
protected:
    /// Every read from some read on fails, or that one alone: whichever it is, the file's name and
    /// the cause are told.
    static void expectTroubleAtAnyRead(const std::string& path, Fault fault,
                                       void (*read)(const std::string&)) {
        std::size_t n = 0;
        for (bool isReached = true; isReached; ++n) {
            std::string why;
            const test::FaultyFiles faulty(fault(n));
            try {
                read(path);
            } catch (const zyr::FileTrouble& trouble) {
                why = trouble.what();
            }
            isReached = test::FaultyFiles::calls() > n;
            EXPECT_EQ(why, isReached ? path + ": Input/output error" : "") << n;
        }
        EXPECT_GT(n, 5U) << path;
    }

    static Scene point() {
        Scene scene;
        ZyrVector3dArray points;
        points.Append(ZyrVector3d(1, 2, 3));
        scene.cloud.SetPoints(points);
        return scene;
    }

    /// Of the kind of the path's suffix.
    static Scene sceneFor(const std::string& path) {
        Scene scene = point();
        if (fs::path(path).extension() == ".zpt") return scene;
        scene.kind = fs::path(path).extension() == ".zrt" ? Scene::Range : Scene::Mesh;
        scene.range = test::hillImage();
        return scene;
    }

    /// Writes in a process that is killed at the n-th write of the library's; gives its status.
    static int endOfWriter(const std::string& path, std::size_t n) {
        const Scene scene = sceneFor(path);
        const pid_t writer = fork();
        if (writer == 0) {
            test::Faults faults;
            faults.step = 16;
            faults.killAt = n;
            const test::FaultyFiles faulty(faults);
            zyr::writeScene(scene, path, {});
            _exit(0);
        }
        int status = 0;
        waitpid(writer, &status, 0);
        return status;
    }

    std::ptrdiff_t filesHere() const {
        return std::distance(fs::directory_iterator(folder_.path(".")), {});
    }

    void removeAll() const {
        for (const auto& file : fs::directory_iterator(folder_.path("."))) fs::remove(file.path());
    }

    const test::TempFolder folder_;
};

TEST_F(SafeWrite, FailedWriteLeavesTheOldFileAndNothingElse) {
    const std::string path = folder_.path("old.zpt");
    test::writeFile(path, test::toBytes("precious"));
    EXPECT_THROW(zyr::writeScene(Scene(), path, {}), zyr::FileTrouble);
    EXPECT_EQ(test::readFile(path), test::toBytes("precious"));
    EXPECT_EQ(filesHere(), 1);
}

TEST_F(SafeWrite, NewFileKeepsTheRightsOfTheOldOne) {
    const std::string path = folder_.path("old.xyz");
    test::writeFile(path, {});
    fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write | fs::perms::others_read);
    zyr::writeScene(point(), path, {});
    EXPECT_EQ(fs::status(path).permissions(),
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::others_read);
}

// To read the mask is to set it, which the files of other threads would feel.
TEST_F(SafeWrite, NewFileHasTheRightsThatTheMaskLeftAtTheStart) {
    const mode_t mask = umask(077);
    zyr::writeScene(point(), folder_.path("new.xyz"), {});
    EXPECT_EQ(umask(mask), static_cast<mode_t>(077));
    EXPECT_EQ(static_cast<mode_t>(fs::status(folder_.path("new.xyz")).permissions()), 0666 & ~mask);
}

TEST_F(SafeWrite, LinkStaysALink) {
    const std::string link = folder_.path("link.xyz"), target = folder_.path("target.xyz");
    test::writeFile(target, {});
    fs::create_symlink(target, link);
    zyr::writeScene(point(), link, {});
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_GT(fs::file_size(target), 0u);
}

TEST_F(SafeWrite, WhatIsNoFileIsNotReplaced) {
    fs::create_directory(folder_.path("dir.xyz"));
    EXPECT_THROW(zyr::writeScene(point(), folder_.path("dir.xyz"), {}), zyr::FileTrouble);
    EXPECT_THROW(zyr::writeScene(point(), folder_.path("none/a.xyz"), {}), zyr::FileTrouble);
}

TEST_F(SafeWrite, ReadThatFailsAnywhereIsFileTrouble) {
    const std::string cloud = folder_.path("a.zpt"), mesh = folder_.path("a.ztmt"),
                      range = folder_.path("a.zrt"), picture = folder_.path("a.png");
    test::hillCloud().Save(cloud.c_str(), true, true);
    test::blockMesh().Save(mesh.c_str(), true, true);
    test::hillImage().Save(range.c_str(), true);
    cv::Mat noise(40, 40, CV_8UC3);
    cv::randu(noise, 0, 256);
    cv::imwrite(picture, noise);
    const std::string depth = folder_.path("depth.png");
    cv::Mat counts(40, 40, CV_16UC1);
    cv::randu(counts, 0, 65536);
    cv::imwrite(depth, counts);
    for (const Fault fault : {lasting, passing}) {
        for (const std::string& path : {cloud, mesh, range, picture}) {
            expectTroubleAtAnyRead(path, fault, [](const std::string& p) { zyr::readScene(p); });
            expectTroubleAtAnyRead(path, fault, [](const std::string& p) { zyr::loadSide(p); });
            expectTroubleAtAnyRead(path, fault, [](const std::string& p) { zyr::checkFile(p); });
        }
        const auto expectTrouble = [&](const std::string& path, void (*read)(const std::string&)) {
            expectTroubleAtAnyRead(path, fault, read);
        };
        expectTrouble(cloud, [](const std::string& p) { zyr::describeCloudFile(p); });
        expectTrouble(cloud, [](const std::string& p) { zyr::readCloudFrame(p); });
        expectTrouble(mesh, [](const std::string& p) { zyr::describeMeshFile(p); });
        expectTrouble(range, [](const std::string& p) { zyr::describeRangeFile(p); });
        expectTrouble(picture, [](const std::string& p) { zyr::describePictureFile(p); });
        expectTrouble(depth, [](const std::string& p) { zyr::readDepthImage(p, "", {}); });
    }
}

// Once the file and once its folder.
TEST_F(SafeWrite, FileAndFolderAreBroughtToTheDisk) {
    for (const char* name : {"a.zpt", "a.xyz"}) {
        numSyncs = 0;
        zyr::writeScene(point(), folder_.path(name), {});
        EXPECT_EQ(numSyncs, 2) << name;
    }
}

TEST_F(SafeWrite, ProcessKilledAtAnyWriteLeavesTheOldFileAndAtMostATemporaryOne) {
    for (const char* name : {"old.zpt", "old.ztmt", "old.zrt"}) {
        const std::string path = folder_.path(name);
        std::size_t n = 0;
        for (int status = SIGKILL; WIFSIGNALED(status); ++n) {
            test::writeFile(path, test::toBytes("precious"));
            status = endOfWriter(path, n);
            const bool isOld = test::readFile(path) == test::toBytes("precious");
            EXPECT_EQ(isOld, WIFSIGNALED(status)) << name << n;
            EXPECT_EQ(filesHere(), isOld ? 2 : 1) << name << n;
            removeAll();
        }
        EXPECT_GT(n, 4U) << name;
    }
}

// Of all formats that the program writes itself.
TEST_F(SafeWrite, ProcessKilledBeforeTheNewNameLeavesTheOldFile) {
    const std::string path = folder_.path("old.ply");
    test::writeFile(path, test::toBytes("precious"));
    const pid_t writer = fork();
    if (writer == 0) {
        zyr::SafeFile file(path);
        file.put("torn");
        file.finish();
        raise(SIGKILL);
    }
    int status = 0;
    waitpid(writer, &status, 0);
    EXPECT_EQ(WTERMSIG(status), SIGKILL);
    EXPECT_EQ(test::readFile(path), test::toBytes("precious"));
    EXPECT_EQ(filesHere(), 2);
}

}  // namespace
