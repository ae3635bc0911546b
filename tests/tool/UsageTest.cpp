#include "Program.h"

namespace {

class Usage : public test::Tool {};

TEST_F(Usage, HelpOfEachSubcommandIsGood) {
    EXPECT_NE(run("--help").out.find("demo"), std::string::npos);
    EXPECT_NE(run("demo --help").out.find("--depth-scale"), std::string::npos);
    EXPECT_NE(run("info --help").out.find("FILE"), std::string::npos);
    EXPECT_EQ(run("--help").exitCode, 0);
    EXPECT_EQ(run("demo --help").exitCode, 0);
    EXPECT_EQ(run("info --help").exitCode, 0);
}

TEST_F(Usage, VersionIsPrinted) {
    const test::Result result = run("--version");
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out, "zyr3d 3.0.0\n");
}

TEST_F(Usage, WrongArgumentsAreUsageErrors) {
    expectTrouble(run(""), 2, "subcommand");
    expectTrouble(run("other"), 2, "");
    expectTrouble(run("info"), 2, "FILE");
    expectTrouble(run("demo --other"), 2, "--other");
    expectTrouble(run("demo a.png b.png"), 2, "b.png");
}

}  // namespace
