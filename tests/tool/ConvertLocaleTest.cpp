#include <clocale>

#include "ConvertCommand.h"
#include "support/Locales.h"
#include "support/Sanitizer.h"
#include "support/ScopedVariable.h"

// Decimal commas, thousands' dots and the Turkish i change nothing of what is read and written.

namespace {

/// Under a locale that the test compiles for itself.
class ConvertUnderLocale : public test::ConvertCommand,
                           public testing::WithParamInterface<test::LocaleName> {
protected:
    void SetUp() override {
        ConvertCommand::SetUp();
        if (test::hasSanitizer())
            GTEST_SKIP() << "the C library never frees what LOCPATH makes it take";
        if (!test::makeLocale(path(""), GetParam()) ||
            std::setlocale(LC_ALL, name_.c_str()) == nullptr)
            GTEST_SKIP() << "no " << name_ << "; Debian's package locales has it";
        ASSERT_STREQ(std::localeconv()->decimal_point, ",");
        std::setlocale(LC_ALL, "C");
        test::writeText(path("in.csv"), "x,y,z\n0.5,-1234567.25,1e-310\n2,3,4.75\n");
    }
    void TearDown() override {
        std::setlocale(LC_ALL, "C");
        ConvertCommand::TearDown();
    }

    /// Here, and by the program where that is wanted, which takes longer.
    void convertUnderLocale(const std::string& words, bool isProgram) const {
        std::setlocale(LC_ALL, name_.c_str());
        say(words);
        std::setlocale(LC_ALL, "C");
        if (!isProgram) return;
        const test::Result result = runUnderLocale("convert " + words);
        EXPECT_EQ(result.exitCode, 0) << words << result.err;
    }

    void expectSameText(const std::string& suffix) const {
        const std::string exact = " --ascii --double", plain = "plain." + suffix;
        const bool isProgram = suffix == "ply";
        say("in.csv " + plain + exact);
        convertUnderLocale("in.csv other." + suffix + exact, isProgram);
        convertUnderLocale(plain + " back.csv" + exact, isProgram);
        EXPECT_TRUE(test::isThere(test::readText(path(plain)), "-1234567.25")) << suffix;
        EXPECT_EQ(test::readText(path("other." + suffix)), test::readText(path(plain)));
        EXPECT_EQ(test::readText(path("back.csv")), test::readText(path("in.csv"))) << suffix;
    }

    /// The name has a byte that is a letter in some encodings alone.
    void expectSameFiles(const std::string& suffix) const {
        const std::string name = "h\xF6he." + suffix;
        const std::string in = suffix == "ZPT" ? "in.csv" : "in.png";
        const bool isProgram = suffix == "Tif";
        say(in + " plain." + suffix);
        convertUnderLocale(in + " " + name, isProgram);
        convertUnderLocale(name + " back." + suffix, isProgram);
        for (const std::string& each : {name, "back." + suffix})
            EXPECT_EQ(test::readText(path(each)), test::readText(path("plain." + suffix))) << each;
    }

    test::Result runUnderLocale(const std::string& line) const {
        return run(line, "export LC_ALL=" + name_);
    }

    const std::string name_ = GetParam().name();
    const test::ScopedVariable folder_{"LOCPATH", path("").c_str()};
};

TEST_P(ConvertUnderLocale, TextHasTheSameBytesAndReadsAsTheSameNumbers) {
    for (const char* suffix : {"csv", "xyz", "obj", "ply", "pcd"}) expectSameText(suffix);
}

// The Turkish i has another capital.
TEST_P(ConvertUnderLocale, SuffixesAndNamesLeadToTheSameFiles) {
    cv::imwrite(path("in.png"), cv::Mat(2, 2, CV_16UC1, cv::Scalar(7)));
    for (const char* suffix : {"ZPT", "Zrt", "TIF", "tiff", "Tif", "PNG"}) expectSameFiles(suffix);
}

TEST_P(ConvertUnderLocale, WhatIsToldOfFilesIsTheSame) {
    say("in.csv a.zpt");
    test::writeText(path("other.csv"), "x,y,z\n0.25,-1234567,1e-310\n2,3,4.75\n");
    for (const std::string line :
         {"info a.zpt in.csv", "info --json a.zpt", "check a.zpt in.csv", "diff in.csv other.csv",
          "diff a.zpt other.csv --tolerance 0.26"}) {
        const test::Result plain = run(line), other = runUnderLocale(line);
        EXPECT_EQ(other.out, plain.out);
        EXPECT_EQ(other.err, plain.err);
        EXPECT_EQ(other.exitCode, plain.exitCode) << line;
        EXPECT_NE(plain.exitCode, 2) << plain.err;
    }
}

TEST_P(ConvertUnderLocale, WhatIsDrawnAndWrittenIsTheSame) {
    cv::imwrite(path("depth.png"), cv::Mat(12, 16, CV_16UC1, cv::Scalar(700)));
    const std::string options = " --fx 17.5 --depth-scale 0.25";
    EXPECT_EQ(run("demo depth.png -o plain" + options).exitCode, 0);
    EXPECT_EQ(runUnderLocale("demo depth.png -o other" + options).exitCode, 0);
    EXPECT_EQ(run("render plain/demo.zpt plain/drawn.png").exitCode, 0);
    EXPECT_EQ(runUnderLocale("render plain/demo.zpt other/drawn.png").exitCode, 0);
    for (const std::string name :
         {"demo.zpt", "demo.ztmt", "demo.zrt", "demo_range.png", "demo.png", "drawn.png"})
        EXPECT_EQ(test::readText(path("other/" + name)), test::readText(path("plain/" + name)))
            << name;
}

INSTANTIATE_TEST_SUITE_P(Names, ConvertUnderLocale, testing::ValuesIn(test::localeNames()));

}  // namespace
