#include <filesystem>
#include <opencv2/imgcodecs.hpp>

#include "Program.h"
#include "RenderData.h"

namespace {

/// Runs the program on the hill as a cloud, a mesh and a range image.
class RenderCommand : public test::Tool {
protected:
    RenderCommand() {
        ZyrPointCloud cloud = test::hillCloud();
        EXPECT_TRUE(cloud.Save(path("hill.zpt").c_str(), false, true));
        EXPECT_TRUE(test::blockMesh().Save(path("block.ztmt").c_str(), true, true));
        ZyrRangeImage image = test::hillImage();
        EXPECT_TRUE(image.Save(path("map.zrt").c_str(), true));
    }

    /// Draws a small picture and gives it.
    cv::Mat draw(const std::string& arguments) const {
        const test::Result result = run("render " + arguments + " out.png --size 160x120");
        EXPECT_EQ(result.exitCode, 0) << arguments;
        EXPECT_EQ(result.out + result.err, "") << arguments;
        return cv::imread(path("out.png"));
    }

    bool isThere(const std::string& name) const { return std::filesystem::exists(path(name)); }
};

bool isSame(const cv::Mat& a, const cv::Mat& b) {
    return a.size() == b.size() && cv::norm(a, b, cv::NORM_INF) == 0.0;
}

TEST_F(RenderCommand, DrawsAPictureOfEachKindAndIsQuiet) {
    for (const std::string file : {"hill.zpt", "block.ztmt", "map.zrt"})
        EXPECT_EQ(draw(file).size(), cv::Size(160, 120)) << file;
}

TEST_F(RenderCommand, UsualSizeIs1200By900) {
    EXPECT_EQ(run("render block.ztmt out.png").exitCode, 0);
    EXPECT_EQ(cv::imread(path("out.png")).size(), cv::Size(1200, 900));
}

TEST_F(RenderCommand, SameFileGivesTheSameBytesEachTime) {
    run("render hill.zpt a.png --size 300x200");
    run("render hill.zpt b.png --size 300x200 -j 2");
    EXPECT_FALSE(test::readText(path("a.png")).empty());
    // The picture has no name of a file but the input's in it.
    EXPECT_TRUE(test::readText(path("a.png")) == test::readText(path("b.png")));
}

TEST_F(RenderCommand, EveryOptionChangesThePicture) {
    const cv::Mat plain = draw("hill.zpt");
    for (const char* option :
         {"--view front", "--view=-20,30", "--color height", "--color normal", "--bare",
          "--background black", "--background '#102030'", "--point-size 2"})
        EXPECT_FALSE(isSame(draw(std::string("hill.zpt ") + option), plain)) << option;
    const cv::Mat map = draw("map.zrt");
    for (const char* option : {"--flat", "--depth"})
        EXPECT_FALSE(isSame(draw(std::string("map.zrt ") + option), map)) << option;
}

TEST_F(RenderCommand, ColoursAreShownWhereTheFileHasThemAndHeightsWhereNot) {
    EXPECT_TRUE(isSame(draw("hill.zpt"), draw("hill.zpt --color rgb")));
    EXPECT_TRUE(isSame(draw("map.zrt"), draw("map.zrt --color height")));
}

TEST_F(RenderCommand, ColoursThatAreNotThereAreSaidToBeSoAndHeightsAreShown) {
    const test::Result result = run("render map.zrt out.png --size 160x120 --color rgb");
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "zyr3d: map.zrt: has no colours; drawn by height\n");
    const cv::Mat drawn = cv::imread(path("out.png"));
    EXPECT_TRUE(isSame(drawn, draw("map.zrt --color height")));
}

TEST_F(RenderCommand, BackgroundIsTheColourThatIsAskedFor) {
    const cv::Mat picture = draw("block.ztmt --background '#102030'");
    EXPECT_EQ(picture.at<cv::Vec3b>(0, 0), cv::Vec3b(0x30, 0x20, 0x10));
}

TEST_F(RenderCommand, ManyFilesGoToAFolderThatIsMade) {
    const test::Result result =
        run("render hill.zpt block.ztmt map.zrt --out a/b -j 3 --size 160x120");
    EXPECT_EQ(result.exitCode, 0) << result.err;
    for (const char* name : {"a/b/hill.png", "a/b/block.png", "a/b/map.png"})
        EXPECT_TRUE(isThere(name)) << name;
}

TEST_F(RenderCommand, FilesOfOneNameKeepTheirSuffixInTheFolder) {
    std::filesystem::copy_file(path("map.zrt"), path("hill.zrt"));
    EXPECT_EQ(run("render hill.zpt hill.zrt map.zrt --out d --size 160x120").exitCode, 0);
    for (const char* name : {"d/hill.zpt.png", "d/hill.zrt.png", "d/map.png"})
        EXPECT_TRUE(isThere(name)) << name;
}

TEST_F(RenderCommand, FileThatFailsDoesNotStopTheOthers) {
    test::writeText(path("bad.zpt"), "no header");
    const test::Result result = run("render bad.zpt block.ztmt --out d --size 160x120");
    expectTrouble(result, 3, "bad.zpt");
    EXPECT_TRUE(isThere("d/block.png"));
    EXPECT_FALSE(isThere("d/bad.png"));
}

