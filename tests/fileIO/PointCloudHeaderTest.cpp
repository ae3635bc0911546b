#include <gtest/gtest.h>

#include "support/CloudFile.h"
#include "support/StopText.h"
#include "support/ZyrValues.h"

/// What the point-cloud reader asks of the header, and what it stops at.

using test::Bytes;
using test::CloudHeader;

namespace {

/// Two points (1, 2, 3) and (4, 5, 6).
Bytes body() {
    return test::compressed(1, test::bytesOf<double>({1, 4, 2, 5, 3, 6}));
}

bool loads(const CloudHeader& header) {
    return test::loadBytes(test::joined(header.bytes(), body())).isLoaded;
}

using Line = std::string CloudHeader::*;

}  // namespace

TEST(PointCloudHeader, WholeHeaderLoads) {
    const auto cloud = test::loadBytes(test::joined(CloudHeader(2).bytes(), body()));
    EXPECT_TRUE(cloud.isLoaded);
    EXPECT_EQ(test::values(cloud.points), (std::vector<double>{1, 2, 3, 4, 5, 6}));
}

TEST(PointCloudHeader, EachLineIsNeededThoughNothingElseIsWrong) {
    for (const Line line : {&CloudHeader::fields, &CloudHeader::size, &CloudHeader::type,
                            &CloudHeader::count, &CloudHeader::width, &CloudHeader::height,
                            &CloudHeader::viewpoint, &CloudHeader::points, &CloudHeader::data}) {
        CloudHeader header = CloudHeader(0).kind("ascii");
        const std::string without = header.*line;
        // A SIZE line of other than a word for each field would stop the process.
        if (line == &CloudHeader::fields) header.size = "SIZE";
        (header.*line).clear();
        EXPECT_FALSE(test::loadBytes(header.bytes()).isLoaded) << without;
    }
}

TEST(PointCloudHeader, CloudOfNoPointsNeedsNoBody) {
    EXPECT_TRUE(test::loadBytes(CloudHeader(0).kind("ascii").bytes()).isLoaded);
}

TEST(PointCloudHeader, VersionLineIsNotNeeded) {
    CloudHeader header(2);
    header.version.clear();
    EXPECT_TRUE(loads(header));
}

TEST(PointCloudHeader, FieldNamedXIsNeeded) {
    CloudHeader header(2);
    header.fields = "FIELDS a b c";
    EXPECT_FALSE(loads(header));
}

TEST(PointCloudHeader, OrderOfTheLinesBehindTheFieldsDoesNotMatter) {
    CloudHeader header(2);
    std::swap(header.size, header.points);
    std::swap(header.type, header.viewpoint);
    EXPECT_TRUE(loads(header));
}

TEST(PointCloudHeader, CarriageReturnsDoNotMatter) {
    Bytes text;
    for (const unsigned char byte : CloudHeader(2).bytes()) {
        if (byte == '\n') text.push_back('\r');
        text.push_back(byte);
    }
    EXPECT_TRUE(test::loadBytes(test::joined(text, body())).isLoaded);
}

TEST(PointCloudHeader, WidthTimesHeightMustBeThePoints) {
    CloudHeader header(2);
    header.width = "WIDTH 10";
    header.points = "POINTS 9";
    EXPECT_FALSE(loads(header));
    header.height = "HEIGHT 2";
    header.width = "WIDTH 1";
    header.points = "POINTS 2";
    EXPECT_TRUE(loads(header));
}

TEST(PointCloudHeader, AreaIsNotTakenModulo32Bits) {
    CloudHeader header(0);
    header.width = "WIDTH 65536";
    header.height = "HEIGHT 65536";
    EXPECT_FALSE(loads(header.kind("ascii")));
    header.width = "WIDTH 2147483647";
    header.height = "HEIGHT 2147483647";
    header.points = "POINTS 1";
    EXPECT_FALSE(loads(header));
}

TEST(PointCloudHeader, TwoNegativeNumbersAreNoArea) {
    CloudHeader header(2);
    header.width = "WIDTH -2";
    header.height = "HEIGHT -1";
    EXPECT_FALSE(loads(header));
}

TEST(PointCloudHeader, NegativePointsAreRefused) {
    EXPECT_FALSE(loads(CloudHeader(-2)));
    EXPECT_FALSE(loads(CloudHeader(-2).kind("ascii")));
    EXPECT_FALSE(loads(CloudHeader(-2).kind("binary")));
}

