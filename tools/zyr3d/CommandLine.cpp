#include "CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <new>
#include <numeric>
#include <sstream>
#include <string>
#include <vector>

#include "Console.h"
#include "Outcome.h"
#include "check.h"
#include "convert.h"
#include "demo.h"
#include "diff.h"
#include "files/Temporaries.h"
#include "info.h"
#include "render.h"

namespace zyr {
namespace {

int fail(int outcome, const std::string& what) {
    printError(errorLine(what));
    return outcome;
}

/// Changes of a letter that make one word of the other.
std::size_t distance(const std::string& a, const std::string& b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), 0);
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t corner = row[0]++;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t changed = corner + (a[i] == b[j] ? 0 : 1);
            corner = row[j + 1];
            row[j + 1] = std::min({changed, row[j] + 1, corner + 1});
        }
    }
    return row.back();
}

std::string unknownWord(const std::string& word, const CLI::App& app) {
    std::string text = word + ": no such subcommand or option";
    for (const CLI::App* known : app.get_subcommands(nullptr))
        if (distance(word, known->get_name()) <= 2)
            return text + "; did you mean " + known->get_name() + "?";
    return text;
}

int run(int argc, char** argv) {
    CLI::App app("Looks at 3D measurement data through libZyr3DData.", "zyr3d");
    app.set_version_flag("--version", "zyr3d " ZYR_VERSION);
    app.require_subcommand(1);
    app.footer("Exit codes: 0 good, 1 difference or invalid, 2 usage, 3 file trouble.");
    int outcome = kGood;
    addDemo(app, outcome);
    addInfo(app, outcome);
    addCheck(app, outcome);
    addDiff(app, outcome);
    addConvert(app, outcome);
    addRender(app, outcome);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& help) {
        std::ostringstream text;
        outcome = app.exit(help, text, text);
        printOut(text.str());
    } catch (const CLI::ParseError& error) {
        const std::vector<std::string> unknown = app.remaining();
        if (app.get_subcommands().empty() && !unknown.empty())
            return fail(kUsage, unknownWord(unknown[0], app));
        return fail(kUsage, error.what());
    }
    flushOut();
    return outcome;
}

}  // namespace

int runCommandLine(int argc, char** argv) try {
    prepareStandardStreams();
    removeTemporariesOnSignals();
    return run(argc, argv);
} catch (const ReaderGone&) {
    return kFileTrouble;
} catch (const std::bad_alloc&) {
    return fail(kFileTrouble, "out of memory");
} catch (const std::exception& error) {
    return fail(kFileTrouble, error.what());
} catch (...) {
    return fail(kFileTrouble, "unknown trouble");
}

}  // namespace zyr