TEST_F(RenderCommand, NothingToDrawIsInvalidAndLeavesNoPicture) {
    ZyrPointCloud holes;
    ZyrVector3dArray points;
    points.SetSize(5);
    holes.SetPoints(points);
    holes.Save(path("holes.zpt").c_str(), false, false);
    expectTrouble(run("render holes.zpt out.png"), 1, "holes.zpt: nothing to draw");
    EXPECT_FALSE(isThere("out.png"));
}

TEST_F(RenderCommand, FilesThatAreNoDataAreFileTrouble) {
    test::writeText(path("text.ply"), "not a ply");
    test::writeText(path("empty.zpt"), "");
    for (const std::string name : {"none.zpt", "text.ply", "empty.zpt", ".", "Makefile"})
        expectTrouble(run("render " + name + " out.png"), 3, name);
}

TEST_F(RenderCommand, PictureThatCannotBeWrittenIsFileTroubleAndLeavesNothing) {
    std::filesystem::create_directories(path("dir.png"));
    expectTrouble(run("render hill.zpt dir.png --size 160x120"), 3, "dir.png");
    expectTrouble(run("render hill.zpt no/out.png --size 160x120"), 3, "no/out.png");
    EXPECT_FALSE(isThere("no"));
}

TEST_F(RenderCommand, FullDiskLeavesTheOldPictureAndNothingElse) {
    test::writeText(path("out.png"), "precious");
    // What the library reads would have to be below the limit too.
    cv::imwrite(path("in.png"), cv::Mat(8, 8, CV_16UC1, cv::Scalar(3)));
    const test::Result result = run("render in.png out.png --size 160x120", "ulimit -f 2");
    expectTrouble(result, 3, "out.png: cannot be written: File too large");
    EXPECT_EQ(test::readText(path("out.png")), "precious");
    EXPECT_FALSE(test::hasHiddenFiles(path(".")));
}

TEST_F(RenderCommand, InputIsNeverOverwritten) {
    cv::imwrite(path("in.png"), cv::Mat(8, 8, CV_16UC1, cv::Scalar(3)));
    expectTrouble(run("render in.png in.png"), 2, "in.png: would be overwritten");
    expectTrouble(run("render in.png --out ."), 2, "in.png: would be overwritten");
}

TEST_F(RenderCommand, PicturesThatLinksMakeOneAreUsageErrors) {
    for (const char* name : {"a.png", "b.png"})
        cv::imwrite(path(name), cv::Mat(8, 8, CV_16UC1, cv::Scalar(3)));
    std::filesystem::create_directory(path("d"));
    for (const char* name : {"d/a.png", "d/b.png"})
        std::filesystem::create_symlink("both.png", path(name));
    expectTrouble(run("render a.png b.png --out d"), 2, "d/b.png: would be written twice");
}

TEST_F(RenderCommand, WrongArgumentsAreUsageErrors) {
    expectTrouble(run("render"), 2, "FILE");
    expectTrouble(run("render hill.zpt"), 2, "FILE OUT.png");
    expectTrouble(run("render hill.zpt map.zrt a.png"), 2, "--out DIR");
    expectTrouble(run("render hill.zpt out.jpg"), 2, "ends in .png");
    expectTrouble(run("render a/x.zpt b/x.zpt --out d"), 2, "b/x.zpt: another file's picture");
    expectTrouble(run("render hill.zpt o.png --view left"), 2, "--view");
    expectTrouble(run("render hill.zpt o.png --color red"), 2, "--color");
    expectTrouble(run("render hill.zpt o.png --background blue"), 2, "--background");
    expectTrouble(run("render hill.zpt o.png --background '#12345'"), 2, "--background");
    expectTrouble(run("render hill.zpt o.png --point-size 0"), 2, "--point-size");
    expectTrouble(run("render hill.zpt o.png --point-size nan"), 2, "--point-size");
    for (const std::string size : {"160", "160x", "x120", "63x100", "100x8193", "100x100x", "axb"})
        expectTrouble(run("render hill.zpt o.png --size " + size), 2, "--size");
}

TEST_F(RenderCommand, BrokenFilesAreDrawnOrRefusedButNeverStopTheProgram) {
    for (const std::string name : {"hill.zpt", "block.ztmt", "map.zrt"}) {
        const std::string good = test::readText(path(name));
        std::mt19937 random(11);
        std::string files;
        for (int i = 0; i < 60; ++i) {
            std::string bytes = good;
            for (int k = 0; k < 3; ++k)
                bytes[random() % bytes.size()] = static_cast<char>(random());
            if (i % 4 == 0) bytes.resize(random() % bytes.size());
            const std::string broken = std::to_string(i) + name;
            test::writeText(path(broken), bytes);
            files += " " + broken;
        }
        const test::Result result = run("render" + files + " --out d --size 64x64");
        EXPECT_LE(result.exitCode, 3) << name << result.err;
    }
}

TEST_F(RenderCommand, HeadersThatStopTheLibraryAreFileTrouble) {
    for (const std::string name : {"hill.zpt", "block.ztmt"}) {
        test::writeText(path("b" + name), std::string(33, 'w') + "\n" + test::readText(path(name)));
        expectTrouble(run("render b" + name + " o.png"), 3,
                      "b" + name + ": line 1: a word of more than 32 characters");
    }
}

}  // namespace
