#include "CloudChecks.h"

// Input: a point-cloud file.

void fuzz::fuzzOne(Bytes input) {
    static InputFile file;
    const test::PlainHeader header(input);
    if (isSlow(header.number("POINTS"), cloudBytes(header))) return;
    file.fill(input);
    for (const Flags flags : kAllFlags) checkCloud(file, header, flags);
}
