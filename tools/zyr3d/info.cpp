#include "info.h"

#include <CLI/CLI.hpp>
#include <array>

#include "Batch.h"
#include "Outcome.h"
#include "Zyr3DInner.h"
#include "info/Description.h"

namespace zyr {
namespace {

/// What the program reads by a suffix. Where the library takes any letter case, so do we.
struct Kind {
    const char* suffix;
    bool isAnyCase;
    Description (*describe)(const std::string& path);
};

constexpr std::array<Kind, 11> kKinds = {{{"zpt", false, describeCloudFile},
                                          {"ZPT", false, describeCloudFile},
                                          {"ztmt", false, describeMeshFile},
                                          {"ZTMT", false, describeMeshFile},
                                          {"zrt", true, describeRangeFile},
                                          {"png", true, describePictureFile},
                                          {"jpg", true, describePictureFile},
                                          {"jpeg", true, describePictureFile},
                                          {"bmp", true, describePictureFile},
                                          {"tif", true, describePictureFile},
                                          {"tiff", true, describePictureFile}}};

Description describe(const std::string& path) {
    const std::string suffix = Zyr3DInner::getSuffix(path.c_str());
    const std::string lower = CLI::detail::to_lower(suffix);
    for (const Kind& kind : kKinds)
        if (kind.suffix == (kind.isAnyCase ? lower : suffix)) return kind.describe(path);
    throw FileTrouble(path + ": not a .zpt file by its suffix, nor any other that info reads");
}

struct InfoOptions {
    std::vector<std::string> files;
    Batch batch;
};

int showFile(const std::string& path, Output& output) {
    const Description description = describe(path);
    output.out << path << "\n";
    description.table.print(output.out);
    if (description.shortage.empty()) return kGood;
    output.complain(path + ": " + description.shortage);
    return kDifference;
}

}  // namespace

void addInfo(CLI::App& app, int& outcome) {
    auto* command = app.add_subcommand(
        "info",
        "Tells what point clouds (.zpt), meshes (.ztmt), range images (.zrt) and "
        "PNG, JPEG, BMP and TIFF pictures hold");
    auto options = std::make_shared<InfoOptions>();
    command->add_option("FILE", options->files, "Files to look at")->required();
    options->batch.addOption(*command);
    command->callback([options, &outcome] {
        const auto& files = options->files;
        outcome = options->batch.run(
            files, [&](std::size_t i, Output& output) { return showFile(files[i], output); });
    });
}

}  // namespace zyr
