#include <regex>
#include <set>
#include <sstream>

#include "Program.h"

namespace {

using Words = std::set<std::string>;

Words matches(const std::string& text, const std::string& pattern) {
    const std::regex regex(pattern);
    return {std::sregex_token_iterator(text.begin(), text.end(), regex), {}};
}

/// The options in the page's list of them.
Words optionsOfPage(const std::string& page) {
    const std::string text = test::readText(ZYR_GOLDEN_DIR "/../../docs/man/" + page + ".1");
    const std::size_t start = text.find(".SH OPTIONS\n");
    if (start == std::string::npos) return {"no list of options in " + page + ".1"};
    std::string list = text.substr(start, text.find("\n.SH ", start + 1) - start);
    list = std::regex_replace(list, std::regex("\\\\f[BIP]"), "");
    list.erase(std::remove(list.begin(), list.end(), '\\'), list.end());
    return matches(list, "--[a-z][a-z-]*");
}

class Usage : public test::Tool {
protected:
    Words optionsOfHelp(const std::string& subcommand) const {
        return matches(run(subcommand + " --help").out, "--[a-z][a-z-]*");
    }

    /// The first words of the lines behind a heading.
    Words subcommands() const {
        const std::string help = run("--help").out;
        std::istringstream lines(help.substr(help.find("Subcommands:\n") + 13));
        Words names;
        for (std::string line; std::getline(lines, line) && line.rfind("  ", 0) == 0;)
            names.insert(line.substr(2, line.find(' ', 2) - 2));
        return names;
    }
};

TEST_F(Usage, HelpOfEachSubcommandIsGood) {
    EXPECT_EQ(run("--help").exitCode, 0);
    for (const std::string& name : subcommands()) {
        const test::Result help = run(name + " --help");
        EXPECT_EQ(help.exitCode, 0) << name;
        EXPECT_NE(help.out.find("Usage: zyr3d " + name), std::string::npos) << help.out;
    }
}

TEST_F(Usage, EverySubcommandHasAPageWithAllItsOptions) {
    EXPECT_EQ(optionsOfPage("zyr3d"), optionsOfHelp(""));
    EXPECT_GE(subcommands().size(), 4u);
    for (const std::string& name : subcommands())
        EXPECT_EQ(optionsOfPage("zyr3d-" + name), optionsOfHelp(name)) << name;
}

TEST_F(Usage, HelpAndPageStateTheSameExitCodes) {
    for (const std::string& name : subcommands()) {
        const std::string help = run(name + " --help").out;
        const std::string page =
            test::readText(ZYR_GOLDEN_DIR "/../../docs/man/zyr3d-" + name + ".1");
        const std::size_t footer = help.find("Exit codes:"), list = page.find(".SH EXIT STATUS");
        ASSERT_NE(footer, std::string::npos) << help;
        ASSERT_NE(list, std::string::npos) << name;
        Words codes;
        for (const std::string& item : matches(page.substr(list), "\\n\\.B [0-9]\n"))
            codes.insert(item.substr(4, 1));
        EXPECT_EQ(matches(help.substr(footer), "[0-9]"), codes) << name;
    }
}

TEST_F(Usage, PageOfTheProgramNamesEverySubcommand) {
    const std::string page = test::readText(ZYR_GOLDEN_DIR "/../../docs/man/zyr3d.1");
    for (const std::string& name : subcommands())
        EXPECT_NE(page.find(".BR zyr3d\\-" + name + " (1)\n"), std::string::npos) << name;
}

TEST_F(Usage, VersionIsPrinted) {
    const test::Result result = run("--version");
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out, "zyr3d 3.0.0\n");
}

TEST_F(Usage, WrongArgumentsAreUsageErrors) {
    expectTrouble(run(""), 2, "subcommand");
    expectTrouble(run("inof x"), 2, "inof: no such subcommand or option; did you mean info?");
    expectTrouble(run("rendr"), 2, "did you mean render?");
    EXPECT_EQ(run("something").err, "zyr3d: something: no such subcommand or option\n");
    expectTrouble(run("info"), 2, "FILE");
    expectTrouble(run("demo --other"), 2, "--other");
    expectTrouble(run("demo a.png b.png"), 2, "b.png");
}

}  // namespace
