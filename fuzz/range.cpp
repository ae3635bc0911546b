#include "RangeChecks.h"

// Input: a range-image file.

void fuzz::fuzzOne(Bytes input) {
    static InputFile file;
    file.fill(input);
    for (const bool withColors : {false, true}) checkRange(file, input, withColors);
}
