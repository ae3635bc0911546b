#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <opencv2/imgcodecs.hpp>

#include "Program.h"
#include "WrittenScenes.h"
#include "check/Check.h"
#include "demo/CloudFrame.h"
#include "demo/DepthImage.h"
#include "diff/Side.h"
#include "faults/FaultyFile.h"
#include "info/Description.h"
#include "support/Sanitizer.h"

// Disks that fail, and descriptors that run out: one line says which file and why.

namespace {

namespace fs = std::filesystem;

using Fault = test::Faults (*)(std::size_t n);

test::Faults lasting(std::size_t n) {
    return {100, n};
}

test::Faults passing(std::size_t n) {
    return {100, test::kNever, test::kNever, false, n};
}

/// What use tells under a limit; "" where that is nothing.
template <class Use>
std::string troubleUnder(decltype(RLIMIT_NOFILE) limit, rlim_t most, const Use& use) {
    rlimit before{};
    getrlimit(limit, &before);
    const rlimit few{most, before.rlim_max};
    setrlimit(limit, &few);
    std::string told;
    try {
        use();
    } catch (const zyr::FileTrouble& trouble) {
        told = trouble.what();
    }
    setrlimit(limit, &before);
    return told;
}

/// The first descriptor that is free.
rlim_t nextDescriptor() {
    const int next = open("/dev/null", O_RDONLY | O_CLOEXEC);
    close(next);
    return static_cast<rlim_t>(next);
}

class DiskFaults : public testing::Test {
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

    std::ptrdiff_t filesHere() const {
        return std::distance(fs::directory_iterator(folder_.path(".")), {});
    }

