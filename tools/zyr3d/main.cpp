#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <new>

#include "Outcome.h"
#include "demo.h"
#include "info.h"
#include "render.h"

namespace {

int fail(int outcome, const char* what) {
    std::cerr << "zyr3d: " << what << "\n";
    return outcome;
}

int run(int argc, char** argv) {
    CLI::App app("Looks at 3D measurement data through libZyr3DData.", "zyr3d");
    app.set_version_flag("--version", "zyr3d " ZYR_VERSION);
    app.require_subcommand(1);
    app.footer("Exit codes: 0 good, 1 difference found, 2 usage, 3 file trouble.");
    int outcome = zyr::kGood;
    zyr::addDemo(app, outcome);
    zyr::addInfo(app, outcome);
    zyr::addRender(app, outcome);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& help) {
        return app.exit(help);
    } catch (const CLI::ParseError& error) {
        return fail(zyr::kUsage, error.what());
    }
    return outcome;
}

}  // namespace

int main(int argc, char** argv) try { return run(argc, argv); } catch (const std::bad_alloc&) {
    return fail(zyr::kFileTrouble, "out of memory");
} catch (const std::exception& error) {
    return fail(zyr::kFileTrouble, error.what());
} catch (...) {
    return fail(zyr::kFileTrouble, "unknown trouble");
}
