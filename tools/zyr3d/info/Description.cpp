#include "info/Description.h"

#include <vector>

#include "Table.h"

namespace zyr {
namespace {

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
    return text;
}

}  // namespace

void addFields(Facts& facts, const CloudHeader& header) {
    facts.add("fields", header.fields.empty() ? "none named" : joined(header.fields),
              header.fields);
}

void addFields(Facts& facts, const std::vector<Field>& fields) {
    std::vector<std::string> names, types;
    std::string text;
    for (const Field& field : fields) {
        if (!types.empty() && field.type != types.back()) text += " (" + types.back() + ")";
        text += (text.empty() ? "" : " ") + field.name;
        names.push_back(field.name);
        types.push_back(field.type);
    }
    if (!types.empty()) text += " (" + types.back() + ")";
    facts.add("fields", text.empty() ? "none" : text, names);
    facts.add("types", "", types);
}

void addBody(Facts& facts, const CloudHeader& header) {
    const bool isAscii = header.body == "ascii";
    facts.add("body", isAscii ? "ascii (not decoded: all points at the origin)" : header.body,
              header.body);
}

void addColors(Facts& facts, const std::string& label, int channels) {
    const std::string text = std::to_string(channels) + (channels == 1 ? " channel" : " channels");
    const std::string key =
        label == "colours" ? "colors" : label.substr(0, label.find(' ')) + "_colors";
    facts.add(label, key, channels == 0 ? "none" : text, static_cast<std::uint64_t>(channels));
}

void PointBounds::take(ZyrVector3d& point) {
    if (!point.IsValid()) return;
    isEmpty_ = false;
    low_ = low_.Minimum(point);
    high_ = high_.Maximum(point);
}

void PointBounds::addTo(Facts& facts) const {
    if (isEmpty_) return;
    facts.interval("x", low_.x, high_.x);
    facts.interval("y", low_.y, high_.y);
    facts.interval("z", low_.z, high_.z);
}

void addBounds(Facts& facts, ZyrVector3dArray& points) {
    PointBounds bounds;
    for (int i = 0; i < points.Length(); ++i) bounds.take(points[i]);
    bounds.addTo(facts);
}

void addDiskBytes(Facts& facts, std::uint64_t rawBytes, std::uint64_t diskBytes) {
    facts.count("bytes raw", rawBytes);
    const std::string text = grouped(diskBytes);
    facts.add("bytes on disk",
              rawBytes == 0 ? text : text + " (" + percent(diskBytes, rawBytes) + ")", diskBytes);
}

std::string shortageText(const TextHeaderFile& disk) {
    if (!disk.isCut()) return "";
    return "cut short: " + grouped(disk.bodyHeld) + " of " + grouped(disk.bodySize) +
           " bytes of its body are there";
}

}  // namespace zyr
