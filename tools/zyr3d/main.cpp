#include <CLI/CLI.hpp>
#include <exception>
#include <new>
#include <sstream>
#include <string>
#include <vector>

#include "Console.h"
#include "Facts.h"
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
    printError("zyr3d: " + what + "\n");
    return outcome;
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
            return fail(kUsage, printable(unknown[0]) + ": no such subcommand or option");
        return fail(kUsage, error.what());
    }
    flushOut();
    return outcome;
}

}  // namespace
}  // namespace zyr

int main(int argc, char** argv) try {
    zyr::prepareStandardStreams();
    zyr::removeTemporariesOnSignals();
    return zyr::run(argc, argv);
} catch (const zyr::ReaderGone&) {
    return zyr::kFileTrouble;
} catch (const std::bad_alloc&) {
    return zyr::fail(zyr::kFileTrouble, "out of memory");
} catch (const std::exception& error) {
    return zyr::fail(zyr::kFileTrouble, error.what());
} catch (...) {
    return zyr::fail(zyr::kFileTrouble, "unknown trouble");
}
