#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "formats/Fault.h"
#include "formats/Scalar.h"
#include "formats/Scene.h"

namespace zyr {

/// A column of a PLY element: a value, or a list of values behind their number.
struct PlyProperty {
    std::string name;
    Scalar value;
    bool isList = false;
    Scalar count;  ///< of a list

    Field field() const;
};

struct PlyElement {
    std::string name;
    std::uint64_t count = 0;
    Place place;
    std::vector<PlyProperty> properties;

    /// Bytes that one takes at least, with empty lists.
    std::uint64_t leastBytes(bool isAscii) const;
};

struct PlyHeader {
    enum Body { Ascii, LittleEndian, BigEndian };

    Body body = Ascii;
    std::vector<PlyElement> elements;
    std::size_t bodyStart = 0;
    Place end;  ///< of its line
};

/// Throws FormatFault.
PlyHeader readPlyHeader(std::string_view bytes);

}  // namespace zyr
