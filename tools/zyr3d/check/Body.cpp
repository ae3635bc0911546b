#include "check/Body.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>

#include "Outcome.h"
#include "files/LzfStream.h"

namespace zyr {
namespace {

constexpr auto kMost = std::numeric_limits<std::uint64_t>::max();

/// These stay at the most instead of wrapping around.
std::uint64_t times(std::uint64_t a, std::uint64_t b) {
    return a != 0 && b > kMost / a ? kMost : a * b;
}

std::uint64_t plus(std::uint64_t a, std::uint64_t b) {
    return b > kMost - a ? kMost : a + b;
}

template <std::size_t N>
bool isOneOf(const std::array<const char*, N>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

constexpr std::array<const char*, 7> kOfVertices = {"x", "y", "z", "nx", "ny", "nz", "rgb"};
constexpr std::array<const char*, 3> kStartFaces = {"fa", "fnx", "frgb"};

std::string ofBytes(std::uint64_t part, std::uint64_t whole) {
    return std::to_string(part) + " of " + std::to_string(whole) + " bytes";
}

}  // namespace

Body Body::ofCloud(const std::string& path, const CloudHeader& header,
                   const std::vector<unsigned char>& file) {
    Body body(path, header, file);
    body.isCompressed_ = header.body == "binary_compressed";
    if (body.isCompressed_) {
        body.layColumns(false);
        body.readStream(1);
    } else {
        body.layRecords();
        body.readRecords();
    }
    return body;
}

Body Body::ofMesh(const std::string& path, const CloudHeader& header,
                  const std::vector<unsigned char>& file) {
    Body body(path, header, file);
    body.layColumns(true);
    body.readStream(2);
    return body;
}

Body::Body(const std::string& path, const CloudHeader& header,
           const std::vector<unsigned char>& file)
    : path_(path), header_(header), file_(file) {}

void Body::layRecords() {
    std::uint64_t record = 0;
    for (std::size_t i = 0; i < header_.fields.size(); ++i) {
        layout_.push_back({record, 0, header_.sizes[i]});
        record = plus(record, static_cast<std::uint64_t>(header_.sizes[i] * header_.counts[i]));
    }
    for (Column& column : layout_) column.stride = record;
    size_ = times(record, static_cast<std::uint64_t>(header_.points));
}

/// In a mesh, a field that is not known and stands behind one of faces is of faces too.
void Body::layColumns(bool isMesh) {
    bool areFaces = false;
    for (std::size_t i = 0; i < header_.fields.size(); ++i) {
        const std::string& name = header_.fields[i];
        areFaces = areFaces || (isMesh && isOneOf(kStartFaces, name));
        const auto stride = static_cast<std::uint64_t>(header_.sizes[i] * header_.counts[i]);
        layout_.push_back({size_, stride, header_.sizes[i]});
        const auto elements = static_cast<std::uint64_t>(
            areFaces && !isOneOf(kOfVertices, name) ? header_.faces : header_.points);
        size_ = plus(size_, times(stride, elements));
    }
}

void Body::readRecords() {
    const std::uint64_t left = file_.size() - header_.bodyStart;
    if (left < size_)
        fail(file_.size(), "cut short: " + ofBytes(left, size_) + " of the body are there");
    requireEnd(header_.bodyStart + size_);
    streamStart_ = header_.bodyStart;
    columns_.assign(file_.begin() + static_cast<std::ptrdiff_t>(streamStart_), file_.end());
}

void Body::readStream(std::size_t channelWords) {
    static const std::array<const char*, 2> colors = {"rgb", "frgb"};
    std::uint64_t at = header_.bodyStart;
    for (std::size_t i = 0; i < channelWords; ++i, at += 4) {
        const std::uint32_t channels = wordAt(at, "channel count");
        const std::uint32_t none = channelWords == 1 ? 1 : 4;
        const bool isGood = header_.hasField(colors[i])
                                ? channels == 1 || channels == 3 || channels == 4
                                : channels == none;
        if (!isGood) fail(at, "a channel count of " + std::to_string(channels));
        channels_.push_back(channels);
    }
    const std::uint32_t size = wordAt(at, "size of the stream");
    const std::uint32_t raw = wordAt(at + 4, "size of the columns");
    if (raw != size_)
        fail(at + 4, "a size of " + std::to_string(raw) + " for columns of " +
                         std::to_string(size_) + " bytes");
    decode(at + 8, size);
}

void Body::decode(std::uint64_t start, std::uint64_t size) {
    const std::uint64_t left = file_.size() - start;
    if (left < size)
        fail(file_.size(), "cut short: " + ofBytes(left, size) + " of the stream are there");
    if (size_ / kLzfMostExpansion > size)
        fail(start, "a stream of " + std::to_string(size) + " bytes cannot give " +
                        std::to_string(size_) + " bytes");
    streamStart_ = start;
    columns_.resize(size_);
    const LzfWalk walk = decodeLzf(file_.data() + start, size, columns_.data(), columns_.size());
    if (!walk.fault.empty()) fail(start + walk.at, walk.fault);
    if (walk.produced < size_)
        fail(start + walk.at, "the stream gives " + ofBytes(walk.produced, size_));
    requireEnd(start + size);
}

std::uint32_t Body::wordAt(std::uint64_t offset, const std::string& name) const {
    std::uint32_t word = 0;
    if (offset > file_.size() || file_.size() - offset < sizeof word)
        fail(file_.size(), "cut short: no " + name);
    std::memcpy(&word, file_.data() + offset, sizeof word);
    return word;
}

void Body::requireEnd(std::uint64_t end) const {
    if (file_.size() > end)
        fail(end, std::to_string(file_.size() - end) + " bytes behind the body");
}

void Body::fail(std::uint64_t offset, const std::string& why) const {
    throw Fault(path_, offset, why);
}

int Body::field(const char* name) const {
    const auto found = std::find(header_.fields.begin(), header_.fields.end(), name);
    return found == header_.fields.end() ? -1 : static_cast<int>(found - header_.fields.begin());
}

const unsigned char* Body::at(int field, std::uint64_t element) const {
    const Column& column = layout_[static_cast<std::size_t>(field)];
    return columns_.data() + column.offset + element * column.stride;
}

double Body::real(int field, std::uint64_t element) const {
    if (layout_[static_cast<std::size_t>(field)].size == sizeof(float)) {
        float value = 0;
        std::memcpy(&value, at(field, element), sizeof value);
        return value;
    }
    double value = 0;
    std::memcpy(&value, at(field, element), sizeof value);
    return value;
}

std::uint32_t Body::word(int field, std::uint64_t element) const {
    std::uint32_t value = 0;
    std::memcpy(&value, at(field, element), sizeof value);
    return value;
}

std::uint64_t Body::fileOffset(int field, std::uint64_t element) const {
    const auto position = static_cast<std::size_t>(at(field, element) - columns_.data());
    if (!isCompressed_) return streamStart_ + position;
    return streamStart_ +
           lzfChunkOf(file_.data() + streamStart_, file_.size() - streamStart_, position);
}

}  // namespace zyr
