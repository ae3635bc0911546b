#include "demo.h"

#include <CLI/CLI.hpp>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <iostream>

#include "CloudFile.h"
#include "CloudFrame.h"
#include "Comparison.h"
#include "DepthImage.h"
#include "Grid.h"
#include "ImageFile.h"
#include "Outcome.h"
#include "Outliers.h"
#include "Picture.h"
#include "SensorFrame.h"
#include "Table.h"
#include "View.h"
#include "ZyrPointCloud.h"

namespace zyr {
namespace {

struct DemoOptions {
    std::string input;
    std::string directory = "zyr3d-demo";
    std::string colorFile;
    Pinhole pinhole;
};

/// Milliseconds that the steps took.
struct Times {
    double build = 0.0, save = 0.0, load = 0.0;
};

template <class Step>
double timed(const Step& step) {
    const auto start = std::chrono::steady_clock::now();
    step();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
}

Frame readFrame(const DemoOptions& options) {
    if (options.input.empty()) return synthesiseSensorFrame();
    if (isCloudPath(options.input)) return readCloudFrame(options.input);
    return readDepthImage(options.input, options.colorFile, options.pinhole);
}

ZyrPointCloud buildCloud(Frame& frame) {
    const auto values = static_cast<int>(frame.coordinates.total() * 3);
    ZyrPointCloud cloud(frame.coordinates.data, values, frame.coordinates.depth(), frame.holeMark);
    if (frame.colors.empty()) return cloud;
    ZyrColorArray colors;
    colors.Create(cloud.Length(), frame.colors.channels());
    std::memcpy(colors.Data(), frame.colors.data, frame.colors.total() * frame.colors.elemSize());
    cloud.SetColors(colors);
    return cloud;
}

void addNormals(ZyrPointCloud& cloud, const Frame& frame) {
    if (frame.isOrganised())
        cloud.SetNormals(gridNormals(Grid(cloud, frame.coordinates.cols, frame.coordinates.rows)));
    else if (frame.normals.Length() > 0)
        cloud.SetNormals(frame.normals);
}

std::uint64_t rawBytes(const ZyrPointCloud& cloud) {
    const auto points = static_cast<std::uint64_t>(cloud.Length());
    return points * (24 + (cloud.IsValidNormal() ? 24 : 0) + (cloud.IsValidColor() ? 4 : 0));
}

std::string percent(std::uint64_t part, std::uint64_t whole) {
    return decimal(100.0 * static_cast<double>(part) / static_cast<double>(whole), 1) + " %";
}

void printCounts(const ZyrPointCloud& cloud, int dropped, const std::string& file) {
    const auto points = static_cast<std::uint64_t>(cloud.Length());
    const auto valid = static_cast<std::uint64_t>(cloud.NumValidPoints());
    const std::uint64_t raw = rawBytes(cloud), disk = fileSize(file);
    Table table(Table::Right);
    table.add({"points", grouped(points)});
    table.add({"valid points", grouped(valid), percent(valid, points)});
    table.add({"outliers dropped", grouped(static_cast<std::uint64_t>(dropped))});
    table.add({"bytes raw", grouped(raw)});
    table.add({"bytes on disk", grouped(disk), percent(disk, raw)});
    table.print(std::cout);
}

void printTimes(const Times& times, int points) {
    Table table(Table::Right);
    const auto add = [&](const char* step, double ms) {
        table.add({step, decimal(ms, 2), decimal(ms * 1e6 / points, 1)});
    };
    table.add({"step", "ms", "ns a point"});
    add("build", times.build);
    add("save", times.save);
    add("load", times.load);
    table.print(std::cout);
}

std::string sizeText(const Frame& frame) {
    if (!frame.isOrganised()) return grouped(frame.coordinates.total()) + " points";
    return std::to_string(frame.coordinates.cols) + " x " + std::to_string(frame.coordinates.rows) +
           " pixels";
}

void writePicture(ZyrPointCloud& cloud, const Frame& frame, const std::string& path) {
    const View view = frame.isOrganised()
                          ? viewGrid(cloud, frame.coordinates.cols, frame.coordinates.rows)
                          : viewOrthographic(cloud);
    const std::string name = std::filesystem::path(frame.name).filename().string();
    const std::string facts = sizeText(frame) + ", " +
                              grouped(static_cast<std::uint64_t>(cloud.NumValidPoints())) +
                              " valid";
    writeImage(path, drawPicture(view, name, facts, frame.unit));
}

/// The two files that a run writes.
struct Output {
    std::string cloud, picture;

