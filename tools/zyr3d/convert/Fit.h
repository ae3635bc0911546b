#pragma once

#include "convert/Settings.h"

namespace zyr {

/// What holes cost.
struct Loss {
    std::uint64_t holes = 0;
    std::uint64_t droppedTriangles = 0;
};

/// Makes a scene what the format has a place for: of a kind that it holds, with holes as wished,
/// and without what it can't keep, which goes to leftOut. Throws UsageTrouble where there is no
/// way.
void fitKind(Scene& scene, const Format& format, const ConvertSettings& settings);
Loss fitHoles(Scene& scene, Holes holes, bool canBeNan);
void fitAttributes(Scene& scene, const Format& format);

/// The largest difference of a finite coordinate from its nearest float.
double floatRounding(const Scene& scene);

}  // namespace zyr
