#include "files/CloudFile.h"
#include "info/Description.h"

namespace zyr {
namespace {

void addNormals(Facts& facts, const CloudHeader& header) {
    const bool areRead = header.body == "binary_compressed";
    if (!header.hasField("nx"))
        facts.add("normals", "none", false);
    else
        facts.add("normals", areRead ? "yes" : "yes (not read from this kind of body)", true);
}

}  // namespace

Description describeCloudFile(const std::string& path) {
    CloudFile file = loadCloudFile(path);
    const CloudHeader& header = file.disk.header;
    const auto points = static_cast<std::uint64_t>(file.cloud.Length());
    Description description;
    Facts& facts = description.facts;
    facts.word("kind", "point cloud");
    addFields(facts, header);
    facts.count("points", points);
    if (header.height > 1)
        facts.size("grid", static_cast<std::uint64_t>(header.width),
                   static_cast<std::uint64_t>(header.height));
    facts.share("valid points", static_cast<std::uint64_t>(file.cloud.NumValidPoints()), points);
    addBounds(facts, file.cloud.PointData());
    addColors(facts, "colours", file.cloud.IsValidColor() ? file.cloud.ColorData().Channel() : 0);
    addNormals(facts, header);
    addBody(facts, header);
    addDiskBytes(facts, header.recordSize() * points, file.disk.bytes);
    description.shortage = shortageText(file.disk);
    return description;
}

}  // namespace zyr
