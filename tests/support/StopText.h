#pragma once

#include <string>

namespace test {

/// A pattern that matches exactly what the C library prints for a failed assertion, program name
/// aside.
inline std::string stopText(const std::string& file, int line, const std::string& function,
                            const std::string& expression) {
    const std::string text = ": " + file + ":" + std::to_string(line) + ": " + function +
                             ": Assertion `" + expression + "' failed.";
    std::string pattern;
    for (const char c : text) {
        if (std::string(".*+?()|[]{}^$\\").find(c) != std::string::npos) pattern += '\\';
        pattern += c;
    }
    return pattern + "\n";
}

}  // namespace test
