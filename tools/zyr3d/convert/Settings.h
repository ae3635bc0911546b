#pragma once

#include <array>
#include <optional>
#include <stdexcept>
#include <string>

#include "formats/Format.h"

namespace zyr {

/// A wish that can't be fulfilled, whatever the files hold.
struct UsageTrouble : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct GridSize {
    int columns = 0, rows = 0;
};

/// What people may wish for a conversion.
struct ConvertSettings {
    enum Width { Usual, Floats, Doubles };

    std::optional<Holes> holes;
    WriteOptions::Body body = WriteOptions::Plain;
    Width width = Usual;

    // Of range images.
    std::optional<std::array<double, 4>> camera;  ///< fx, fy, cx, cy
    std::optional<std::array<double, 3>> resolution, offset;
    std::optional<double> depthScale;
    std::optional<double> hole;
    std::string colorFile;

    // Of grids.
    std::optional<GridSize> grid;
    std::optional<double> jump;
    bool isMeshWanted = false;
};

}  // namespace zyr
