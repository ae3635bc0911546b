#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "ZyrPointCloud.h"
#include "support/Clouds.h"
#include "support/ScopedVariable.h"
#include "support/TempFolder.h"

/// Load and Save of a cloud: suffixes, wide paths, and what stays when they fail.

using test::ScopedVariable;
using test::TempFolder;

namespace {

std::wstring wide(const std::string& ascii) {
    return std::wstring(ascii.begin(), ascii.end());
}

bool save(const std::string& path, int length = 2) {
    return test::fullCloud(length).Save(path.c_str(), true, true);
}

void expectEmpty(ZyrPointCloud& cloud) {
    EXPECT_EQ(cloud.Length(), 0);
    EXPECT_EQ(cloud.NormalData().Length(), 0);
    EXPECT_EQ(cloud.ColorData().Length(), 0);
}

}  // namespace

TEST(CloudPath, BothSpellingsOfTheSuffixAreTaken) {
    const TempFolder folder;
    for (const char* name : {"a.zpt", "a.ZPT", "a.b.zpt", ".zpt", "a.zrt.ZPT"}) {
        const std::string path = folder.path(name);
        EXPECT_TRUE(save(path)) << name;
        ZyrPointCloud cloud;
        EXPECT_TRUE(cloud.Load(path.c_str(), true, true)) << name;
        test::expectSameElements(cloud, test::fullCloud(2));
    }
}

TEST(CloudPath, OtherSuffixesAreNotSaved) {
    const TempFolder folder;
    for (const char* name :
         {"a.Zpt", "a.zpT", "a.pcd", "a", "a.", "zpt", "a.zpt ", "a.zpt.gz", "a.zptx", "a.zpt/b"}) {
        EXPECT_FALSE(save(folder.path(name))) << name;
        EXPECT_FALSE(test::fileExists(folder.path(name))) << name;
    }
}

TEST(CloudPath, OtherSuffixesAreNotLoadedThoughTheFileIsSound) {
    const TempFolder folder;
    ASSERT_TRUE(save(folder.path("a.zpt")));
    for (const char* name : {"a.Zpt", "a.pcd", "a", "a.zpt.gz"}) {
        std::filesystem::copy_file(folder.path("a.zpt"), folder.path(name));
        ZyrPointCloud cloud;
        EXPECT_FALSE(cloud.Load(folder.path(name).c_str(), true, true)) << name;
    }
}

TEST(CloudPath, RefusedLoadLeavesTheCloudEmpty) {
    const TempFolder folder;
    for (const std::string& path : {std::string("scan.pcd"), folder.path("none.zpt")}) {
        ZyrPointCloud cloud = test::fullCloud(2);
        EXPECT_FALSE(cloud.Load(path.c_str(), true, true));
        expectEmpty(cloud);
    }
}

TEST(CloudPath, NullIsRefused) {
    ZyrPointCloud cloud = test::fullCloud(2);
    EXPECT_FALSE(cloud.Save(static_cast<const char*>(nullptr), true, true));
    EXPECT_FALSE(cloud.Save(static_cast<const wchar_t*>(nullptr), true, true));
    EXPECT_EQ(cloud.Length(), 2);
    EXPECT_FALSE(cloud.Load(static_cast<const char*>(nullptr), true, true));
    expectEmpty(cloud);
}

TEST(CloudPath, NullWidePathIsRefusedAndClears) {
    ZyrPointCloud cloud = test::fullCloud(2);
    EXPECT_FALSE(cloud.Load(static_cast<const wchar_t*>(nullptr), true, true));
    expectEmpty(cloud);
}

TEST(CloudPath, EmptyPathIsRefused) {
    ZyrPointCloud cloud = test::fullCloud(2);
    EXPECT_FALSE(cloud.Save("", true, true));
    EXPECT_FALSE(cloud.Save(L"", true, true));
    EXPECT_FALSE(cloud.Load("", true, true));
    EXPECT_FALSE(cloud.Load(L"", true, true));
}

TEST(CloudPath, EmptyCloudIsNotSavedAndCreatesNoFile) {
    const TempFolder folder;
    EXPECT_FALSE(save(folder.path("a.zpt"), 0));
    EXPECT_FALSE(test::fileExists(folder.path("a.zpt")));
}

TEST(CloudPath, FolderIsNeitherSavedNorLoaded) {
    const TempFolder folder;
    const std::string path = folder.path("a.zpt");
    mkdir(path.c_str(), 0700);
    EXPECT_FALSE(save(path));
    ZyrPointCloud cloud;
    EXPECT_FALSE(cloud.Load(path.c_str(), true, true));
}

TEST(CloudPath, SaveLeavesTheCloudAlone) {
    const TempFolder folder;
    ZyrPointCloud cloud = test::fullCloud(2);
    EXPECT_TRUE(cloud.Save(folder.path("a.zpt").c_str(), true, true));
    test::expectSameElements(cloud, test::fullCloud(2));
}

TEST(CloudPath, NormalsFlagComesFirst) {
    const TempFolder folder;
    const std::string path = folder.path("a.zpt");
    ZyrPointCloud whole = test::fullCloud(2), cloud;
    EXPECT_TRUE(whole.Save(path.c_str(), true, false));
    EXPECT_TRUE(cloud.Load(path.c_str(), true, true));
    EXPECT_TRUE(cloud.IsValidNormal() && !cloud.IsValidColor());
    EXPECT_TRUE(whole.Save(path.c_str(), false, true));
    EXPECT_TRUE(cloud.Load(path.c_str(), true, true));
    EXPECT_TRUE(!cloud.IsValidNormal() && cloud.IsValidColor());
}

