#pragma once

namespace zyr {

/// Stops the process through the C library's own assertion failure, whatever NDEBUG says. The texts
/// are part of the interface; they stay when code moves.
[[noreturn]] void assertionFailure(const char* expression, const char* file, unsigned line,
                                   const char* function);

}  // namespace zyr