    /// Creates the folder. The input must not be what is going to be written.
    Output(const std::string& directory, const std::string& input)
        : cloud(directory + "/demo.zpt"), picture(directory + "/demo.png") {
        std::error_code error;
        std::filesystem::create_directories(directory, error);
        if (error) throw FileTrouble(directory + ": " + error.message());
        for (const std::string& file : {cloud, picture})
            if (std::filesystem::equivalent(input, file, error))
                throw FileTrouble(input + ": would be overwritten; choose another folder by -o");
    }
};

/// Saves the cloud, loads it back and tells what differs.
std::string roundTrip(ZyrPointCloud& cloud, const std::string& path, Times& times) {
    bool isSaved = false, isLoaded = false;
    ZyrPointCloud loaded;
    times.save = timed([&] { isSaved = cloud.Save(path.c_str(), true, true); });
    if (!isSaved) throw FileTrouble(path + ": cannot be written");
    times.load = timed([&] { isLoaded = loaded.Load(path.c_str(), true, true); });
    return isLoaded ? difference(cloud, loaded) : "file as a whole";
}

int runDemo(const DemoOptions& options) {
    Frame frame = readFrame(options);
    const Output output(options.directory, options.input);
    Times times;
    ZyrPointCloud cloud;
    times.build = timed([&] { cloud = buildCloud(frame); });
    const int dropped = dropOutliers(cloud, frame.coordinates.cols, frame.coordinates.rows);
    addNormals(cloud, frame);
    const std::string differing = roundTrip(cloud, output.cloud, times);

    std::cout << frame.name << ", " << sizeText(frame) << "\n\n";
    printCounts(cloud, dropped, output.cloud);
    std::cout << "\n";
    printTimes(times, cloud.Length());
    std::cout << "\n";
    if (!differing.empty()) {
        std::cerr << "zyr3d: " << output.cloud << ": the " << differing
                  << " came back differently\n";
        return kDifference;
    }
    writePicture(cloud, frame, output.picture);
    std::cout << "Every value came back bit for bit.\n"
              << "Written: " << output.cloud << ", " << output.picture << "\n";
    return kGood;
}

/// A check that NaN doesn't pass either.
CLI::Validator between(double low, double high) {
    const auto check = [=](std::string& text) {
        double value = 0.0;
        const bool isNumber = CLI::detail::lexical_cast(text, value);
        const bool isGood = isNumber && value >= low && value <= high;
        return isGood ? std::string() : "not between " + compact(low) + " and " + compact(high);
    };
    return CLI::Validator(check, "");
}

void addDepthOptions(CLI::App& command, DemoOptions& options) {
    const char* group = "Options for a depth PNG";
    const auto add = [&](const char* name, auto& value, const char* text) {
        return command.add_option(name, value, text)->group(group)->type_name("NUMBER");
    };
    Pinhole& pinhole = options.pinhole;
    add("--fx", pinhole.fx, "Focal length in pixels [525 for 640 columns]")->check(between(1, 1e6));
    add("--fy", pinhole.fy, "Focal length in pixels [as --fx]")->check(between(1, 1e6));
    add("--cx", pinhole.cx, "Optical centre's column [the middle]")->check(between(-1e6, 1e6));
    add("--cy", pinhole.cy, "Optical centre's row [the middle]")->check(between(-1e6, 1e6));
    add("--depth-scale", pinhole.depthScale, "Millimetres a count [1]")->check(between(1e-6, 1e3));
    add("--color", options.colorFile, "Colour picture of the same size")->type_name("FILE");
}

void checkDepthOptions(const DemoOptions& options) {
    const Pinhole& pinhole = options.pinhole;
    const bool areGiven = pinhole.fx || pinhole.fy || pinhole.cx || pinhole.cy ||
                          pinhole.depthScale != 1.0 || !options.colorFile.empty();
    if (areGiven && (options.input.empty() || isCloudPath(options.input)))
        throw CLI::ValidationError("demo", "the depth options go with a depth PNG only");
}

}  // namespace

void addDemo(CLI::App& app, int& outcome) {
    auto* command = app.add_subcommand(
        "demo", "Takes a frame all the way: build, drop outliers, save, load, compare, draw");
    auto options = std::make_shared<DemoOptions>();
    command->add_option("INPUT", options->input,
                        "16-bit depth PNG or point cloud (.zpt); a synthesised frame if left out");
    command->add_option("-o,--output", options->directory, "Folder for what is written")
        ->capture_default_str();
    addDepthOptions(*command, *options);
    command->callback([options, &outcome] {
        checkDepthOptions(*options);
        outcome = runDemo(*options);
    });
}

}  // namespace zyr
