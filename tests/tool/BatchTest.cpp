#include <unistd.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "Printable.h"
#include "Program.h"
#include "support/Sanitizer.h"

namespace {

class BatchOfFiles : public test::Tool {
protected:
    /// So many copies of golden files of different sizes, by their number.
    std::string makeFiles(int count) const {
        std::string names;
        for (int i = 0; i < count; ++i) {
            const std::string name = std::to_string(i) + ".zrt";
            std::filesystem::copy_file(i % 2 == 0 ? ZYR_GOLDEN_DIR "/rangeimage/type2.zrt"
                                                  : ZYR_GOLDEN_DIR "/rangeimage/references.zrt",
                                       path(name));
            names += " " + name;
        }
        return names;
    }

    /// With the program as $zyr3d; standard output stays as the text leaves it.
    test::Result runInShell(const std::string& text) const {
        const std::string command =
            "cd " + path(".") + " && zyr3d=" ZYR_TOOL "; { " + text + "; } 2>err.txt";
        const int status = std::system(command.c_str());
        return {WEXITSTATUS(status), "", test::readText(path("err.txt"))};
    }
};

TEST_F(BatchOfFiles, OutputIsTheSameHoweverManyAreWorkedOnAtOnce) {
    const std::string names = makeFiles(60) + " none.zrt";
    const test::Result one = run("info" + names), many = run("info -j 8" + names);
    EXPECT_EQ(one.exitCode, 3);
    EXPECT_EQ(many.exitCode, 3);
    EXPECT_EQ(many.out, one.out);
    EXPECT_EQ(many.err, one.err);
}

TEST_F(BatchOfFiles, BadFileDoesNotStopTheOthers) {
    const std::string names = makeFiles(3);
    const test::Result result = run("info none.zrt" + names);
    expectTrouble(result, 3, "none.zrt: no such file");
    EXPECT_NE(result.out.find("2.zrt\n"), std::string::npos);
}

TEST_F(BatchOfFiles, ManyMoreFilesThanDescriptorsAreFine) {
    const std::string names = makeFiles(100);
    EXPECT_EQ(run("info -j 2" + names, "ulimit -n 20").exitCode, 0);
    EXPECT_EQ(run("check -j 2" + names, "ulimit -n 20").exitCode, 0);
    EXPECT_EQ(run("diff 0.zrt 2.zrt", "ulimit -n 20").exitCode, 0);
}

// Three are standard streams, and one is the file's that is written, if it isn't taken already.
TEST_F(BatchOfFiles, WantOfDescriptorsIsToldWithTheFile) {
    if (test::hasSanitizer()) GTEST_SKIP() << "the sanitizer needs descriptors of its own";
    test::writeText(path("in.xyz"), "1 2 3\n");
    cv::imwrite(path("in.png"), cv::Mat(8, 8, CV_16UC1, cv::Scalar(7)));
    const std::string why = ": cannot be written: Too many open files";
    expectTrouble(runInShell("(exec 3>&-; ulimit -n 4; exec $zyr3d convert in.xyz o.zpt)"), 3,
                  "o.zpt" + why);
    expectTrouble(runInShell("(exec 3>&-; ulimit -n 4; exec $zyr3d demo in.png)"), 3,
                  "demo.zpt" + why);
}

TEST_F(BatchOfFiles, FullOutputIsOneLineAndFileTrouble) {
    makeFiles(2);
    std::filesystem::copy_file(ZYR_GOLDEN_DIR "/pointcloud/points.zpt", path("0.zpt"));
    for (const std::string command :
         {"info 0.zrt 1.zrt", "check 0.zrt 1.zrt", "diff 0.zrt 1.zrt", "convert 0.zrt o.npy",
          "demo 0.zpt", "--help", "--version", "info --help"})
        expectTrouble(runInShell("$zyr3d " + command + " >/dev/full"), 3,
                      "standard output: No space left on device");
}

TEST_F(BatchOfFiles, ClosedOutputIsFileTrouble) {
    makeFiles(1);
    std::filesystem::copy_file(ZYR_GOLDEN_DIR "/pointcloud/points.zpt", path("0.zpt"));
    for (const std::string command : {"info 0.zrt", "convert 0.zrt o.npy", "demo 0.zpt"})
        expectTrouble(runInShell("$zyr3d " + command + " >&-"), 3,
                      "standard output: Bad file descriptor");
}

TEST_F(BatchOfFiles, ReaderThatGoesAwayEndsTheWorkQuietly) {
    const std::string names = makeFiles(20);
    for (const std::string& command : {"info" + names, std::string("--help")}) {
        const test::Result result =
            runInShell("{ sleep 0.2; $zyr3d " + command + "; echo $? >&2; } | true");
        EXPECT_EQ(result.err, "3\n") << command;
    }
}

TEST_F(BatchOfFiles, FileLargerThanAllMemoryIsFileTroubleAndTakesNone) {
    if (test::hasSanitizer()) GTEST_SKIP() << "the sanitizer ends who asks for so much";
    // Sparse, with a good header and body in front.
    std::filesystem::copy_file(ZYR_GOLDEN_DIR "/pointcloud/points.zpt", path("big.zpt"));
    std::filesystem::copy_file(ZYR_GOLDEN_DIR "/pointcloud/points.zpt", path("0.zpt"));
    if (truncate(path("big.zpt").c_str(), off_t(1) << 43) != 0) GTEST_SKIP() << "not here";
    for (const char* command : {"info", "check", "diff 0.zpt"})
        expectTrouble(run(std::string(command) + " big.zpt"), 3, "out of memory");
    expectTrouble(run("convert big.zpt o.ply"), 3, "big.zpt: needs more memory");
}

TEST_F(BatchOfFiles, WantOfMemoryIsFileTrouble) {
    if (test::hasSanitizer()) GTEST_SKIP() << "the sanitizer takes more memory than is left here";
    // A sparse file of a gigabyte.
    const std::string make = "truncate -s 1G big.zrt; cp " ZYR_GOLDEN_DIR "/rangeimage/type0.zrt .";
    for (const char* command : {"info", "check", "diff type0.zrt"})
        expectTrouble(run(std::string(command) + " big.zrt", make + "; ulimit -v 800000"), 3,
                      "out of memory");
    for (const char* command : {"convert big.zrt o.npy", "render big.zrt o.png"})
        expectTrouble(run(command, make + "; ulimit -v 800000"), 3, "big.zrt: needs more memory");
    EXPECT_EQ(run("info --json big.zrt", make + "; ulimit -v 800000").out,
              "{\"file\":\"big.zrt\",\"error\":\"big.zrt: out of memory\"}\n");
}

/// The program as one to whom something is forbidden, also where the superuser runs the tests.
class Rights : public BatchOfFiles {
protected:
    void SetUp() override {
        limit("", 0711);
        if (runLimited("--version").exitCode != 0) GTEST_SKIP() << "nobody else reaches " ZYR_TOOL;
        makeFiles(2);
        std::filesystem::copy_file(ZYR_GOLDEN_DIR "/pointcloud/points.zpt", path("0.zpt"));
    }

