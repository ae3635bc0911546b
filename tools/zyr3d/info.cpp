#include "info.h"

#include <CLI/CLI.hpp>

#include "Answer.h"
#include "Batch.h"
#include "Outcome.h"
#include "Printable.h"
#include "files/FileKind.h"
#include "info/Description.h"

namespace zyr {
namespace {

Description describe(const std::string& path) {
    switch (fileKind(path)) {
        case FileKind::Cloud:
            return describeCloudFile(path);
        case FileKind::Mesh:
            return describeMeshFile(path);
        case FileKind::Range:
            return describeRangeFile(path);
        case FileKind::Picture:
            return describePictureFile(path);
        case FileKind::Foreign:
            return describeForeignFile(path);
    }
    throw FileTrouble(path + ": not of a kind that is known");
}

struct InfoOptions {
    std::vector<std::string> files;
    bool isJson = false;
    Batch batch;
};

int showFile(const std::string& path, bool isJson, Output& output) {
    Description description = describe(path);
    const std::string& shortage = description.shortage;
    if (isJson) {
        if (!shortage.empty()) description.facts.word("shortage", shortage);
        description.facts.printJson(output.out, path);
    } else {
        output.out << printable(path) << "\n";
        description.facts.printTable(output.out);
    }
    if (shortage.empty()) return kGood;
    output.complain(path + ": " + shortage);
    return kDifference;
}

}  // namespace

void addInfo(CLI::App& app, int& outcome) {
    auto* command = app.add_subcommand(
        "info",
        "Tells what point clouds (.zpt), meshes (.ztmt), range images (.zrt), pictures (PNG, JPEG, "
        "BMP, TIFF) and PLY, STL, OBJ, PCD, XYZ, CSV and NPY files hold");
    auto options = std::make_shared<InfoOptions>();
    command->add_option("FILE", options->files, "Files to look at")->required();
    command->add_flag("--json", options->isJson, "A JSON object a file, one a line");
    options->batch.addOption(*command);
    command->footer("Exit codes: 0 good, 1 a file is cut short, 2 usage, 3 file trouble.");
    command->callback([options, &outcome] {
        const auto& files = options->files;
        const bool isJson = options->isJson;
        outcome = options->batch.run(files, [&](std::size_t i, Output& output) {
            return withJsonError(isJson, files[i], output,
                                 [&] { return showFile(files[i], isJson, output); });
        });
    });
}

}  // namespace zyr
