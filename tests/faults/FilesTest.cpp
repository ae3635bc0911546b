#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "FaultyFile.h"
#include "Formats.h"
#include "Killed.h"

// Files that do not open, reads and writes that fail or are short, and processes that are killed
// while they write: the stated results, and objects that go on working.

using test::Bytes;
using test::Content;
using test::FaultyFiles;

namespace {

class FileFaults : public test::EachFormat {
protected:
    static void SetUpTestSuite() { test::catchStops(); }

    /// Neither reading nor writing succeeds, and the objects are usable afterwards.
    void expectUseless(const std::string& path) const {
        Content content = test::sampleOf(GetParam());
        const Bytes before = test::bytesOf(content);
        EXPECT_FALSE(load(content, path));
        EXPECT_FALSE(save(content, path));
        EXPECT_TRUE(load(content, GetParam().samplePath()));
        EXPECT_EQ(test::bytesOf(content), before);
    }
};

void exitWith(bool isGood) {
    std::_Exit(isGood && !testing::Test::HasFailure() ? 0 : 1);
}

/// Gives up the rights that root has over modes.
void becomeNobody() {
    if (geteuid() != 0) return;
    if (setegid(65534) != 0 || seteuid(65534) != 0) std::_Exit(2);
}

/// Mounts a file system of 64 KB that this process alone sees.
bool mountSmallDisk(const std::string& folder) {
    return unshare(CLONE_NEWNS) == 0 &&
           mount("none", "/", "none", MS_REC | MS_PRIVATE, nullptr) == 0 &&
           mount("none", folder.c_str(), "tmpfs", 0, "size=64k") == 0;
}

constexpr int kNoDisk = 3;

}  // namespace

TEST_P(FileFaults, PathsThatLeadNowhereGiveFalse) {
    expectUseless(file("no-such-folder/file"));
    expectUseless("");
    expectUseless(std::string(5000, 'a'));
    std::filesystem::create_symlink(file("loop"), file("loop"));
    expectUseless(file("loop"));
}

TEST_P(FileFaults, AFolderGivesFalse) {
    std::filesystem::create_directory(file("folder"));
    expectUseless(file("folder"));
}

TEST_P(FileFaults, AFileWithoutRightsGivesFalse) {
    namespace fs = std::filesystem;
    fs::permissions(folder_.path(""), fs::perms::all);
    Content content = test::sampleOf(GetParam());
    for (const char* name : {"allowed", "file"}) ASSERT_TRUE(save(content, file(name)));
    fs::permissions(file("allowed"), fs::perms::all);
    fs::permissions(file(), fs::perms::none);
    const auto use = [&] {
        becomeNobody();
        exitWith(load(content, file("allowed")) && save(content, file("allowed")) &&
                 !load(content, file()) && !save(content, file()));
    };
    EXPECT_EXIT(use(), testing::ExitedWithCode(0), "");
}

TEST_P(FileFaults, WithoutDescriptorsTheResultIsFalseUntilThereAreSome) {
    // Nothing of the test itself is called without descriptors, which the sanitizers take to look
    // at it.
    const test::Format format = GetParam();
    const std::string sample = format.samplePath();
    const std::string target = file();
    const auto use = [&] {
        Content content = test::sampleOf(format);
        const auto load = [&] { return format.load(content, sample.c_str(), true, true); };
        const auto save = [&] { return format.save(content, target.c_str()); };
        rlimit limit{};
        getrlimit(RLIMIT_NOFILE, &limit);
        const rlimit none{0, limit.rlim_max};
        setrlimit(RLIMIT_NOFILE, &none);
        const bool isRefused = !load() && !save();
        setrlimit(RLIMIT_NOFILE, &limit);
        exitWith(isRefused && load() && save());
    };
    EXPECT_EXIT(use(), testing::ExitedWithCode(0), "");
}

TEST_P(FileFaults, ReadsThatAreShortChangeNothing) {
    const Bytes whole = loaded(GetParam().samplePath());
    EXPECT_EQ(whole[0], 1);
    for (const std::size_t step : {1U, 2U, 7U, 64U}) {
        const FaultyFiles faulty({step});
        EXPECT_EQ(loaded(GetParam().samplePath()), whole) << step;
        EXPECT_GT(FaultyFiles::calls(), 1U);
    }
}

