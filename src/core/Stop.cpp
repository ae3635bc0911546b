#include "core/Stop.h"

#include <cassert>

// The C library declares its failure routine only where assertions are compiled in.
extern "C" [[noreturn]] void __assert_fail(const char* expression, const char* file, unsigned line,
                                           const char* function) noexcept;

void zyr::assertionFailure(const char* expression, const char* file, unsigned line,
                           const char* function) {
    __assert_fail(expression, file, line, function);
}
