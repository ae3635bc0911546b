#include <array>
#include <cmath>

#include "Outcome.h"
#include "Table.h"
#include "ZyrVector3d.h"
#include "check/Body.h"
#include "check/Check.h"
#include "check/HeaderRules.h"
#include "files/RegularFile.h"

namespace zyr {
namespace {

/// The walk over the elements of a point-cloud or mesh file whose body is whole.
class Elements {
public:
    Elements(const std::string& path, const CloudHeader& header, const Body& body)
        : path_(path),
          body_(body),
          points_(static_cast<std::uint64_t>(header.points)),
          faces_(static_cast<std::uint64_t>(header.faces)) {}

    void checkColors(const char* field, std::size_t channelWord, std::uint64_t elements) const {
        const int column = body_.field(field);
        if (column < 0 || body_.channels().empty()) return;
        const std::uint32_t channels = body_.channels()[channelWord];
        for (std::uint64_t i = 0; i < elements; ++i) {
            const std::uint32_t word = body_.word(column, i);
            if (channels == 1 && word > 0xFF)
                fail(column, i, "a grey level of " + std::to_string(word));
            if (channels == 3 && word >> 24 != 0xFF)
                fail(column, i, "a colour of three channels whose alpha is not 255");
        }
    }

    void checkCorners() const {
        const std::array<int, 3> columns = {body_.field("fa"), body_.field("fb"),
                                            body_.field("fc")};
        // In the order of the file, in which each corner is a column.
        for (const int column : columns)
            for (std::uint64_t i = 0; i < faces_; ++i) {
                const std::uint32_t corner = body_.word(column, i);
                if (corner >= points_)
                    fail(column, i,
                         "triangle " + std::to_string(i) + " names vertex " +
                             std::to_string(static_cast<std::int32_t>(corner)) + " of " +
                             std::to_string(points_));
            }
    }

    std::uint64_t holes() const {
        std::uint64_t holes = 0;
        const int x = body_.field("x");
        for (std::uint64_t i = 0; i < points_; ++i)
            if (!ZyrVector3d(value(x, i), value(x + 1, i), value(x + 2, i)).IsValid()) ++holes;
        return holes;
    }

    /// Components that are read as 0, as nothing in a cloud's file should be.
    std::uint64_t numbersMissing() const {
        std::uint64_t missing = 0;
        for (int field = body_.field("x"), last = field + 3; field < last; ++field)
            for (std::uint64_t i = 0; i < points_; ++i)
                if (std::isnan(body_.real(field, i))) ++missing;
        return missing;
    }

private:
    [[noreturn]] void fail(int field, std::uint64_t element, const std::string& why) const {
        throw Fault(path_, body_.fileOffset(field, element), why);
    }

    double value(int field, std::uint64_t i) const { return body_.real(field, i); }

    const std::string& path_;
    const Body& body_;
    std::uint64_t points_, faces_;
};

/// All bytes; no more than a header's where that is none. Throws FileTrouble.
std::vector<unsigned char> readScanned(const std::string& path) {
    std::vector<unsigned char> bytes;
    readPieces(path, [&](std::string_view piece) {
        bytes.insert(bytes.end(), piece.begin(), piece.end());
        if (bytes.size() != kMostHeader) return;
        scanHeader(path, bytes);
        bytes.reserve(fileSize(path));
    });
    return bytes;
}

}  // namespace

Checked checkCloudFile(const std::string& path) {
    const std::vector<unsigned char> bytes = readScanned(path);
    const CloudHeader header = scanHeader(path, bytes);
    checkCloudHeader(path, header);
    const Body body = Body::ofCloud(path, header, bytes);
    const Elements elements(path, header, body);
    const auto points = static_cast<std::uint64_t>(header.points);
    elements.checkColors("rgb", 0, points);
    const std::uint64_t missing = elements.numbersMissing();
    // The reader turns NaN of a compressed body into 0, which is no hole.
    const std::uint64_t holes = elements.holes();
    Checked checked;
    checked.facts.word("kind", "point cloud");
    checked.facts.count("points", points);
    checked.facts.count("holes", holes);
    checked.facts.count("not numbers", missing);
    checked.summary =
        "point cloud, " + counted(points, "point", "points") + ", " + holesText(holes, points);
    if (missing > 0)
        checked.summary += ", " + counted(missing, "component that is not a number",
                                          "components that are not numbers");
    return checked;
}

Checked checkMeshFile(const std::string& path) {
    const std::vector<unsigned char> bytes = readScanned(path);
    const CloudHeader header = scanHeader(path, bytes);
    checkMeshHeader(path, header);
    const Body body = Body::ofMesh(path, header, bytes);
    const Elements elements(path, header, body);
    const auto vertices = static_cast<std::uint64_t>(header.points);
    const auto triangles = static_cast<std::uint64_t>(header.faces);
    elements.checkColors("rgb", 0, vertices);
    elements.checkCorners();
    elements.checkColors("frgb", 1, triangles);
    const std::uint64_t holes = elements.holes();
    Checked checked;
    checked.facts.word("kind", "triangle mesh");
    checked.facts.count("vertices", vertices);
    checked.facts.count("holes", holes);
    checked.facts.count("triangles", triangles);
    checked.summary = "triangle mesh, " + counted(vertices, "vertex", "vertices") + ", " +
                      holesText(holes, vertices) + ", " +
                      counted(triangles, "triangle", "triangles");
    return checked;
}

}  // namespace zyr
