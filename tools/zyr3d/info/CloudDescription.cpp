#include "files/CloudFile.h"
#include "info/Description.h"

namespace zyr {
namespace {

std::string normalsText(const CloudHeader& header) {
    if (!header.hasField("nx")) return "none";
    return header.body == "binary_compressed" ? "yes" : "yes (not read from this kind of body)";
}

std::string colorsText(CloudFile& file) {
    if (!file.disk.header.hasField("rgb")) return "none";
    return file.cloud.IsValidColor() ? channelsText(file.cloud.ColorData().Channel())
                                     : "yes (not read)";
}

}  // namespace

Description describeCloudFile(const std::string& path) {
    CloudFile file = loadCloudFile(path);
    const CloudHeader& header = file.disk.header;
    const auto points = static_cast<std::uint64_t>(file.cloud.Length());
    Description description;
    Table& table = description.table;
    table.add({"fields", fieldsText(header)});
    table.add({"points", grouped(points)});
    table.add({"valid points", grouped(static_cast<std::uint64_t>(file.cloud.NumValidPoints()))});
    addBounds(table, file.cloud.PointData());
    table.add({"colours", colorsText(file)});
    table.add({"normals", normalsText(header)});
    table.add({"body", bodyText(header)});
    table.add({"bytes raw", grouped(header.recordSize() * points)});
    table.add({"bytes on disk", grouped(file.disk.bytes)});
    description.shortage = shortageText(file.disk);
    return description;
}

}  // namespace zyr
