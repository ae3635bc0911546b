#include <sys/stat.h>

#include <filesystem>

#include "Outcome.h"
#include "Scenes.h"
#include "formats/Format.h"
#include "support/TempFolder.h"

namespace {

namespace fs = std::filesystem;
using zyr::Scene;

/// What becomes of the files that are written, and of those that were there.
class SafeWrite : public testing::Test {
protected:
    static Scene point() {
        Scene scene;
        ZyrVector3dArray points;
        points.Append(ZyrVector3d(1, 2, 3));
        scene.cloud.SetPoints(points);
        return scene;
    }

    const test::TempFolder folder_;
};

TEST_F(SafeWrite, FailedWriteLeavesTheOldFileAndNothingElse) {
    const std::string path = folder_.path("old.zpt");
    test::writeFile(path, test::toBytes("precious"));
    EXPECT_THROW(zyr::writeScene(Scene(), path, {}), zyr::FileTrouble);
    EXPECT_EQ(test::readFile(path), test::toBytes("precious"));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_.path(".")), {}), 1);
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

}  // namespace
