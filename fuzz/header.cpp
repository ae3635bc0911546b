#include "MeshChecks.h"

// Input: header lines, to which an "ascii" DATA line is added. Both readers take them as the plain
// reader of the tests does.

namespace {

using fuzz::Flags;
using fuzz::require;

constexpr Flags kFlags{true, true};

void checkAsciiCloud(const fuzz::InputFile& file, const test::PlainHeader& header) {
    const test::LoadedCloud cloud = test::loadFile(file.path(), true, true);
    require(test::takeStop() == header.stop(), "stops are the stated ones");
    if (header.kind() == "ascii")
        require(
            cloud.isLoaded == (header.isCloud() && !fuzz::areUnbacked(fuzz::cloudBytes(header))),
            "clouds are those of the plain reader");
    for (const double value : test::values(cloud.points))
        if (header.kind() == "ascii") require(value == 0.0, "all points are at the origin");
}

void checkAsciiMesh(const fuzz::InputFile& file, const test::PlainHeader& header) {
    test::MeshLists mesh;
    const bool isLoaded = mesh.load(file.path(), true, true);
    require(test::takeStop() == header.stop(), "stops are the stated ones");
    const bool isMesh = header.isUsable() && header.number("POINTS") > 0 &&
                        !fuzz::areUnbacked(fuzz::meshBytes(header));
    if (header.kind() == "ascii" && header.areGroupsApart())
        require(isLoaded == isMesh, "meshes are those of the plain reader");
}

}  // namespace

void fuzz::fuzzOne(Bytes input) {
    static InputFile file;
    const Bytes lines = test::joined(input, test::toBytes("\nDATA ascii\n"));
    const test::PlainHeader header(lines);
    if (isSlow(header.number("POINTS"), cloudBytes(header)) || isSlowMesh(header)) return;
    file.fill(lines);
    checkAsciiCloud(file, header);
    checkAsciiMesh(file, header);
    checkCloud(file, header, kFlags);
    checkMesh(file, header, kFlags);
}
