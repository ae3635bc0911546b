#include "check.h"

#include <CLI/CLI.hpp>

#include "Answer.h"
#include "Batch.h"
#include "Outcome.h"
#include "Printable.h"
#include "check/Check.h"

namespace zyr {
namespace {

struct CheckOptions {
    std::vector<std::string> files;
    bool isJson = false;
    Batch batch;
};

int showValid(const std::string& path, const Checked& checked, bool isJson, Output& output) {
    if (isJson) {
        Facts facts;
        facts.add("valid", "", true);
        facts.append(checked.facts);
        facts.printJson(output.out, path);
    } else {
        output.out << printable(path) << ": valid: " << printable(checked.summary) << "\n";
    }
    return kGood;
}

int showFault(const std::string& path, const Fault& fault, bool isJson, Output& output) {
    if (isJson) {
        Facts facts;
        facts.add("valid", "", false);
        if (fault.offset) facts.count("offset", *fault.offset);
        facts.word("fault", fault.why);
        facts.printJson(output.out, path);
    } else {
        const std::string place = fault.offset ? " at byte " + std::to_string(*fault.offset) : "";
        output.out << printable(path) << ": invalid" << place << ": " << printable(fault.why)
                   << "\n";
    }
    return kDifference;
}

int checkOne(const std::string& path, bool isJson, Output& output) try {
    return showValid(path, checkFile(path), isJson, output);
} catch (const Fault& fault) {
    return showFault(path, fault, isJson, output);
}

}  // namespace

void addCheck(CLI::App& app, int& outcome) {
    auto* command = app.add_subcommand(
        "check",
        "Validates files strictly and names the first fault and its place: headers, sizes, "
        "streams, values, bytes behind the end");
    auto options = std::make_shared<CheckOptions>();
    command->add_option("FILE", options->files, "Files to validate")->required();
    command->add_flag("--json", options->isJson, "A JSON object a file, one a line");
    options->batch.addOption(*command);
    command->footer("Exit codes: 0 valid, 1 a file is invalid, 2 usage, 3 file trouble.");
    command->callback([options, &outcome] {
        const auto& files = options->files;
        const bool isJson = options->isJson;
        outcome = options->batch.run(files, [&](std::size_t i, Output& output) {
            return withJsonError(isJson, files[i], output,
                                 [&] { return checkOne(files[i], isJson, output); });
        });
    });
}

}  // namespace zyr
