#pragma once

#include <iosfwd>

#include "convert/Fit.h"
#include "convert/Settings.h"

namespace zyr {

/// Refuses wishes that a format can't fulfil. Throws UsageTrouble.
void checkSettings(const ConvertSettings& settings, const Format& format);

/// What became of a file.
struct Conversion {
    Scene scene;  ///< as it was written
    Holes holes = Holes::Keep;
    Loss loss;
    std::optional<double> rounding;  ///< the largest of a coordinate, where floats were written

    void print(const std::string& in, const std::string& out, std::ostream& stream) const;
    void printJson(const std::string& in, const std::string& out, std::ostream& stream) const;
};

/// Reads a file and writes another. Throws FileTrouble and UsageTrouble.
Conversion convertFile(const std::string& in, const std::string& out,
                       const ConvertSettings& settings);

}  // namespace zyr
