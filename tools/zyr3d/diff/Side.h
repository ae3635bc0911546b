#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace zyr {

/// Values that are compared with those of the same name on the other side.
struct Column {
    std::string name;
    std::size_t width = 1;  ///< values an element, as the channels of colours
    std::vector<double> values;
    bool isPosition = false;  ///< compared where the element is valid on both sides
};

/// What one of two compared files holds, whatever its format.
struct Side {
    struct Trait {
        std::string name, text;
    };
    std::vector<Trait> traits;  ///< what must be the same for the files to be so
    std::vector<Column> columns;
    std::vector<char> isValid;  ///< for each point, vertex or value
    bool isGrid = false;        ///< of the values of a range image
};

/// Loads a file that may hold anything. Throws FileTrouble, also for a file that is cut short.
Side loadSide(const std::string& path);

}  // namespace zyr
