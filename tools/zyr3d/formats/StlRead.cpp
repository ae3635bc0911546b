#include <algorithm>
#include <unordered_map>

#include "formats/Fault.h"
#include "formats/PointColumns.h"
#include "formats/Readers.h"
#include "formats/Scalar.h"
#include "formats/Text.h"

namespace zyr {
namespace {

constexpr std::size_t kHead = 84, kRecord = 50;

struct Hash {
    std::size_t operator()(const std::array<double, 3>& point) const {
        std::size_t hash = 0;
        for (const double value : point)
            hash = (hash ^ std::hash<double>()(value)) * 0x9E3779B97F4A7C15u;
        return hash ^ hash >> 29;
    }
};

/// Triangles whose corners become one vertex where they lie at the same place. The first comes
/// first.
class Welding {
public:
    void addNormal(double x, double y, double z) { normals_.Append(validOrHole(x, y, z)); }

    void addCorner(double x, double y, double z) {
        const ZyrVector3d point = validOrHole(x, y, z);
        const std::array<double, 3> key = {point.x, point.y, point.z};
        const auto [found, isNew] = indices_.emplace(key, points_.Length());
        if (isNew) points_.Append(point);
        corners_.Append(found->second);
    }

    Scene finish() const {
        Scene scene;
        scene.kind = Scene::Mesh;
        scene.cloud.SetPoints(points_);
        scene.triangles = corners_;
        scene.triangleNormals = normals_;
        return scene;
    }

private:
    std::unordered_map<std::array<double, 3>, int, Hash> indices_;
    ZyrVector3dArray points_, normals_;
    Zyr3DIntArray corners_;
};

/// The format has these fields alone.
Scene described(Scene scene, const std::string& body) {
    const auto triangles = static_cast<std::uint64_t>(scene.triangleCount());
    scene.body = body;
    for (const char* name : {"normal", "corner1", "corner2", "corner3"})
        scene.fields.push_back({name, "float32[3]"});
    if (body == "binary") scene.fields.push_back({"attributes", "uint16"});
    scene.rawBytes = triangles * (body == "binary" ? kRecord : 48);
    return scene;
}

std::uint64_t recordsOf(std::string_view bytes) {
    return bytes.size() < kHead ? 0 : loadAs<std::uint32_t>(bytes.data() + kHead - 4);
}

Scene readBinary(std::string_view bytes) {
    if (bytes.size() < kHead) throw CutShort("a binary STL file has 84 bytes at least");
    const int count =
        boundedCount(recordsOf(bytes), kRecord, bytes.size() - kHead, "triangles", {kHead - 4});
    Welding welding;
    bool hasAttributes = false;
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        const char* record = bytes.data() + kHead + i * kRecord;
        const auto value = [&](std::size_t at) {
            return static_cast<double>(loadAs<float>(record + 4 * at));
        };
        welding.addNormal(value(0), value(1), value(2));
        for (std::size_t corner = 3; corner < 12; corner += 3)
            welding.addCorner(value(corner), value(corner + 1), value(corner + 2));
        hasAttributes = hasAttributes || loadAs<std::uint16_t>(record + 48) != 0;
    }
    Scene scene = described(welding.finish(), "binary");
    if (hasAttributes) scene.leftOut.push_back("attribute bytes of the triangles");
    const std::size_t end = kHead + kRecord * static_cast<std::size_t>(count);
    if (hasContent(bytes.substr(end))) {
        scene.leftOut.push_back("bytes behind the last triangle");
        scene.rest = end;
    }
    return scene;
}

/// A text reader that goes by the words, whatever lines they stand in.
class AsciiReader {
public:
    explicit AsciiReader(std::string_view bytes) : lines_(bytes) {}

    Scene read() {
        std::string_view line;
        while (lines_.next(line)) {
            splitWords(line, words_);
            if (words_.empty()) continue;
            const std::string keyword = lowered(words_[0]);
            if (keyword == "facet") startFacet();
            if (keyword == "vertex") addVertex();
            if (keyword == "endfacet") endFacet();
            if (keyword == "endsolid") isWhole_ = true;
        }
        if (isInFacet_ || !isWhole_) throw CutShort("no endsolid");
        return described(welding_.finish(), "ascii");
    }

private:
    [[noreturn]] void fail(const std::string& why) const { failAt(lines_.place(), why); }

    void takeThree(std::size_t from, double* values) {
        if (words_.size() < from + 3) fail("three numbers are needed");
        for (std::size_t i = 0; i < 3; ++i)
            if (!parseNumber(words_[from + i], values[i]))
                fail("not a number: " + quoted(words_[from + i]));
    }

    void startFacet() {
        if (isInFacet_) fail("a facet inside a facet");
        isInFacet_ = true;
        isWhole_ = false;
        corners_ = 0;
        double normal[3];
        takeThree(2, normal);
        welding_.addNormal(normal[0], normal[1], normal[2]);
    }

    void addVertex() {
        if (!isInFacet_ || ++corners_ > 3) fail("a vertex that belongs to no triangle");
        double corner[3];
        takeThree(1, corner);
        welding_.addCorner(corner[0], corner[1], corner[2]);
    }

    void endFacet() {
        if (!isInFacet_ || corners_ != 3) fail("a facet of other than 3 vertices");
        isInFacet_ = false;
    }

    Lines lines_;
    std::vector<std::string_view> words_;
    Welding welding_;
    bool isInFacet_ = false, isWhole_ = false;
    int corners_ = 0;
};

/// Many binary files start with "solid" as well, so that their size has the first say.
bool isAscii(std::string_view bytes) {
    if (bytes.size() >= kHead && bytes.size() == kHead + kRecord * recordsOf(bytes)) return false;
    const std::size_t start = bytes.find_first_not_of(" \t\r\n");
    if (start == std::string_view::npos || lowered(bytes.substr(start, 5)) != "solid") return false;
    return bytes.substr(0, 4096).find('\0') == std::string_view::npos;
}

}  // namespace

Scene readStl(std::string_view bytes) {
    return isAscii(bytes) ? AsciiReader(bytes).read() : readBinary(bytes);
}

}  // namespace zyr
