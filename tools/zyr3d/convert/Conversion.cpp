#include "convert/Conversion.h"

#include <ostream>

#include "Facts.h"
#include "Printable.h"
#include "Table.h"

namespace zyr {
namespace {

bool isFloat(const ConvertSettings& settings, const Format& format) {
    return settings.width == ConvertSettings::Usual ? format.isFloat
                                                    : settings.width == ConvertSettings::Floats;
}

unsigned bodyAbility(WriteOptions::Body body) {
    switch (body) {
        case WriteOptions::Ascii:
            return kAscii;
        case WriteOptions::Binary:
            return kBinary;
        case WriteOptions::BigEndian:
            return kBigEndian;
        case WriteOptions::Compressed:
            return kCompressed;
        default:
            return 0;
    }
}

std::string count(int number, const char* one, const char* many) {
    return counted(static_cast<std::uint64_t>(number), one, many);
}

std::string facts(const Scene& scene) {
    if (scene.kind == Scene::Range)
        return std::to_string(scene.range.Width()) + " x " + std::to_string(scene.range.Height()) +
               " values";
    if (scene.kind == Scene::Mesh)
        return count(scene.cloud.Length(), "vertex", "vertices") + ", " +
               count(scene.triangleCount(), "triangle", "triangles");
    return count(scene.cloud.Length(), "point", "points");
}

std::string holesText(const Loss& loss, Holes holes) {
    const char* fate = holes == Holes::Drop  ? " dropped"
                       : holes == Holes::Nan ? " as NaN"
                                             : " kept as the invalid value";
    std::string text = counted(loss.holes, "hole", "holes") + fate;
    if (loss.droppedTriangles > 0)
        text += ", with " + counted(loss.droppedTriangles, "triangle", "triangles") + " at them";
    return text;
}

std::string roundingText(double largest) {
    if (largest == 0.0) return "coordinates as floats, which hold them exactly";
    return "coordinates rounded to floats: by " + compact(largest) + " at most";
}

}  // namespace

void checkSettings(const ConvertSettings& settings, const Format& format) {
    const std::string name = format.name;
    if (!format.can(bodyAbility(settings.body)))
        throw UsageTrouble(name +
                           " has no such body: --ascii, --binary, --big-endian or --compressed");
    const bool isExact = format.can(kBothWidths) || (std::string(format.suffix) == "stl" &&
                                                     settings.body == WriteOptions::Ascii);
    if (settings.width == ConvertSettings::Doubles && !isExact && format.isFloat)
        throw UsageTrouble(name + " has floats alone in this body");
    if (settings.width == ConvertSettings::Floats && !format.can(kBothWidths) && !format.isFloat)
        throw UsageTrouble(name + " has doubles alone");
    if (settings.holes == Holes::Nan && !format.can(kNanMarks))
        throw UsageTrouble(name + " has no NaN to mark holes with");
    if (settings.isMeshWanted && !format.can(kMeshes))
        throw UsageTrouble(name + " holds no meshes");
}

Conversion convertFile(const std::string& in, const std::string& out,
                       const ConvertSettings& settings) try {
    const Format& format = *formatOf(out);
    Conversion result;
    Scene& scene = result.scene;
    scene = readScene(in);
    fitKind(scene, format, settings);
    fitAttributes(scene, format);
    result.holes = settings.holes.value_or(format.holes);
    result.loss = fitHoles(scene, result.holes, format.can(kNanMarks));
    const WriteOptions options{settings.body, isFloat(settings, format)};
    writeScene(scene, out, options);
    if (options.isFloat && scene.kind != Scene::Range) result.rounding = floatRounding(scene);
    return result;
} catch (const UsageTrouble& trouble) {
    throw UsageTrouble(in + ": " + trouble.what());
}

void Conversion::print(const std::string& in, const std::string& out, std::ostream& stream) const {
    stream << printable(in + " -> " + out) << ": " << facts(scene) << "\n";
    if (loss.holes > 0) stream << "  " << holesText(loss, holes) << "\n";
    if (rounding) stream << "  " << roundingText(*rounding) << "\n";
    for (const std::string& what : scene.leftOut)
        stream << "  left out: " << printable(what) << "\n";
}

void Conversion::printJson(const std::string& in, const std::string& out,
                           std::ostream& stream) const {
    const char* const fates[] = {"keep", "nan", "drop"};
    Facts facts;
    facts.word("written", out);
    if (scene.kind == Scene::Range) {
        facts.size("size", static_cast<std::uint64_t>(scene.range.Width()),
                   static_cast<std::uint64_t>(scene.range.Height()));
    } else {
        facts.count("points", static_cast<std::uint64_t>(scene.cloud.Length()));
        facts.count("triangles", static_cast<std::uint64_t>(scene.triangleCount()));
        facts.count("holes", loss.holes);
        facts.word("invalid", fates[static_cast<int>(holes)]);
    }
    if (rounding) facts.add("rounding", "", *rounding);
    facts.add("left out", "", scene.leftOut);
    facts.printJson(stream, in);
}

}  // namespace zyr
