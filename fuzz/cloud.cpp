#include "CloudChecks.h"

// Input: a point-cloud file.

void fuzz::fuzzOne(Bytes input) {
    static InputFile file;
    const test::PlainHeader header(input);
    // Many points from few bytes are a matter of time alone; the tests of limits have them.
    if (header.number("POINTS") > kMostElements) return;
    file.fill(input);
    for (const Flags flags : kAllFlags) checkCloud(file, header, flags);
}