TEST(PointCloudHeader, NegativeSizeOrCountIsRefusedEvenWhereItIsNotConsulted) {
    const auto header = [](const char* sizes, const char* counts) {
        return CloudHeader(2).columns("x y z", sizes, "F F F", counts).kind("ascii");
    };
    EXPECT_TRUE(loads(header("8 8 0", "1 1 0")));
    EXPECT_FALSE(loads(header("8 8 -8", "1 1 1")));
    EXPECT_FALSE(loads(header("8 8 8", "1 1 -1")));
}

TEST(PointCloudHeader, TypeLineMayComeBeforeTheFields) {
    CloudHeader header(2);
    std::swap(header.version, header.type);
    EXPECT_TRUE(loads(header));
}

TEST(PointCloudHeader, CountLineBeforeTheFieldsGivesThemNoValues) {
    CloudHeader header(2);
    std::swap(header.version, header.count);
    EXPECT_FALSE(loads(header));
    EXPECT_TRUE(loads(header.kind("ascii")));
}

TEST(PointCloudHeader, NegativePointsAreNotMadeGoodByALaterLine) {
    CloudHeader header(2);
    header.version = "POINTS -1";
    EXPECT_FALSE(loads(header));
    header.version = "POINTS 1";
    EXPECT_TRUE(loads(header));
}

TEST(PointCloudHeader, TypeLineMayBeShort) {
    CloudHeader header(2);
    header.type = "TYPE F F";
    EXPECT_TRUE(loads(header));
}

TEST(PointCloudHeader, MoreThan14FieldsAreRefused) {
    EXPECT_FALSE(loads(CloudHeader(2).columns("x y z a b c d e f g h i j k l",
                                              "8 8 8 8 8 8 8 8 8 8 8 8 8 8 8", "F",
                                              "1 1 1 1 1 1 1 1 1 1 1 1 1 1 1")));
}

TEST(PointCloudHeader, GroupThatLacksColumnsIsRefusedWhateverIsWanted) {
    const CloudHeader header =
        CloudHeader(2).columns("x y z nx ny", "8 8 8 8 8", "F F F F F", "1 1 1 1 1");
    EXPECT_FALSE(test::loadBytes(header.bytes(), false, false).isLoaded);
    EXPECT_FALSE(test::loadBytes(CloudHeader(header).kind("ascii").bytes()).isLoaded);
}

TEST(PointCloudHeader, WordOf33CharactersStopsTheProcess) {
    CloudHeader header(2);
    header.version = std::string(33, 'v');
    EXPECT_DEATH(loads(header),
                 test::stopText("fileIO.cpp", 181, "void pcdReadLine(FILE*, PcdLine&)",
                                "wordLength <= line.maxWordSize"));
}

TEST(PointCloudHeader, LineOf62WordsStopsTheProcess) {
    CloudHeader header(2);
    header.version = std::string(61, ' ');
    EXPECT_DEATH(loads(header),
                 test::stopText("fileIO.cpp", 182, "void pcdReadLine(FILE*, PcdLine&)",
                                "line.numWords <= line.maxNumWords"));
}

TEST(PointCloudHeader, ShortSizeLineStopsTheProcess) {
    CloudHeader header(2);
    header.size = "SIZE 8 8";
    EXPECT_DEATH(loads(header),
                 test::stopText("fileIO.cpp", 219, "void pcdReadSize(PcdLine&, PcdHeader&)",
                                "line.numWords == header.numFields + 1"));
}

TEST(PointCloudHeader, NullPathIsRefused) {
    ZyrVector3dArray points, normals;
    cv::Mat colors;
    EXPECT_FALSE(Zyr3DFileIO::LoadPointCloud(points, normals, colors, nullptr, true, true));
}

TEST(PointCloudHeader, FileThatCannotBeOpenedIsRefused) {
    const test::TempFolder folder;
    EXPECT_FALSE(test::loadFile(folder.path("none.zpt"), true, true).isLoaded);
    EXPECT_FALSE(test::loadFile("", true, true).isLoaded);
}

TEST(PointCloudHeader, FolderIsRefused) {
    const test::TempFolder folder;
    EXPECT_FALSE(test::loadFile(folder.path(""), true, true).isLoaded);
}

TEST(PointCloudHeader, EmptyFileIsRefused) {
    EXPECT_FALSE(test::loadBytes({}).isLoaded);
}

TEST(PointCloudHeader, WhateverBytesAreRefused) {
    EXPECT_FALSE(test::loadBytes(Bytes(100, 0)).isLoaded);
    EXPECT_FALSE(test::loadBytes({0xFF, 0xD8, 0xFF, 0xE0, '\n', 0x00, 0x10}).isLoaded);
}
