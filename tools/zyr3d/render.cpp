#include "render.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>

#include "Outcome.h"
#include "files/ImageFile.h"
#include "render/Drawing.h"
#include "render/Read.h"

namespace zyr {
namespace {

struct RenderOptions {
    std::vector<std::string> files;
    std::string directory;
    Look look;
    bool isPoints = false;
};

int renderFile(const std::string& input, const std::string& output, const RenderOptions& options) {
    const Subject subject = readSubject(input, options.look.pointSize.has_value());
    if (subject.isEmpty()) {
        std::cerr << "zyr3d: " << input << ": nothing to draw\n";
        return kDifference;
    }
    Look look = options.look;
    look.title = std::filesystem::path(input).filename().string();
    writeImage(output, drawPicture(subject, look));
    return kGood;
}

void addLookOptions(CLI::App& command, Look& look) {
    command
        .add_option_function<std::string>(
            "--view",
            [&look](const std::string& text) {
                View view;
                if (!parseView(text, view))
                    throw CLI::ValidationError("--view", "unknown: " + text);
                look.view = view;
            },
            "top, bottom, front, side, iso or AZ,EL in degrees")
        ->type_name("VIEW");
    command
        .add_option_function<std::string>(
            "--color",
            [&look](const std::string& text) {
                look.color = text == "height" ? ColorBy::Height
                             : text == "rgb"  ? ColorBy::Rgb
                                              : ColorBy::Normal;
            },
            "height, rgb or normal")
        ->check(CLI::IsMember({"height", "rgb", "normal"}));
    command.add_option_function<std::string>(
        "--size",
        [&look](const std::string& text) {
            std::istringstream words(text);
            char times = 0;
            words >> look.size.width >> times >> look.size.height;
        },
        "WxH");
    command.add_option("--point-size", look.pointSize, "Pixels");
    command.add_flag("--flat", look.isFlat, "Facets");
    command.add_flag("--bare", look.isBare, "Without text, legend, axes and scale bar");
}

}  // namespace

void addRender(CLI::App& app, int& outcome) {
    auto* command = app.add_subcommand("render", "Draws a picture");
    auto options = std::make_shared<RenderOptions>();
    command->add_option("FILE", options->files, "FILE OUT.png")->required();
    addLookOptions(*command, options->look);
    command->callback([options, &outcome] {
        outcome = renderFile(options->files.at(0), options->files.at(1), *options);
    });
}

}  // namespace zyr
