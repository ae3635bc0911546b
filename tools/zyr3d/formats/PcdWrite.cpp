#include "LZF.h"
#include "formats/Fault.h"
#include "formats/Rows.h"
#include "formats/Scalar.h"
#include "formats/Writers.h"

namespace zyr {
namespace {

std::string repeated(const std::string& text, int times) {
    std::string result;
    for (int i = 0; i < times; ++i) result += text;
    return result;
}

const char* bodyName(WriteOptions::Body body) {
    if (body == WriteOptions::Ascii) return "ascii";
    return body == WriteOptions::Compressed ? "binary_compressed" : "binary";
}

/// Three channels are a float of the word's bits, as readers want it; as text they are the word.
std::string header(const Scene& scene, ZyrPointCloud& cloud, const WriteOptions& options) {
    const int reals = cloud.IsValidNormal() ? 6 : 3;
    const bool hasColor = cloud.IsValidColor();
    const bool hasAlpha = hasColor && cloud.ColorData().Channel() == 4;
    const bool isWord = hasAlpha || options.body == WriteOptions::Ascii;
    const int width = scene.isGrid() ? scene.columns : cloud.Length();
    const std::string points = std::to_string(cloud.Length());
    return "# .PCD v0.7 - Point Cloud Data file format\nVERSION 0.7\nFIELDS x y z" +
           std::string(reals == 6 ? " normal_x normal_y normal_z" : "") +
           (hasAlpha   ? " rgba"
            : hasColor ? " rgb"
                       : "") +
           "\nSIZE" + repeated(options.isFloat ? " 4" : " 8", reals) + (hasColor ? " 4" : "") +
           "\nTYPE" + repeated(" F", reals) + (hasColor ? isWord ? " U" : " F" : "") + "\nCOUNT" +
           repeated(" 1", reals + (hasColor ? 1 : 0)) + "\nWIDTH " + std::to_string(width) +
           "\nHEIGHT " + std::to_string(scene.isGrid() ? scene.rows : 1) +
           "\nVIEWPOINT 0 0 0 1 0 0 0\nPOINTS " + points + "\nDATA " + bodyName(options.body) +
           "\n";
}

void appendReal(std::string& bytes, double value, bool isFloat) {
    if (isFloat)
        appendAs(bytes, static_cast<float>(value));
    else
        appendAs(bytes, value);
}

void appendColumns(std::string& bytes, ZyrVector3dArray& vectors, bool isFloat) {
    for (double ZyrVector3d::*component : {&ZyrVector3d::x, &ZyrVector3d::y, &ZyrVector3d::z})
        for (int i = 0; i < vectors.Length(); ++i)
            appendReal(bytes, vectors[i].*component, isFloat);
}

void writeCompressed(ZyrPointCloud& cloud, bool isFloat, SafeFile& file) {
    std::string columns;
    appendColumns(columns, cloud.PointData(), isFloat);
    if (cloud.IsValidNormal()) appendColumns(columns, cloud.NormalData(), isFloat);
    for (int i = 0; cloud.IsValidColor() && i < cloud.Length(); ++i)
        appendAs(columns, packedColor(cloud.ColorData(), i));
    constexpr std::size_t kMost = 0x70000000;
    if (columns.size() > kMost)
        throw FormatFault("the points are too many for a compressed body; take --binary");
    std::string stream(columns.size() + columns.size() / 32 + 64, '\0');
    const int size = LZF::compress(
        reinterpret_cast<unsigned char*>(columns.data()), static_cast<int>(columns.size()),
        reinterpret_cast<unsigned char*>(stream.data()), static_cast<int>(stream.size()));
    std::string sizes;
    appendAs(sizes, static_cast<std::uint32_t>(size));
    appendAs(sizes, static_cast<std::uint32_t>(columns.size()));
    file.put(sizes);
    file.put(std::string_view(stream).substr(0, static_cast<std::size_t>(size)));
}

void writeRows(ZyrPointCloud& cloud, const WriteOptions& options, SafeFile& file) {
    Rows rows(file, {options.body == WriteOptions::Ascii, options.isFloat, false, ' '});
    for (int i = 0; i < cloud.Length(); ++i) {
        rows.vector(cloud.PointData()[i]);
        if (cloud.IsValidNormal()) rows.vector(cloud.NormalData()[i]);
        if (cloud.IsValidColor()) rows.word(packedColor(cloud.ColorData(), i));
        rows.end();
    }
}

}  // namespace

void writePcd(const Scene& scene, const WriteOptions& options, SafeFile& file) {
    ZyrPointCloud cloud = scene.cloud;
    file.put(header(scene, cloud, options));
    if (options.body == WriteOptions::Compressed)
        writeCompressed(cloud, options.isFloat, file);
    else
        writeRows(cloud, options, file);
}

}  // namespace zyr