    const test::TempFolder folder_;
};

TEST_F(DiskFaults, ReadThatFailsAnywhereIsFileTrouble) {
    const std::string cloud = folder_.path("a.zpt"), mesh = folder_.path("a.ztmt"),
                      range = folder_.path("a.zrt"), picture = folder_.path("a.png"),
                      foreign = folder_.path("a.ply");
    test::hillCloud().Save(cloud.c_str(), true, true);
    test::blockMesh().Save(mesh.c_str(), true, true);
    test::hillImage().Save(range.c_str(), true);
    zyr::Scene scene;
    scene.cloud = test::hillCloud();
    zyr::writeScene(scene, foreign, {});
    cv::Mat noise(40, 40, CV_8UC3);
    cv::randu(noise, 0, 256);
    cv::imwrite(picture, noise);
    const std::string depth = folder_.path("depth.png");
    cv::Mat counts(40, 40, CV_16UC1);
    cv::randu(counts, 0, 65536);
    cv::imwrite(depth, counts);
    for (const Fault fault : {lasting, passing}) {
        for (const std::string& path : {cloud, mesh, range, picture, foreign}) {
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
        expectTrouble(foreign, [](const std::string& p) { zyr::describeForeignFile(p); });
        expectTrouble(depth, [](const std::string& p) { zyr::readDepthImage(p, "", {}); });
    }
}

TEST_F(DiskFaults, WriteOfTheLibrarysThatFailsIsToldWithItsCause) {
    for (const char* name : {"a.zpt", "a.ztmt", "a.zrt"})
        for (const std::size_t n : {0U, 1U, 4U}) {
            const std::string path = folder_.path(name);
            const test::FaultyFiles faulty({32, n});
            EXPECT_EQ(test::troubleOfWriting(path),
                      path + ": cannot be written: No space left on device")
                << n;
            EXPECT_EQ(filesHere(), 0) << name;
        }
}

// The writes have no faults: all that fails are reads.
TEST_F(DiskFaults, ReadBackThatFailsIsToldWithItsCauseAndTheFilesOwnName) {
    for (const char* name : {"a.zpt", "a.ztmt", "a.zrt"}) {
        const std::string path = folder_.path(name);
        test::Faults reading;
        reading.failsReads = true;
        const test::FaultyFiles faulty(reading);
        EXPECT_EQ(test::troubleOfWriting(path), path + ": Input/output error");
        EXPECT_EQ(filesHere(), 0) << name;
    }
}

TEST_F(DiskFaults, FileWithoutHeaderIsRefusedBeforeItIsReadWhole) {
    const std::string cloud = folder_.path("a.zpt");
    test::writeFile(cloud, {});
    fs::resize_file(cloud, 3 << 20);
    const test::FaultyFiles faulty({});
    EXPECT_THROW(zyr::readScene(cloud), zyr::FileTrouble);
    EXPECT_LE(test::FaultyFiles::bytesRead(), 5U << 18);
}

// The bytes are kept in what counts as a file.
TEST_F(DiskFaults, LimitOfTheSizeOfFilesIsToldWhereItKeepsAFileFromBeingRead) {
    const std::string cloud = folder_.path("a.zpt");
    test::hillCloud().Save(cloud.c_str(), true, true);
    std::signal(SIGXFSZ, SIG_IGN);
    EXPECT_EQ(troubleUnder(RLIMIT_FSIZE, 100, [&] { zyr::readScene(cloud); }),
              cloud + ": cannot be kept in memory: File too large");
    std::signal(SIGXFSZ, SIG_DFL);
}

TEST_F(DiskFaults, WantOfDescriptorsIsToldAsTheCause) {
    const std::string cloud = folder_.path("a.zpt"), target = folder_.path("b.zpt");
    test::hillCloud().Save(cloud.c_str(), true, true);
    const auto expectWant = [&](rlim_t spare, const std::string& path, const auto& use) {
        const std::string told = troubleUnder(RLIMIT_NOFILE, nextDescriptor() + spare, use);
        EXPECT_EQ(told.rfind(path + ": ", 0), 0u) << told << spare;
        EXPECT_NE(told.find(": Too many open files"), std::string::npos) << told << spare;
        EXPECT_EQ(filesHere(), 1) << spare;
    };
    for (const rlim_t spare : {0, 1}) expectWant(spare, cloud, [&] { zyr::readScene(cloud); });
    const zyr::Scene scene = test::pointScene();
    for (const rlim_t spare : {0, 1, 2})
        expectWant(spare, target, [&] { zyr::writeScene(scene, target, {}); });
}

/// The program on a full disk of 64 KB, which a process of its own has mounted.
class FullDisk : public test::Tool {
protected:
    void SetUp() override {
        fs::create_directory(path("d"));
        test::writeText(path("in.xyz"), "1 2 3\n2 2 3\n1 3 3.5\n2 3 4\n");
        cv::imwrite(path("in.png"), cv::Mat(8, 8, CV_16UC1, cv::Scalar(7)));
    }

    bool mountDisk() const {
        return unshare(CLONE_NEWNS) == 0 &&
               mount("none", "/", "none", MS_REC | MS_PRIVATE, nullptr) == 0 &&
               mount("none", path("d").c_str(), "tmpfs", 0, "size=64k") == 0;
    }

    static constexpr int kNoDisk = 3;

    /// In a process of its own, which has the disk; skips where it may not mount one.
    template <class Use>
    void inChild(const Use& use) const {
        const pid_t child = fork();
        if (child == 0) {
            if (!mountDisk()) _exit(kNoDisk);
            use();
            _exit(HasFailure() ? 1 : 0);
        }
        int status = 0;
        waitpid(child, &status, 0);
        if (WIFEXITED(status) && WEXITSTATUS(status) == kNoDisk)
            GTEST_SKIP() << "no rights to mount a file system";
        EXPECT_EQ(status, 0);
    }

    /// Of a failed write nothing but what was there before stays.
    void expectFull(const std::string& arguments, const std::string& name) const {
        test::writeText(path("d/" + name), "precious");
        std::ofstream(path("d/filler")) << std::string(64 << 10, 'f');  // as much as there is room
        expectTrouble(run(arguments), 3,
                      "d/" + name + ": cannot be written: No space left on device");
        EXPECT_EQ(test::readText(path("d/" + name)), "precious") << arguments;
        EXPECT_EQ(std::distance(fs::directory_iterator(path("d")), {}), 2) << arguments;
        fs::remove(path("d/" + name));
    }
};

// As in a build's sandbox.
TEST_F(FullDisk, WantOfProcIsTold) {
    if (test::hasSanitizer()) GTEST_SKIP() << "the sanitizer wants /proc itself";
    test::hillCloud().Save(path("a.zpt").c_str(), true, true);
    inChild([&] {
        if (mount("none", "/proc", "tmpfs", 0, nullptr) != 0) _exit(kNoDisk);
        const std::string why = ": can be read and written only where /proc is mounted";
        expectTrouble(run("info a.zpt"), 3, "a.zpt" + why);
        expectTrouble(run("convert in.xyz o.zpt"), 3, "o.zpt" + why);
        EXPECT_EQ(run("convert in.xyz o.ply").exitCode, 0);
    });
}

TEST_F(FullDisk, OldFilesStayAndTheCauseIsTold) {
    inChild([&] {
        for (const std::string name : {"o.ply", "o.zpt", "o.ztmt"})
            expectFull("convert --grid 2x2 in.xyz d/" + name, name);
        expectFull("convert in.png d/o.zrt", "o.zrt");
        expectFull("convert in.png d/o.png", "o.png");
        expectFull("render in.xyz d/o.png", "o.png");
        expectFull("demo in.png -o d", "demo.zpt");
    });
}

}  // namespace
