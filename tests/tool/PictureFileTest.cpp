#include "ConvertCommand.h"

// Pictures of strangers: those that are torn, and those whose decoders would not tell.

namespace {

class PictureFiles : public test::ConvertCommand {
protected:
    /// Bytes that no codec makes small.
    std::string picture(const std::string& suffix, const std::vector<int>& how = {}) const {
        cv::Mat noise(64, 80, CV_8UC1);
        cv::theRNG().state = 7;
        cv::randu(noise, 0, 256);
        cv::imwrite(path("whole." + suffix), noise, how);
        return test::readText(path("whole." + suffix));
    }

    void expectRefused(const std::string& name, const std::string& why) const {
        const std::string text = name + ": " + why;
        for (const std::string& line :
             {"convert " + name + " out.npy", "info " + name, "render " + name + " out.png",
              "diff " + name + " " + name, "demo depth.png -o d --color " + name})
            expectTrouble(run(line), 3, text);
        for (const char* out : {"out.npy", "out.png", "d/demo.zpt"})
            EXPECT_FALSE(std::filesystem::exists(path(out))) << out;
    }
};

TEST_F(PictureFiles, CutOnesAreFileTroubleForAllThatReadThem) {
    cv::imwrite(path("depth.png"), cv::Mat(64, 80, CV_16UC1, cv::Scalar(900)));
    const std::string jpeg = picture("jpg");
    for (const std::size_t size : {std::size_t(400), jpeg.size() / 2, jpeg.size() - 2}) {
        test::writeText(path("cut.jpg"), jpeg.substr(0, size));
        expectRefused("cut.jpg", "cut short: no end mark");
    }
    for (const std::string suffix : {"png", "bmp", "tif"}) {
        const std::string bytes = picture(suffix);
        test::writeText(path("cut." + suffix), bytes.substr(0, bytes.size() / 2));
        expectRefused("cut." + suffix, "not a picture that can be read");
    }
}

TEST_F(PictureFiles, JpegsEndAtTheirOwnMark) {
    const std::string jpeg = picture("jpg"), marks = "\xFF\xD8\xFF\xD9";
    // A segment as cameras put their small picture into.
    const std::string small = std::string("\xFF\xE1\0\x06", 4) + marks;
    const std::string inside = jpeg.substr(0, 2) + small + jpeg.substr(2);
    test::writeText(path("whole.jpg"), inside);
    EXPECT_EQ(say("whole.jpg a.npy"), "whole.jpg -> a.npy: 80 x 64 values\n");
    test::writeText(path("cut.jpg"), inside.substr(0, inside.size() - 2));
    expectTrouble(run("convert cut.jpg b.npy"), 3, "cut.jpg: cut short: no end mark");
}

TEST_F(PictureFiles, JpegsWithBytesBehindAreRead) {
    test::writeText(path("more.jpg"), picture("jpg") + "junk\xFF");
    EXPECT_EQ(say("more.jpg a.npy"), "more.jpg -> a.npy: 80 x 64 values\n");
}

TEST_F(PictureFiles, JpegsOfAllLayoutsAreWhole) {
    for (const std::vector<int>& how :
         {std::vector<int>{cv::IMWRITE_JPEG_PROGRESSIVE, 1}, {cv::IMWRITE_JPEG_RST_INTERVAL, 3}}) {
        picture("jpg", how);
        const test::Result result = run("check whole.jpg");
        EXPECT_EQ(result.out.rfind("whole.jpg: valid: picture, 80 x 64", 0), 0u) << result.out;
    }
}

TEST_F(PictureFiles, OtherKindsAreRefusedWhateverTheSuffixSays) {
    for (const std::string suffix : {"pgm", "jp2", "ras"}) {
        test::writeText(path("in.png"), picture(suffix));
        expectTrouble(run("convert in.png out.npy"), 3, "in.png: not a picture that can be read");
    }
    test::writeText(path("in.png"), picture("bmp"));
    EXPECT_EQ(say("in.png out.npy"), "in.png -> out.npy: 80 x 64 values\n");
}

/// A number in as many bytes as it has in a file.
std::string number(std::uint64_t value, int size, bool isBigEndian) {
    std::string bytes;
    for (int i = 0; i < size; ++i) bytes += static_cast<char>(value >> 8 * i);
    return isBigEndian ? std::string(bytes.rbegin(), bytes.rend()) : bytes;
}

/// 4 x 3 values whose directory is at byte 32, by 64-bit offsets.
std::string wideTiff(bool isBigEndian) {
    const auto as = [&](std::uint64_t value, int size) { return number(value, size, isBigEndian); };
    std::string bytes = (isBigEndian ? "MM" : "II") + as(43, 2) + as(8, 2) + as(0, 2) + as(32, 8);
    for (int i = 0; i < 12; ++i) bytes += static_cast<char>(i);
    bytes.resize(32);
    const std::uint64_t fields[][2] = {{256, 4},  {257, 3}, {258, 8}, {259, 1}, {262, 1},
                                       {273, 16}, {277, 1}, {278, 3}, {279, 12}};
    bytes += as(9, 8);
    for (const auto& [tag, value] : fields)
        bytes += as(tag, 2) + as(16, 2) + as(1, 8) + as(value, 8);
    return bytes + as(0, 8);
}

TEST_F(PictureFiles, TiffsOf64BitsAreReadAndChecked) {
    for (const bool isBigEndian : {false, true}) {
        test::writeText(path("wide.tif"), wideTiff(isBigEndian));
        EXPECT_EQ(run("check wide.tif").out, "wide.tif: valid: picture, 4 x 3, 0 holes\n");
        EXPECT_EQ(say("wide.tif a.npy"), "wide.tif -> a.npy: 4 x 3 values\n");
        test::writeText(path("cut.tif"), wideTiff(isBigEndian).substr(0, 15));
        EXPECT_EQ(run("check cut.tif").out,
                  "cut.tif: invalid at byte 15: cut short: no whole header\n");
        test::writeText(path("cut.tif"), wideTiff(isBigEndian).substr(0, 32));
        EXPECT_EQ(run("check cut.tif").out,
                  "cut.tif: invalid at byte 32: cut short: its directory is at byte 32\n");
    }
}

}  // namespace
