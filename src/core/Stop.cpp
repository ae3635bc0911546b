#include "core/Stop.h"

// The C library declares its failure routine only where assertions are compiled in.
#undef NDEBUG
#include <cassert>

void zyr::assertionFailure(const char* expression, const char* file, unsigned line,
                           const char* function) {
    __assert_fail(expression, file, line, function);
}
