#include "render.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <set>

#include "Batch.h"
#include "Outcome.h"
#include "files/ImageFile.h"
#include "files/SafeFile.h"
#include "formats/Text.h"
#include "render/Drawing.h"
#include "render/LookOptions.h"
#include "render/Read.h"

namespace zyr {
namespace {

namespace fs = std::filesystem;

struct RenderOptions {
    std::vector<std::string> files;
    std::string directory;
    Look look;
    bool isDepth = false;
    Batch batch;
};

/// What is drawn from what.
struct Job {
    std::string input, output;
};

int renderFile(const Job& job, const RenderOptions& options, Output& output) {
    Subject subject = readSubject(job.input, options.look.pointSize.has_value());
    if (subject.isEmpty()) {
        output.complain(job.input + ": nothing to draw: no valid points");
        return kDifference;
    }
    if (options.isDepth && subject.isHeightMap) subject.stretch[2] = -subject.stretch[2];
    Look look = options.look;
    if (look.color == ColorBy::Rgb && !subject.hasColors()) {
        output.complain(job.input + ": has no colours; drawn by height");
        look.color = ColorBy::Height;
    }
    look.title = fs::path(job.input).filename().string();
    const cv::Mat picture = drawPicture(subject, look);
    SafeFile file(job.output);
    putPng(file, picture);
    file.commit();
    return kGood;
}

[[noreturn]] void failUsage(const std::string& text) {
    throw CLI::ValidationError("render", text);
}

bool isPng(const std::string& path) {
    return lowered(fs::path(path).extension().string()) == ".png";
}

/// FILE OUT.png.
std::vector<Job> singleJob(const std::vector<std::string>& files) {
    if (files.size() != 2) failUsage("takes FILE OUT.png, or FILE... --out DIR");
    if (!isPng(files[1])) failUsage(files[1] + ": a picture's name ends in .png");
    return {{files[0], files[1]}};
}

void makeFolder(const std::string& directory) {
    std::error_code error;
    fs::create_directories(directory, error);
    if (error) throw FileTrouble(directory + ": " + error.message());
}

/// Names in the folder without the files' suffixes, but with them where they tell files apart.
std::vector<Job> jobsInto(const std::string& directory, const std::vector<std::string>& files) {
    std::multiset<std::string> stems;
    for (const std::string& file : files) stems.insert(fs::path(file).stem().string());
    std::vector<Job> jobs;
    std::set<std::string> names;
    for (const std::string& file : files) {
        const std::string stem = fs::path(file).stem().string();
        const std::string name = stems.count(stem) > 1 ? fs::path(file).filename().string() : stem;
        if (!names.insert(name).second) failUsage(file + ": another file's picture has its name");
        jobs.push_back({file, (fs::path(directory) / (name + ".png")).string()});
    }
    makeFolder(directory);
    return jobs;
}

std::vector<Job> jobsOf(const RenderOptions& options) {
    const std::vector<Job> jobs = options.directory.empty()
                                      ? singleJob(options.files)
                                      : jobsInto(options.directory, options.files);
    std::error_code error;
    std::set<std::string> targets;
    for (const Job& job : jobs) {
        if (!targets.insert(targetOf(job.output)).second)
            failUsage(job.output + ": would be written twice");
        for (const Job& other : jobs)
            if (fs::equivalent(job.output, other.input, error))
                failUsage(other.input + ": would be overwritten by a picture");
    }
    return jobs;
}

int renderAll(const RenderOptions& options) {
    const std::vector<Job> jobs = jobsOf(options);
    std::vector<std::string> names;
    for (const Job& job : jobs) names.push_back(job.input);
    return options.batch.run(
        names, [&](std::size_t i, Output& output) { return renderFile(jobs[i], options, output); });
}

}  // namespace

void addRender(CLI::App& app, int& outcome) {
    auto* command = app.add_subcommand("render",
                                       "Draws a picture of a point cloud, mesh or range image, "
                                       "from any format that convert reads");
    auto options = std::make_shared<RenderOptions>();
    command->add_option("FILE", options->files, "A file and its picture to be, or files with --out")
        ->required();
    command->add_option("--out", options->directory, "Folder for a picture of each file, NAME.png")
        ->type_name("DIR");
    addLookOptions(*command, options->look);
    command->add_flag("--depth", options->isDepth,
                      "The values of a range image grow away from the eye, as a camera's do");
    options->batch.addOption(*command);
    command->footer("Exit codes: 0 good, 1 a file has nothing to draw, 2 usage, 3 file trouble.");
    command->callback([options, &outcome] { outcome = renderAll(*options); });
}

}  // namespace zyr
