#include "info/Description.h"

#include <vector>

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

}  // namespace

std::string fieldsText(const CloudHeader& header) {
    return header.fields.empty() ? "none named" : printable(joined(header.fields));
}

std::string bodyText(const CloudHeader& header) {
    return header.body == "ascii" ? "ascii (not decoded: all points at the origin)" : header.body;
}

std::string channelsText(int channels) {
    return std::to_string(channels) + (channels == 1 ? " channel" : " channels");
}

void addBounds(Table& table, ZyrVector3dArray& points) {
    ZyrVector3d low, high(-kInvalidValue, -kInvalidValue, -kInvalidValue);
    for (int i = 0; i < points.Length(); ++i) {
        ZyrVector3d& point = points[i];
        if (!point.IsValid()) continue;
        low = low.Minimum(point);
        high = high.Maximum(point);
    }
    if (points.NumValidPoints() == 0) return;
    table.add({"x", compact(low.x) + " to " + compact(high.x)});
    table.add({"y", compact(low.y) + " to " + compact(high.y)});
    table.add({"z", compact(low.z) + " to " + compact(high.z)});
}

std::string shortageText(const TextHeaderFile& disk) {
    if (!disk.isCut()) return "";
    return "cut short: " + grouped(disk.bodyHeld) + " of " + grouped(disk.bodySize) +
           " bytes of its body are there";
}

}  // namespace zyr
