#include "info.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <iostream>

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

int showFile(const std::string& path) try {
    const Description description = describe(path);
    std::cout << path << "\n";
    description.table.print(std::cout);
    if (description.shortage.empty()) return kGood;
    std::cout.flush();
    std::cerr << "zyr3d: " << path << ": " << description.shortage << "\n";
    return kDifference;
} catch (const FileTrouble& trouble) {
    std::cout.flush();
    std::cerr << "zyr3d: " << trouble.what() << "\n";
    return kFileTrouble;
}

}  // namespace

void addInfo(CLI::App& app, int& outcome) {
    auto* command = app.add_subcommand(
        "info",
        "Tells what point clouds (.zpt), meshes (.ztmt), range images (.zrt) and "
        "PNG, JPEG, BMP and TIFF pictures hold");
    auto files = std::make_shared<std::vector<std::string>>();
    command->add_option("FILE", *files, "Files to look at")->required();
    command->callback([files, &outcome] {
        for (const std::string& path : *files) outcome = std::max(outcome, showFile(path));
    });
}

}  // namespace zyr
