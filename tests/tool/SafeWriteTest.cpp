#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>

#include "Outcome.h"
#include "WrittenScenes.h"
#include "demo/RoundTrip.h"
#include "faults/FaultyFile.h"
#include "files/SafeFile.h"
#include "formats/Format.h"
#include "support/Bytes.h"
#include "support/TempFolder.h"

namespace {

int numSyncs = 0;
int failingSync = -1;
int syncError = EIO;

}  // namespace

extern "C" {

int __real_fsync(int file);

int __wrap_fsync(int file) {
    if (numSyncs++ != failingSync) return __real_fsync(file);
    errno = syncError;
    return -1;
}
}

namespace {

namespace fs = std::filesystem;
using zyr::Scene;

/// What becomes of the files that are written, and of those that were there.
class SafeWrite : public testing::Test {
protected:
    /// Writes in a process that is killed at the n-th write of the library's; gives its status.
    static int endOfWriter(const std::string& path, std::size_t n) {
        const Scene scene = test::sceneFor(path);
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

    /// A cloud whose loading leaves this error behind and gives another one.
    static zyr::RoundTrip throughLoad(zyr::SafeFile& file, int error) {
        const auto save = [&](const char* path) {
            return test::sceneFor("a.zpt").cloud.Save(path, true, true);
        };
        const auto load = [error](const char*) {
            errno = error;
            return true;
        };
        return zyr::roundTrip(file, save, load, [] { return "x of point 0"; });
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

// Also where nobody may read it.
TEST_F(SafeWrite, NewFileKeepsTheRightsOfTheOldOne) {
    const fs::perms kWrite = fs::perms::owner_write;
    for (const char* name : {"old.xyz", "old.zpt"})
        for (const fs::perms rights :
             {kWrite, kWrite | fs::perms::owner_read | fs::perms::others_read}) {
            const std::string path = folder_.path(name);
            test::writeFile(path, {});
            fs::permissions(path, rights);
            zyr::writeScene(test::pointScene(), path, {});
            EXPECT_EQ(fs::status(path).permissions(), rights) << name;
            fs::remove(path);
        }
}

TEST_F(SafeWrite, NewFileDoesNotRunAsItsOwner) {
    const std::string path = folder_.path("old.xyz");
    test::writeFile(path, {});
    ASSERT_EQ(chmod(path.c_str(), 07755), 0);
    zyr::writeScene(test::pointScene(), path, {});
    EXPECT_EQ(static_cast<int>(fs::status(path).permissions()), 0755);
}

// To read the mask is to set it, which the files of other threads would feel.
TEST_F(SafeWrite, NewFileHasTheRightsThatTheMaskLeftAtTheStart) {
    const mode_t mask = umask(077);
    zyr::writeScene(test::pointScene(), folder_.path("new.xyz"), {});
    EXPECT_EQ(umask(mask), static_cast<mode_t>(077));
    EXPECT_EQ(static_cast<mode_t>(fs::status(folder_.path("new.xyz")).permissions()), 0666 & ~mask);
}

TEST_F(SafeWrite, LinkStaysALink) {
    const std::string link = folder_.path("link.xyz"), target = folder_.path("target.xyz");
    test::writeFile(target, {});
    fs::create_symlink(target, link);
    zyr::writeScene(test::pointScene(), link, {});
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_GT(fs::file_size(target), 0u);
}

// Whatever the file is called that the link leads to, and also where there is none yet.
TEST_F(SafeWrite, LinkIsWrittenThroughByItsOwnSuffix) {
    for (const char* name : {"a.zpt", "a.ztmt", "a.zrt", "a.xyz"}) {
        const std::string link = folder_.path(name);
        fs::create_symlink("store", link);
        for (const bool isThere : {false, true}) {
            EXPECT_EQ(test::troubleOfWriting(link), "") << isThere;
            EXPECT_TRUE(fs::is_symlink(link)) << name;
            EXPECT_EQ(zyr::readScene(link).kind, test::sceneFor(link).kind) << name;
        }
        fs::remove(folder_.path("store"));
    }
}

TEST_F(SafeWrite, LinkToItselfIsTrouble) {
    fs::create_symlink("a.xyz", folder_.path("a.xyz"));
    EXPECT_NE(test::troubleOfWriting(folder_.path("a.xyz")), "");
    EXPECT_TRUE(fs::is_symlink(folder_.path("a.xyz")));
}

TEST_F(SafeWrite, NameMayBeTheSuffixAlone) {
    EXPECT_EQ(test::troubleOfWriting(folder_.path(".zpt")), "");
    EXPECT_EQ(zyr::readScene(folder_.path(".zpt")).cloud.Length(), 1);
}

// A signal takes the temporary file while another thread is about to open it.
TEST_F(SafeWrite, WritersDoNotMakeAnewWhatASignalTook) {
    zyr::SafeFile file(folder_.path("a.zpt"));
    fs::remove(file.temporary());
    test::writeFile(file.opened(), test::toBytes("late"));
    EXPECT_EQ(filesHere(), 0);
    EXPECT_THROW(file.commit(), zyr::FileTrouble);
}

TEST_F(SafeWrite, WhatCameBackDifferentlyIsToldAsThatWhateverErrorIsLeftBehind) {
    for (const int error : {0, ENOENT}) {
        zyr::SafeFile file(folder_.path("a.zpt"));
        const zyr::RoundTrip trip = throughLoad(file, error);
        EXPECT_EQ(trip.differing, "x of point 0");
        EXPECT_EQ(trip.bytes, fs::file_size(file.temporary()));
    }
}

TEST_F(SafeWrite, WhatCannotBeReadBackIsToldWithItsCause) {
    zyr::SafeFile file(folder_.path("a.zpt"));
    try {
        throughLoad(file, EIO);
        ADD_FAILURE();
    } catch (const zyr::FileTrouble& trouble) {
        EXPECT_EQ(trouble.what(),
                  folder_.path("a.zpt") + ": cannot be read back: Input/output error");
    }
}

TEST_F(SafeWrite, WhatIsNoFileIsNotReplaced) {
    fs::create_directory(folder_.path("dir.xyz"));
    EXPECT_THROW(zyr::writeScene(test::pointScene(), folder_.path("dir.xyz"), {}),
                 zyr::FileTrouble);
    EXPECT_THROW(zyr::writeScene(test::pointScene(), folder_.path("none/a.xyz"), {}),
                 zyr::FileTrouble);
}

// Once the file and once its folder.
TEST_F(SafeWrite, FileAndFolderAreBroughtToTheDisk) {
    for (const char* name : {"a.zpt", "a.xyz"}) {
        numSyncs = 0;
        zyr::writeScene(test::pointScene(), folder_.path(name), {});
        EXPECT_EQ(numSyncs, 2) << name;
    }
}

TEST_F(SafeWrite, WhatDoesNotGetToTheDiskDoesNotReplaceTheOldFile) {
    const std::string path = folder_.path("old.xyz");
    test::writeFile(path, test::toBytes("precious"));
    numSyncs = failingSync = 0;
    EXPECT_EQ(test::troubleOfWriting(path), path + ": cannot be written: Input/output error");
    failingSync = -1;
    EXPECT_EQ(test::readFile(path), test::toBytes("precious"));
    EXPECT_EQ(filesHere(), 1);
}

TEST_F(SafeWrite, FileOfAnotherSizeThanWasWrittenDoesNotReplaceTheOldOne) {
    const std::string path = folder_.path("old.xyz");
    test::writeFile(path, test::toBytes("precious"));
    zyr::SafeFile file(path);
    file.put(std::string(1 << 20, 'x'));  // written at once
    ASSERT_EQ(truncate(file.temporary().c_str(), 7), 0);
    EXPECT_THROW(file.finish(), zyr::FileTrouble);
    EXPECT_EQ(test::readFile(path), test::toBytes("precious"));
}

TEST_F(SafeWrite, NameThatCannotBeTakenIsTrouble) {
    zyr::SafeFile file(folder_.path("late.xyz"));
    fs::create_directory(folder_.path("late.xyz"));
    EXPECT_THROW(file.commit(), zyr::FileTrouble);
}

TEST_F(SafeWrite, FolderThatDoesNotGetToTheDiskIsTrouble) {
    const std::string path = folder_.path("a.xyz");
    numSyncs = 0;
    failingSync = 1;
    const std::string told = test::troubleOfWriting(path);
    failingSync = -1;
    EXPECT_EQ(told, path +
                        ": has its name, but its folder cannot be brought to the disk: "
                        "Input/output error");
    EXPECT_TRUE(test::fileExists(path));
}

TEST_F(SafeWrite, FileSystemThatBringsNoFoldersToTheDiskIsFine) {
    for (const int error : {EINVAL, ENOTSUP}) {
        numSyncs = 0;
        failingSync = 1;
        syncError = error;
        EXPECT_EQ(test::troubleOfWriting(folder_.path("a.xyz")), "");
        failingSync = -1;
        syncError = EIO;
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
