#include "info.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>

#include "CloudFile.h"
#include "Outcome.h"
#include "Table.h"

namespace zyr {
namespace {

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
    return text;
}

/// Bytes that a terminal might take for commands don't reach it.
std::string printable(std::string text) {
    for (char& c : text)
        if (c < ' ' || c == 0x7F) c = '?';
    return text;
}

std::string bodyText(const CloudHeader& header) {
    return header.body == "ascii" ? "ascii (not decoded: all points at the origin)" : header.body;
}

std::string normalsText(const CloudHeader& header) {
    if (!header.hasField("nx")) return "none";
    return header.body == "binary_compressed" ? "yes" : "yes (not read from this kind of body)";
}

std::string colorsText(const CloudFile& file) {
    if (!file.header.hasField("rgb")) return "none";
    if (!file.cloud.IsValidColor()) return "yes (not read)";
    ZyrPointCloud cloud = file.cloud;
    const int channels = cloud.ColorData().Channel();
    return std::to_string(channels) + (channels == 1 ? " channel" : " channels");
}

void addBounds(Table& table, const ZyrPointCloud& cloud) {
    ZyrVector3d low, high(-kInvalidValue, -kInvalidValue, -kInvalidValue);
    for (int i = 0; i < cloud.Length(); ++i) {
        ZyrVector3d point = cloud.Point(i);
        if (!point.IsValid()) continue;
        low = low.Minimum(point);
        high = high.Maximum(point);
    }
    if (cloud.NumValidPoints() == 0) return;
    table.add({"x", compact(low.x) + " to " + compact(high.x)});
    table.add({"y", compact(low.y) + " to " + compact(high.y)});
    table.add({"z", compact(low.z) + " to " + compact(high.z)});
}

Table describe(const CloudFile& file) {
    const auto points = static_cast<std::uint64_t>(file.cloud.Length());
    const auto valid = static_cast<std::uint64_t>(file.cloud.NumValidPoints());
    Table table(Table::Left);
    table.add({"fields", printable(joined(file.header.fields))});
    table.add({"points", grouped(points)});
    table.add({"valid points", grouped(valid)});
    addBounds(table, file.cloud);
    table.add({"colours", colorsText(file)});
    table.add({"normals", normalsText(file.header)});
    table.add({"body", bodyText(file.header)});
    table.add({"bytes raw", grouped(file.header.recordSize() * points)});
    table.add({"bytes on disk", grouped(file.bytes)});
    return table;
}

int showFile(const std::string& path) try {
    const CloudFile file = loadCloudFile(path);
    std::cout << path << "\n";
    describe(file).print(std::cout);
    if (!file.isCut()) return kGood;
    std::cout.flush();
    std::cerr << "zyr3d: " << path << ": cut short: " << grouped(file.bodyHeld) << " of "
              << grouped(file.bodySize) << " bytes of its body are there\n";
    return kDifference;
} catch (const FileTrouble& trouble) {
    std::cout.flush();
    std::cerr << "zyr3d: " << trouble.what() << "\n";
    return kFileTrouble;
}

}  // namespace

void addInfo(CLI::App& app, int& outcome) {
    auto* command = app.add_subcommand("info", "Tells what point-cloud files (.zpt) hold");
    auto files = std::make_shared<std::vector<std::string>>();
    command->add_option("FILE", *files, "Point-cloud files")->required();
    command->callback([files, &outcome] {
        for (const std::string& path : *files) outcome = std::max(outcome, showFile(path));
    });
}

}  // namespace zyr