    void limit(const std::string& name, int rights) const {
        std::filesystem::permissions(path(name), static_cast<std::filesystem::perms>(rights));
    }

    test::Result runLimited(const std::string& arguments) const {
        return runInShell(kWho + ("$zyr3d " + arguments) + " >/dev/null");
    }

private:
    const std::string kWho =
        geteuid() == 0 ? "setpriv --reuid 65534 --regid 65534 --clear-groups " : "";
};

TEST_F(Rights, FileThatMayNotBeReadIsFileTrouble) {
    for (const std::string name : {"0.zrt", "0.zpt"}) {
        limit(name, 0);
        for (const std::string command : {"info", "check", "diff 1.zrt"})
            expectTrouble(runLimited(command + " " + name), 3, name + ": Permission denied");
        expectTrouble(runLimited("convert " + name + " o.csv"), 3, name + ": Permission denied");
        expectTrouble(runLimited("render " + name + " o.png"), 3, name + ": Permission denied");
    }
    expectTrouble(runLimited("demo 0.zpt"), 3, "0.zpt: Permission denied");
}

// Whether the library writes the file or the program.
TEST_F(Rights, FileThatMayNotBeWrittenIsNotReplaced) {
    limit("", 0777);
    for (const std::string name : {"o.zpt", "o.csv"}) {
        test::writeText(path(name), "precious");
        limit(name, 0444);
        expectTrouble(runLimited("convert 0.zpt " + name), 3,
                      name + ": cannot be written: Permission denied");
        EXPECT_EQ(test::readText(path(name)), "precious");
    }
}

TEST_F(Rights, FolderThatMayNotBeWrittenIsFileTrouble) {
    std::filesystem::create_directory(path("d"));
    limit("d", 0555);
    const auto expectDenied = [&](const std::string& command, const std::string& file) {
        expectTrouble(runLimited(command), 3, file + ": cannot be written: Permission denied");
    };
    expectDenied("convert 0.zpt d/o.csv", "d/o.csv");
    expectDenied("render 0.zpt d/o.png", "d/o.png");
    expectDenied("demo 0.zpt -o d", "d/demo.zpt");
}

// A sparse file of a gigabyte without a header.
TEST_F(BatchOfFiles, FileWithoutHeaderIsNotReadWhole) {
    if (test::hasSanitizer()) GTEST_SKIP() << "the sanitizer needs the address space";
    test::writeText(path("big.zpt"), "x");
    std::filesystem::resize_file(path("big.zpt"), 1 << 30);
    const test::Result result = run("check big.zpt", "ulimit -v 700000");
    EXPECT_EQ(result.exitCode, 1) << result.out << result.err;
}

TEST_F(BatchOfFiles, NumberAtOnceHasBounds) {
    makeFiles(1);
    EXPECT_EQ(run("info -j 256 0.zrt").exitCode, 0);
    for (const char* wrong : {"0", "257", "x", "-1"})
        expectTrouble(run(std::string("info 0.zrt -j ") + wrong), 2, "--jobs");
}

/// Standard error is a terminal here, as `script` makes one.
TEST_F(BatchOfFiles, BarAppearsOnATerminalAfterASecondAndGoesAway) {
    if (std::system("command -v script >/dev/null") != 0) GTEST_SKIP() << "no script(1)";
    // Eight pictures of 64 megapixels take more than a second.
    cv::imwrite(path("big.png"), cv::Mat(8000, 8000, CV_8UC1, cv::Scalar(0)));
    const std::string program = ZYR_TOOL, big = " big.png big.png big.png big.png";
    const auto inTerminal = [&](const std::string& files, const std::string& into) {
        const std::string command = "script -qc '" + program + " check" + files + "' " + into;
        ASSERT_EQ(std::system(("cd " + path(".") + " && " + command + " >/dev/null").c_str()), 0);
    };
    inTerminal(" none.zrt", "quick.txt");
    inTerminal(big + big, "slow.txt");
    const std::string slow = test::readText(path("slow.txt"));
    EXPECT_EQ(test::readText(path("quick.txt")).find(" of 1, "), std::string::npos);
    EXPECT_NE(slow.find(" of 8, 1 s"), std::string::npos) << slow;
    EXPECT_GT(slow.rfind("\r\x1b[K"), slow.rfind(" of 8, ")) << slow;
}

TEST_F(BatchOfFiles, JsonHasALineForEachFile) {
    const std::string names = makeFiles(4);
    const test::Result result = run("info --json -j 4 none.zrt" + names);
    EXPECT_EQ(result.exitCode, 3);
    std::istringstream lines(result.out);
    std::vector<nlohmann::json> all;
    for (std::string line; std::getline(lines, line);) all.push_back(nlohmann::json::parse(line));
    ASSERT_EQ(all.size(), 5u);
    EXPECT_EQ(all[0]["error"], "none.zrt: no such file");
    EXPECT_EQ(all[1]["file"], "0.zrt");
    EXPECT_EQ(all[1]["kind"], "range image");
    EXPECT_EQ(all[1]["size"], nlohmann::json({3, 2}));
    EXPECT_EQ(all[1]["values"], nlohmann::json({0.0, 65535.0}));
    EXPECT_EQ(all[1]["resolution"], nlohmann::json({0.5, 0.25, 0.01}));
    EXPECT_EQ(all[2]["bytes_raw"], 1800);
}

TEST_F(BatchOfFiles, NamesOfAnyBytesDoNotSpoilTheOutput) {
    const std::string name = "a\x1b[31m\xff\".zrt";
    std::filesystem::copy_file(ZYR_GOLDEN_DIR "/rangeimage/type0.zrt", path(name));
    EXPECT_EQ(run("info *.zrt").out.find('\x1b'), std::string::npos);
    const nlohmann::json json = nlohmann::json::parse(run("info --json *.zrt").out);
    EXPECT_EQ(json["file"], "a\x1b[31m\xEF\xBF\xBD\".zrt");
    std::filesystem::copy_file(ZYR_GOLDEN_DIR "/pointcloud/points.zpt", path("b\nc\x1b[31m.zpt"));
    const test::Result demo = run("demo *.zpt -o 'd\ne\x1b[31m'");
    EXPECT_EQ(demo.exitCode, 0) << demo.err;
    EXPECT_EQ(demo.out.find('\x1b'), std::string::npos) << demo.out;
    EXPECT_NE(demo.out.find("b?c?[31m.zpt, "), std::string::npos) << demo.out;
    EXPECT_NE(demo.out.find("Written: d?e?[31m/demo.zpt, d?e?"), std::string::npos) << demo.out;
}

TEST_F(BatchOfFiles, NamesOfAnyBytesLeaveTroubleOneLine) {
    makeFiles(1);
    const std::string bad = " 'a\nb\x1b[31m\xC2\x9B\xff\xC3\xA4.zrt'",
                      shown = "a?b?[31m??\xC3\xA4.zrt";
    for (const std::string command : {"info", "check", "diff 0.zrt"})
        expectTrouble(run(command + bad), 3, "zyr3d: " + shown + ": no such file\n");
    for (const std::string& line :
         {"convert" + bad + " o.npy", "convert 0.zrt none/" + bad.substr(1), "demo" + bad,
          "render" + bad + " o.png", "render 0.zrt none/" + bad.substr(1) + ".png"})
        expectTrouble(run(line), 3, shown);
    expectTrouble(run(bad), 2, "zyr3d: " + shown + ": no such subcommand");
    EXPECT_EQ(run("diff 0.zrt" + bad).err.find('\x1b'), std::string::npos);
}

TEST(Printable, ReplacesControlCharactersAndBytesThatAreNoUtf8) {
    for (const auto& [bytes, shown] : std::vector<std::pair<std::string, const char*>>{
             {"a b~", "a b~"},
             {std::string("\0\n\t\r\x1b\x1f\x7f", 7), "???????"},
             {"\xC2\x80 \xC2\x9B \xC2\x9F", "? ? ?"},
             // The first that is shown, and the ends of what has two, three and four bytes.
             {"\xC2\xA0", "\xC2\xA0"},
             {"\xDF\xBF\xE0\xA0\x80", "\xDF\xBF\xE0\xA0\x80"},
             {"\xED\x9F\xBF\xEE\x80\x80", "\xED\x9F\xBF\xEE\x80\x80"},
             {"\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"},
             // A byte alone, and characters that are cut, too long, halves of pairs, or beyond all.
             {"\x9Bx\xFFx\xFE", "?x?x?"},
             {"\xC3", "?"},
             {"\xE2\x82x", "??x"},
             {"\xC1\xBFx\xE0\x9F\xBFx\xF0\x8F\xBF\xBF", "??x???x????"},
             {"\xED\xA0\x80", "???"},
             {"\xF4\x90\x80\x80x\xF5\x80\x80\x80", "????x????"}})
        EXPECT_EQ(zyr::printable(bytes), shown);
}

}  // namespace
