#pragma once

#include <stdexcept>
#include <string>

namespace test {

/// Whether an operation fails as a standard vector does that is asked for room for a negative size.
template <class Operation>
bool isLengthError(Operation operation) {
    try {
        operation();
    } catch (const std::length_error& error) {
        return std::string(error.what()).find("vector::reserve") != std::string::npos;
    }
    return false;
}

}  // namespace test
