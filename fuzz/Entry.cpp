#include "Harness.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    static const bool isReady = (test::catchStops(), true);
    fuzz::require(isReady, "stops are caught");
    fuzz::fuzzOne(fuzz::Bytes(data, data + size));
    return 0;
}
