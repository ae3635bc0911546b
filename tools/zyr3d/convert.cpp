#include "convert.h"

#include <CLI/CLI.hpp>
#include <cmath>
#include <filesystem>
#include <map>

#include "Answer.h"
#include "Batch.h"
#include "Outcome.h"
#include "convert/Conversion.h"
#include "files/SafeFile.h"
#include "formats/Text.h"

namespace zyr {
namespace {

struct ConvertOptions {
    std::vector<std::string> files;
    std::string suffix, folder;
    ConvertSettings settings;
    bool isJson = false;
    Batch batch;
};

[[noreturn]] void refuse(const char* name, const char* type, const std::string& word) {
    throw CLI::ValidationError(name, word + ": not " + type);
}

/// Numbers between commas, all of them finite.
template <std::size_t N>
void addNumbers(CLI::App& command, const char* name, std::optional<std::array<double, N>>& numbers,
                const char* type, const char* text) {
    const auto take = [=, &numbers](const CLI::results_t& words) {
        std::string_view rest = words[0];
        std::array<double, N> values{};
        for (std::size_t i = 0; i < N; ++i) {
            const std::size_t comma = rest.find(',');
            const bool isLast = comma == rest.npos;
            if (isLast != (i + 1 == N) || !parseNumber(rest.substr(0, comma), values[i]) ||
                !std::isfinite(values[i]))
                refuse(name, type, words[0]);
            rest.remove_prefix(isLast ? rest.size() : comma + 1);
        }
        numbers = values;
        return true;
    };
    command.add_option(name, take, text)->expected(1)->type_name(type);
}

void addNumber(CLI::App& command, const char* name, std::optional<double>& number,
               const char* text) {
    const auto take = [=, &number](const CLI::results_t& words) {
        double value = 0.0;
        if (!parseNumber(words[0], value) || std::isinf(value)) refuse(name, "NUMBER", words[0]);
        number = value;
        return true;
    };
    command.add_option(name, take, text)->expected(1)->type_name("NUMBER");
}

void addGrid(CLI::App& command, std::optional<GridSize>& grid) {
    const auto take = [&grid](const CLI::results_t& words) {
        const std::string_view word = words[0];
        const std::size_t cross = std::min(word.find('x'), word.size());
        GridSize size;
        if (cross == word.size() || !parseInteger(word.substr(0, cross), size.columns) ||
            !parseInteger(word.substr(cross + 1), size.rows) || size.columns < 1 || size.rows < 1)
            refuse("--grid", "WxH, such as 640x480", words[0]);
        grid = size;
        return true;
    };
    command.add_option("--grid", take, "The grid that the points of a cloud without one lie in")
        ->expected(1)
        ->type_name("WxH");
}

/// Flags of which one may be given at most.
void addChoice(const std::vector<CLI::Option*>& flags) {
    for (CLI::Option* flag : flags)
        for (CLI::Option* other : flags)
            if (flag != other) flag->excludes(other);
}

void addBodies(CLI::App& command, ConvertSettings& settings) {
    const auto body = [&](const char* name, WriteOptions::Body kind, const char* text) {
        return command.add_flag_callback(
            name, [&settings, kind] { settings.body = kind; }, text);
    };
    const auto width = [&](const char* name, ConvertSettings::Width kind, const char* text) {
        return command.add_flag_callback(
            name, [&settings, kind] { settings.width = kind; }, text);
    };
    addChoice({body("--ascii", WriteOptions::Ascii, "Text"),
               body("--binary", WriteOptions::Binary, "Bytes [usual for PLY, STL and PCD]"),
               body("--big-endian", WriteOptions::BigEndian, "Big-endian bytes, of PLY"),
               body("--compressed", WriteOptions::Compressed, "Compressed columns, of PCD")});
    addChoice(
        {width("--float", ConvertSettings::Floats, "Numbers of 32 bits [usual for PCD, STL]"),
         width("--double", ConvertSettings::Doubles, "Numbers of 64 bits [usual for others]")});
}

void addHoles(CLI::App& command, std::optional<Holes>& holes) {
    static const std::map<std::string, Holes> kNames = {
        {"keep", Holes::Keep}, {"nan", Holes::Nan}, {"drop", Holes::Drop}};
    const auto take = [&holes](const CLI::results_t& words) {
        const auto found = kNames.find(words[0]);
        if (found == kNames.end()) refuse("--invalid", "keep, nan or drop", words[0]);
        holes = found->second;
        return true;
    };
    command
        .add_option(
            "--invalid", take,
            "What holes become: the invalid value (usual for our own files), NaN (usual for "
            "PCD and NPY), or nothing (usual for all others)")
        ->expected(1)
        ->type_name("keep|nan|drop");
}

void addSceneOptions(CLI::App& command, ConvertSettings& settings) {
    addNumbers(command, "--camera", settings.camera, "FX,FY,CX,CY",
               "Pinhole camera that saw a range image");
    addNumbers(command, "--resolution", settings.resolution, "X,Y,Z",
               "Of a range image, instead of its own");
    addNumbers(command, "--offset", settings.offset, "X,Y,Z",
               "Of a range image, instead of its own");
    addNumber(command, "--depth-scale", settings.depthScale,
              "Of a range image: what a value of 1 is in Z");
    addNumber(command, "--hole", settings.hole,
              "Value of a range image that marks a hole [0 of 16-bit counts]; nan: none does");
    command.add_option("--color", settings.colorFile, "Colour picture of a range image's size")
        ->type_name("FILE");
    addGrid(command, settings.grid);
    addNumber(command, "--jump", settings.jump,
              "Neighbours in a grid that are farther apart make no triangle [6 times the median]");
    command.add_flag("--mesh", settings.isMeshWanted,
                     "A mesh of a grid, where the format holds clouds as well");
}

/// Each input's output, by its place.
std::vector<std::string> outputsOf(const ConvertOptions& options) {
    if (options.folder.empty() != options.suffix.empty())
        throw UsageTrouble("--to and --out go together");
    if (options.folder.empty()) {
        if (options.files.size() != 2)
            throw UsageTrouble("IN and OUT, or files with --to and --out");
        return {options.files[1]};
    }
    const std::string suffix = (options.suffix[0] == '.' ? "" : ".") + options.suffix;
    std::vector<std::string> outputs;
    for (const std::string& file : options.files) {
        const std::string name = std::filesystem::path(file).stem().string() + suffix;
        outputs.push_back((std::filesystem::path(options.folder) / name).string());
    }
    return outputs;
}

/// None is written twice, nor what is read for another; a file may replace itself.
void checkOutputs(const std::vector<std::string>& outputs, const ConvertOptions& options) {
    std::map<std::string, std::size_t> places;
    for (std::size_t i = 0; i < outputs.size(); ++i)
        if (!places.emplace(targetOf(outputs[i]), i).second)
            throw UsageTrouble(outputs[i] + " would be written twice");
    const auto keep = [&](const std::string& input, std::size_t own) {
        const auto found = places.find(targetOf(input));
        if (found != places.end() && found->second != own)
            throw UsageTrouble(input + " would be overwritten");
    };
    for (std::size_t i = 0; i < outputs.size(); ++i) keep(options.files[i], i);
    keep(options.settings.colorFile, outputs.size());
}

void checkNumbers(const ConvertSettings& settings) {
    if (settings.camera && ((*settings.camera)[0] == 0.0 || (*settings.camera)[1] == 0.0))
        throw UsageTrouble("--camera: a focal length of 0");
    if (settings.jump && !(*settings.jump > 0.0)) throw UsageTrouble("--jump: not above 0");
    if (settings.depthScale &&
        !(*settings.depthScale != 0.0 && std::isfinite(*settings.depthScale)))
        throw UsageTrouble("--depth-scale: 0 or no number");
}

void createFolder(const std::string& folder) {
    std::error_code error;
    if (folder.empty()) return;
    std::filesystem::create_directories(folder, error);
    if (error) throw FileTrouble(folder + ": " + error.message());
}

int convertOne(const std::string& in, const std::string& out, const ConvertOptions& options,
               Output& output) {
    const Conversion conversion = convertFile(in, out, options.settings);
    if (options.isJson)
        conversion.printJson(in, out, output.out);
    else
        conversion.print(in, out, output.out);
    return kGood;
}

int convertAll(const ConvertOptions& options) try {
    const std::vector<std::string> outputs = outputsOf(options);
    const Format* format = formatOf(outputs[0]);
    if (format == nullptr || format->write == nullptr)
        throw UsageTrouble(suffixFault(outputs[0], "written"));
    checkSettings(options.settings, *format);
    checkNumbers(options.settings);
    checkOutputs(outputs, options);
    createFolder(options.folder);
    std::vector<std::string> inputs = options.files;
    inputs.resize(outputs.size());
    return options.batch.run(inputs, [&](std::size_t i, Output& output) {
        return withJsonError(options.isJson, inputs[i], output,
                             [&] { return convertOne(inputs[i], outputs[i], options, output); });
    });
} catch (const UsageTrouble& trouble) {
    throw CLI::ValidationError("convert", trouble.what());
}

}  // namespace

void addConvert(CLI::App& app, int& outcome) {
    auto* command = app.add_subcommand(
        "convert",
        "Turns files into other formats: .zpt, .ztmt, .zrt, PLY, STL, OBJ, PCD, XYZ, CSV, "
        "NPY, PNG and TIFF, by their suffixes");
    auto options = std::make_shared<ConvertOptions>();
    command->add_option("FILE", options->files, "IN and OUT, or files to turn with --to and --out")
        ->required();
    command->add_option("--to", options->suffix, "Format of all files by its suffix, such as ply");
    command->add_option("--out", options->folder, "Folder for all files")->type_name("FOLDER");
    addBodies(*command, options->settings);
    addHoles(*command, options->settings.holes);
    addSceneOptions(*command, options->settings);
    command->add_flag("--json", options->isJson, "A JSON object a file, one a line");
    options->batch.addOption(*command);
    command->footer("Exit codes: 0 written, 2 usage, 3 file trouble.");
    command->callback([options, &outcome] { outcome = convertAll(*options); });
}

}  // namespace zyr
