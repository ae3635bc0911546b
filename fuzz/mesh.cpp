#include "MeshChecks.h"

// Input: a triangle-mesh file.

void fuzz::fuzzOne(Bytes input) {
    static InputFile file;
    const test::PlainHeader header(input);
    if (isSlowMesh(header)) return;
    file.fill(input);
    for (const Flags flags : kAllFlags) checkMesh(file, header, flags);
}