TEST_P(FileFaults, AReadThatFailsIsTheEndOfTheFile) {
    const Bytes whole = test::readFile(GetParam().samplePath());
    constexpr std::size_t kStep = 3;
    for (std::size_t n = 0; n * kStep < whole.size(); ++n) {
        test::writeFile(file(), test::prefix(whole, n * kStep));
        const Bytes cut = loaded(file());
        // Whether the disk goes on failing or answers the next time.
        for (const test::Faults& fault :
             {test::Faults{kStep, n}, {kStep, test::kNever, test::kNever, false, n}}) {
            const FaultyFiles faulty(fault);
            EXPECT_EQ(loaded(GetParam().samplePath()), cut) << n;
        }
    }
    EXPECT_EQ(FaultyFiles::open(), 0);
}

TEST_P(FileFaults, AWriteThatFailsIsNoticedWhereStated) {
    Content content = test::sampleOf(GetParam());
    const Bytes before = test::bytesOf(content);
    std::size_t failures = 0;
    for (bool isReached = true; isReached; ++failures) {
        const FaultyFiles faulty({16, failures});
        const bool isSaved = save(content, file());
        isReached = FaultyFiles::calls() > failures;
        EXPECT_EQ(isSaved, !isReached || !GetParam().noticesWriteFaults) << failures;
    }
    EXPECT_GT(failures, 5U);
    EXPECT_EQ(FaultyFiles::open(), 0);
    EXPECT_EQ(test::bytesOf(content), before);
}

TEST_P(FileFaults, ACloseThatFailsIsNoticedWhereStated) {
    Content content = test::sampleOf(GetParam());
    test::Faults faults;
    faults.failsClose = true;
    const FaultyFiles faulty(faults);
    EXPECT_EQ(save(content, file()), !GetParam().noticesWriteFaults);
    EXPECT_EQ(FaultyFiles::open(), 0);
}

TEST_P(FileFaults, AFullDiskIsNoticedWhereStated) {
    if (!test::fileExists("/dev/full")) GTEST_SKIP() << "no /dev/full";
    std::filesystem::create_symlink("/dev/full", file());
    Content content = test::sampleOf(GetParam());
    EXPECT_EQ(save(content, file()), !GetParam().noticesWriteFaults);
}

TEST_P(FileFaults, ADiskThatFillsUpIsNoticedWhereStatedAndServesAgainWithRoom) {
    const auto use = [&] {
        if (!mountSmallDisk(folder_.path(""))) std::_Exit(kNoDisk);
        Content content = test::sampleOf(GetParam());
        const Bytes before = test::bytesOf(content);
        test::writeFile(file("filler"), Bytes(64 << 10));
        const bool isSaved = save(content, file());
        std::filesystem::remove(file("filler"));
        const bool isSavedWithRoom = save(content, file());
        exitWith(isSaved == !GetParam().noticesWriteFaults && isSavedWithRoom &&
                 loaded(file()) == loaded(GetParam().samplePath()) &&
                 test::bytesOf(content) == before);
    };
    const pid_t child = fork();
    if (child == 0) use();
    int status = 0;
    waitpid(child, &status, 0);
    if (WIFEXITED(status) && WEXITSTATUS(status) == kNoDisk)
        GTEST_SKIP() << "no rights to mount a file system";
    EXPECT_EQ(status, 0);
}

TEST_P(FileFaults, AFileBeyondTheLimitOfItsSizeIsNoticedWhereStated) {
    const auto use = [&](rlim_t most) {
        Content content = test::sampleOf(GetParam());
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{most, most};
        setrlimit(RLIMIT_FSIZE, &limit);
        exitWith(save(content, file()) == !GetParam().noticesWriteFaults);
    };
    for (const rlim_t most : {rlim_t(0), rlim_t(1), rlim_t(71), rlim_t(113)})
        EXPECT_EXIT(use(most), testing::ExitedWithCode(0), "") << most;
}

TEST_P(FileFaults, WhatAKilledProcessLeavesIsReadLikeAnyOtherFile) {
    Content content = test::sampleOf(GetParam());
    ASSERT_TRUE(save(content, file()));
    const Bytes whole = test::readFile(file());
    std::size_t kills = 0;
    int numRead = 0;
    for (; test::isKilledAt(kills, 32, GetParam(), content, file()); ++kills) {
        SCOPED_TRACE(kills);
        numRead += test::checkLeft(GetParam(), test::readFile(file()), whole);
    }
    if (GetParam().name != std::string("mesh")) {
        EXPECT_GT(numRead, 0);
    }
    EXPECT_GT(kills, 3U);
    EXPECT_EQ(test::readFile(file()), whole);
}

INSTANTIATE_TEST_SUITE_P(Formats, FileFaults, testing::ValuesIn(test::formats()), test::formatName);
