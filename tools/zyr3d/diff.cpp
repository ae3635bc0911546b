#include "diff.h"

#include <CLI/CLI.hpp>
#include <cmath>
#include <memory>

#include "Answer.h"
#include "Batch.h"
#include "Console.h"
#include "Facts.h"
#include "Outcome.h"
#include "Printable.h"
#include "Table.h"
#include "diff/Deviation.h"
#include "diff/Pairs.h"
#include "formats/Text.h"

namespace zyr {
namespace {

struct DiffOptions {
    std::string first, second;
    double tolerance = 0;
    bool isJson = false;
    Batch batch;
};

void printColumns(const Deviations& found, std::ostream& out) {
    Table table(Table::Right);
    table.add({"column", "largest difference", "at", "differing", "of"});
    for (const Deviation& each : found.deviations)
        if (each.largest > 0)
            table.add({each.column, compact(each.largest),
                       each.elements > 1 ? std::to_string(each.at) : "-", grouped(each.differing),
                       grouped(each.elements)});
    table.print(out);
}

void printValidity(const Deviations& found, std::ostream& out) {
    const std::string one = found.isGrid ? "value" : "point";
    const auto print = [&](std::size_t count, const char* what) {
        if (count > 0) out << "  " << counted(count, one, one + "s") << what << "\n";
    };
    print(found.becameInvalid, " became invalid");
    print(found.becameValid, " became valid");
}

void printText(const Pair& pair, const Deviations& found, double tolerance, std::ostream& out) {
    const std::string within = tolerance > 0 ? " within " + compact(tolerance) : "";
    out << printable(pair.first) << " and " << printable(pair.second) << ": "
        << (found.isEqual() ? "equal" + within : "different") << "\n";
    for (const std::string& note : found.notes) out << "  " << printable(note) << "\n";
    printValidity(found, out);
    for (const Deviation& each : found.deviations)
        if (each.largest > 0) return printColumns(found, out);
}

std::shared_ptr<const Facts> columnsOf(const Deviations& found) {
    const auto columns = std::make_shared<Facts>();
    for (const Deviation& each : found.deviations) {
        const auto column = std::make_shared<Facts>();
        // JSON knows no infinity: null.
        column->add("largest", "", each.largest);
        column->count("at", each.at);
        column->count("differing", each.differing);
        column->count("elements", each.elements);
        columns->add(each.column, "", column);
    }
    return columns;
}

void printJson(const Pair& pair, const Deviations& found, double tolerance, std::ostream& out) {
    Facts facts;
    facts.word("other", pair.second);
    facts.add("equal", "", found.isEqual());
    facts.add("tolerance", "", tolerance);
    facts.add("notes", "", found.notes);
    facts.count("became invalid", found.becameInvalid);
    facts.count("became valid", found.becameValid);
    facts.add("columns", "", columnsOf(found));
    facts.printJson(out, pair.first);
}

Deviations deviationsOf(const Pair& pair, double tolerance) {
    if (!pair.alone.empty()) {
        Deviations found;
        found.notes = {"only " + pair.alone + " is there"};
        return found;
    }
    return compare(loadSide(pair.first), loadSide(pair.second), tolerance);
}

int compareOne(const Pair& pair, const DiffOptions& options, Output& output) {
    const Deviations found = deviationsOf(pair, options.tolerance);
    (options.isJson ? printJson : printText)(pair, found, options.tolerance, output.out);
    return found.isEqual() ? kGood : kDifference;
}

int runDiff(const DiffOptions& options) {
    for (const std::string& line : passedOver(options.first, options.second))
        printError(errorLine(line));
    const std::vector<Pair> pairs = pairsOf(options.first, options.second);
    std::vector<std::string> names;
    for (const Pair& pair : pairs) names.push_back(pair.first);
    return options.batch.run(names, [&](std::size_t i, Output& output) {
        return withJsonError(options.isJson, names[i], output,
                             [&] { return compareOne(pairs[i], options, output); });
    });
}

}  // namespace

void addDiff(CLI::App& app, int& outcome) {
    auto* command = app.add_subcommand(
        "diff",
        "Compares two files value by value, or the files of the same name in two "
        "folders; they may be of different formats");
    auto options = std::make_shared<DiffOptions>();
    command->add_option("A", options->first, "File or folder")->required();
    command->add_option("B", options->second, "File or folder")->required();
    command
        ->add_option("--tolerance", options->tolerance, "Difference that still counts as none [0]")
        ->type_name("T")
        ->check(CLI::Validator(
            [](std::string& text) {
                double value = 0;
                const bool isGood = parseNumber(text, value) && value >= 0;
                return isGood ? std::string() : "not a number from 0 on";
            },
            ""));
    command->add_flag("--json", options->isJson, "A JSON object a comparison, one a line");
    options->batch.addOption(*command);
    command->footer("Exit codes: 0 equal, 1 different, 2 usage, 3 file trouble.");
    command->callback([options, &outcome] { outcome = runDiff(*options); });
}

}  // namespace zyr