TEST(CloudPath, LoadTakesWhatIsWanted) {
    const TempFolder folder;
    const std::string path = folder.path("a.zpt");
    ASSERT_TRUE(save(path));
    ZyrPointCloud cloud;
    EXPECT_TRUE(cloud.Load(path.c_str(), true, false));
    EXPECT_TRUE(cloud.IsValidNormal() && !cloud.IsValidColor());
    EXPECT_TRUE(cloud.Load(path.c_str(), false, true));
    EXPECT_TRUE(!cloud.IsValidNormal() && cloud.IsValidColor());
}

TEST(CloudPath, LoadDropsColoursAndNormalsThatTheFileLacks) {
    const TempFolder folder;
    const std::string path = folder.path("a.zpt");
    ASSERT_TRUE(test::fullCloud(2).Save(path.c_str(), false, false));
    ZyrPointCloud cloud = test::fullCloud(2);
    EXPECT_TRUE(cloud.Load(path.c_str(), true, true));
    EXPECT_EQ(cloud.NormalData().Length() + cloud.ColorData().Length(), 0);
}

TEST(CloudPath, LoadIsSeenThroughSharedPointsButNotThroughSharedColours) {
    const TempFolder folder;
    ASSERT_TRUE(save(folder.path("a.zpt"), 5));
    ZyrPointCloud cloud = test::fullCloud(2);
    ZyrPointCloud sharer = cloud;
    EXPECT_TRUE(cloud.Load(folder.path("a.zpt").c_str(), true, true));
    EXPECT_EQ(sharer.Length(), 5);
    EXPECT_EQ(sharer.ColorData().Length(), 2);
}

TEST(CloudPath, WideFormsDoAsTheNarrowOnes) {
    const TempFolder folder;
    const std::wstring path = wide(folder.path("a.zpt"));
    EXPECT_TRUE(test::fullCloud(2).Save(path.c_str(), true, true));
    ZyrPointCloud cloud;
    EXPECT_TRUE(cloud.Load(path.c_str(), true, true));
    test::expectSameElements(cloud, test::fullCloud(2));
    EXPECT_TRUE(cloud.Load(path.c_str(), true, false));
    EXPECT_TRUE(cloud.IsValidNormal() && !cloud.IsValidColor());
}

TEST(CloudPath, WideSaveTakesTheNormalsFlagFirstToo) {
    const TempFolder folder;
    const std::wstring path = wide(folder.path("a.zpt"));
    ZyrPointCloud whole = test::fullCloud(2), cloud;
    EXPECT_TRUE(whole.Save(path.c_str(), true, false));
    EXPECT_TRUE(cloud.Load(path.c_str(), true, true));
    EXPECT_TRUE(cloud.IsValidNormal() && !cloud.IsValidColor());
    EXPECT_TRUE(whole.Save(path.c_str(), false, true));
    EXPECT_TRUE(cloud.Load(path.c_str(), true, true));
    EXPECT_TRUE(!cloud.IsValidNormal() && cloud.IsValidColor());
}

TEST(CloudPath, WideFormsGoByTheSuffixToo) {
    const TempFolder folder;
    EXPECT_FALSE(test::fullCloud(2).Save(wide(folder.path("a.pcd")).c_str(), true, true));
    ZyrPointCloud cloud = test::fullCloud(2);
    EXPECT_FALSE(cloud.Load(L"scan.pcd", true, true));
    expectEmpty(cloud);
}

TEST(CloudPath, WidePathIsConvertedUnderTheEnvironmentsLocale) {
    const TempFolder folder;
    const ScopedVariable utf8("LC_ALL", "C.UTF-8");
    const std::wstring path = wide(folder.path("")) + L"\u00E4\u20AC\U0001F600.zpt";
    EXPECT_TRUE(test::fullCloud(2).Save(path.c_str(), true, true));
    EXPECT_TRUE(test::fileExists(folder.path("\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80.zpt")));
    ZyrPointCloud cloud;
    EXPECT_TRUE(cloud.Load(path.c_str(), true, true));
    test::expectSameElements(cloud, test::fullCloud(2));
}

TEST(CloudPath, WidePathThatCannotBeConvertedIsRefused) {
    const TempFolder folder;
    const ScopedVariable ascii("LC_ALL", "C");
    const std::wstring path = wide(folder.path("")) + L"\u00E4.zpt";
    EXPECT_FALSE(test::fullCloud(2).Save(path.c_str(), true, true));
    EXPECT_TRUE(std::filesystem::is_empty(folder.path("")));
    ZyrPointCloud cloud = test::fullCloud(2);
    EXPECT_FALSE(cloud.Load(path.c_str(), true, true));
    expectEmpty(cloud);
}

TEST(CloudPath, LoneSurrogateIsRefused) {
    const TempFolder folder;
    const ScopedVariable utf8("LC_ALL", "C.UTF-8");
    const std::wstring path = wide(folder.path("")) + wchar_t(0xD800) + L".zpt";
    EXPECT_FALSE(test::fullCloud(2).Save(path.c_str(), true, true));
    EXPECT_TRUE(std::filesystem::is_empty(folder.path("")));
}
