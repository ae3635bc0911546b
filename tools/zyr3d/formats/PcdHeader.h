#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "formats/Fault.h"
#include "formats/PointColumns.h"
#include "formats/Scalar.h"

namespace zyr {

struct PcdField {
    std::string name;
    Scalar scalar;
    std::uint64_t count = 1;  ///< values a point
    Role role = Role::None;

    std::uint64_t bytes() const { return scalar.size * count; }
};

struct PcdHeader {
    std::vector<PcdField> fields;
    std::uint64_t width = 0, height = 1, points = 0;
    std::string body;           ///< "ascii", "binary" or "binary_compressed"
    bool hasViewpoint = false;  ///< one that is not the origin, looking along z
    std::size_t bodyStart = 0;
    std::map<std::string, Place> places;  ///< of the lines, by their keywords

    /// Of the first of these lines that is there, else of the last line of the header.
    Place placeOf(const std::vector<const char*>& keywords) const;

    std::uint64_t recordBytes() const;
    std::uint64_t recordWords() const;
};

/// Throws FormatFault.
PcdHeader readPcdHeader(std::string_view bytes);

}  // namespace zyr
