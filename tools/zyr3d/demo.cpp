#include "demo.h"

#include <CLI/CLI.hpp>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <list>
#include <optional>

#include "Console.h"
#include "Grid.h"
#include "Mesh.h"
#include "Outcome.h"
#include "Printable.h"
#include "Table.h"
#include "ZyrPointCloud.h"
#include "ZyrRangeImage.h"
#include "demo/CloudFrame.h"
#include "demo/DepthImage.h"
#include "demo/HeightImage.h"
#include "demo/Outliers.h"
#include "demo/Report.h"
#include "demo/RoundTrip.h"
#include "demo/SensorFrame.h"
#include "files/CloudFile.h"
#include "files/FileKind.h"
#include "files/ImageFile.h"
#include "files/QuietCodecs.h"
#include "files/SafeFile.h"
#include "formats/Text.h"
#include "render/Drawing.h"

namespace zyr {
namespace {

struct DemoOptions {
    std::string input;
    std::string directory = "zyr3d-demo";
    std::string colorFile;
    Pinhole pinhole;
};

Frame readFrame(const DemoOptions& options) {
    if (options.input.empty()) return synthesiseSensorFrame();
    if (isCloudPath(options.input)) return readCloudFrame(options.input);
    if (fileKind(options.input) != FileKind::Picture)
        throw FileTrouble(options.input +
                          ": demo takes a point cloud (.zpt) or a 16-bit depth PNG");
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

std::uint64_t cloudBytes(const ZyrPointCloud& cloud) {
    const auto points = static_cast<std::uint64_t>(cloud.Length());
    return points * (24 + (cloud.IsValidNormal() ? 24 : 0) + (cloud.IsValidColor() ? 4 : 0));
}

std::string sizeText(const Frame& frame) {
    if (!frame.isOrganised()) return grouped(frame.coordinates.total()) + " points";
    return std::to_string(frame.coordinates.cols) + " x " + std::to_string(frame.coordinates.rows) +
           " pixels";
}

/// The frame seen from above: shaded heights, and its colours or normals.
void writePicture(ZyrPointCloud& cloud, const Frame& frame, SafeFile& file) {
    const Subject subject = subjectOf(cloud, frame.isOrganised() ? frame.coordinates.cols : 0);
    Look look;
    look.size = {800, 600};
    look.background = {33, 28, 25};
    look.title = std::filesystem::path(frame.name).filename().string();
    look.color = ColorBy::Height;
    const cv::Mat heights = drawPicture(subject, look);
    look.color = frame.colors.empty() ? ColorBy::Normal : ColorBy::Rgb;
    look.title = frame.colors.empty() ? "normals" : "colours";
    cv::Mat picture;
    cv::hconcat(heights, drawPicture(subject, look), picture);
    putPng(file, picture);
}

/// The files that a run writes. They get their names one after the other, when all of them are
/// good.
class OutputFiles {
public:
    /// Creates the folder. No input must be what is going to be written.
    OutputFiles(const std::string& directory, const std::vector<std::string>& inputs)
        : directory_(directory) {
        std::error_code error;
        std::filesystem::create_directories(directory, error);
        if (error) throw FileTrouble(directory + ": " + error.message());
        for (const std::string& input : inputs)
            for (const char* name : {kCloud, kPicture, kMesh, kRange, kRangePicture})
                if (std::filesystem::equivalent(input, directory + "/" + name, error))
                    throw FileTrouble(input +
                                      ": would be overwritten; choose another folder by -o");
    }

    SafeFile& open(const char* name) { return files_.emplace_back(directory_ + "/" + name); }

    void commit() {
        for (SafeFile& file : files_) file.commit();
    }

    static constexpr const char* kCloud = "demo.zpt";
    static constexpr const char* kPicture = "demo.png";
    static constexpr const char* kMesh = "demo.ztmt";
    static constexpr const char* kRange = "demo.zrt";
    static constexpr const char* kRangePicture = "demo_range.png";

private:
    std::string directory_;
    std::list<SafeFile> files_;
};

void reportCloud(Report& report, ZyrPointCloud& cloud, int dropped, SafeFile& file) {
    report.count("points", cloud.Length());
    report.countShare("valid points", cloud.NumValidPoints());
    report.count("outliers dropped", dropped);
    report.file("", roundTrip(cloud, file), cloudBytes(cloud));
}

void reportMesh(Report& report, ZyrPointCloud& cloud, const Grid& grid, SafeFile& file) {
    std::optional<ZyrTriangleMesh> mesh;
    report.time("mesh build", timed([&] { mesh.emplace(triangulate(cloud, grid)); }));
    report.count("mesh vertices", mesh->NumVertices());
    report.count("mesh triangles", mesh->NumTriangles());
    report.file("mesh", roundTrip(*mesh, file), meshBytes(*mesh));
}

RoundTrip throughPicture(const HeightImage& heights, SafeFile& file) {
    HeightImage kept = heights;
    kept.colors.release();  // the picture has the values alone
    ZyrRangeImage image = heights.rangeImage(), loaded;
    const QuietCodecs quiet;
    return roundTrip(
        file, [&](const char* path) { return image.Save(path); },
        [&](const char* path) { return loaded.Load(path, heights.resolution, heights.offset); },
        [&] { return difference(kept, loaded); });
}

void reportHeights(Report& report, ZyrPointCloud& cloud, const Frame& frame, OutputFiles& output) {
    HeightImage heights;
    report.time("range build", timed([&] { heights = heightsOf(cloud, frame); }));
    ZyrRangeImage loaded;
    const RoundTrip trip = roundTrip(
        output.open(output.kRange), [&](const char* path) { return heights.save(path); },
        [&](const char* path) { return loaded.Load(path, true); },
        [&] { return difference(heights, loaded); });
    const std::uint64_t pixels = heights.values.total();
    report.file("range", trip, pixels * (2 + heights.colors.elemSize()));
    report.file("range PNG", throughPicture(heights, output.open(output.kRangePicture)),
                pixels * 2);
}

/// What needs pixels that are neighbours on the surface.
void reportGrid(Report& report, ZyrPointCloud& cloud, const Frame& frame, OutputFiles& output) {
    if (!frame.isOrganised()) return;
    const Grid grid(cloud, frame.coordinates.cols, frame.coordinates.rows);
    reportMesh(report, cloud, grid, output.open(output.kMesh));
    reportHeights(report, cloud, frame, output);
}

int finish(const Report& report, ZyrPointCloud& cloud, const Frame& frame, OutputFiles& output) {
    std::cout << printable(frame.name) << ", " << sizeText(frame) << "\n\n";
    report.print();
    if (!frame.isOrganised())
        std::cout << "Skipped: mesh and range image, as the points are in no grid.\n";
    if (!report.difference().empty()) {
        printError(errorLine(report.difference()));
        return kDifference;
    }
    SafeFile& picture = output.open(output.kPicture);
    writePicture(cloud, frame, picture);
    output.commit();
    std::cout << "Every value came back bit for bit.\n"
              << "Written: " << printable(report.written() + ", " + picture.path()) << "\n";
    return kGood;
}

int runDemo(const DemoOptions& options) {
    Frame frame = readFrame(options);
    OutputFiles output(options.directory, {options.input, options.colorFile});
    ZyrPointCloud cloud;
    const double build = timed([&] { cloud = buildCloud(frame); });
    Report report(cloud.Length());
    report.time("build", build);
    const int dropped = dropOutliers(cloud, frame.coordinates.cols, frame.coordinates.rows);
    addNormals(cloud, frame);
    reportCloud(report, cloud, dropped, output.open(output.kCloud));
    if (report.difference().empty()) reportGrid(report, cloud, frame, output);
    return finish(report, cloud, frame, output);
}

/// A check that NaN doesn't pass either.
CLI::Validator between(double low, double high) {
    const auto check = [=](std::string& text) {
        double value = 0.0;
        const bool isNumber = parseNumber(text, value);
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
    auto* command = app.add_subcommand("demo",
                                       "Takes a frame all the way: build, drop outliers, save, "
                                       "load, compare, draw; an organised one as a "
                                       "mesh and a range image too");
    auto options = std::make_shared<DemoOptions>();
    command->add_option("INPUT", options->input,
                        "16-bit depth PNG or point cloud (.zpt); a synthesised frame if left out");
    command->add_option("-o,--output", options->directory, "Folder for what is written")
        ->capture_default_str();
    addDepthOptions(*command, *options);
    command->footer(
        "Exit codes: 0 all came back, 1 something came back differently, 2 usage, 3 file trouble.");
    command->callback([options, &outcome] {
        checkDepthOptions(*options);
        outcome = runDemo(*options);
    });
}

}  // namespace zyr
